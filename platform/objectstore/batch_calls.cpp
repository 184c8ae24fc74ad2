// Batches, and what concerns the whole store: its check, its copies.
#include <storebackup.h>
#include <storebatch.h>

#include "platform/objectstore/backup.h"

#include "platform/objectstore/integrity.h"
#include "platform/objectstore/store_call.h"
#include "platform/objectstore/store_file.h"

using store::Call;
using store::Fail;
using store::Store;

namespace {

// The lock is held over the calls of a batch, so a batch that is open here is this thread's own.
BOOL EndBatch(Store& store, bool commit) {
    if (!store.IsOpen() || !store.Open().InBatch()) Fail(ERROR_INVALID_PARAMETER);
    if (store.Open().IsScanning()) Fail(ERROR_BUSY);
    struct Unlock {
        Store& store;
        ~Unlock() { store.Mutex().unlock(); }
    } unlock{store};
    store.Open().EndBatch(commit);
    return TRUE;
}

}  // namespace

BOOL CeBeginBatch() {
    return Call("CeBeginBatch", FALSE, [](Store& store) {
        if (store.Open().InBatch()) Fail(ERROR_INVALID_PARAMETER);
        store.Open().BeginBatch();
        store.Mutex().lock();
        return TRUE;
    });
}

BOOL CeCommitBatch() {
    if (Call("CeCommitBatch", FALSE, [](Store& store) { return EndBatch(store, true); })) return TRUE;
    // However it failed, the batch is over and the lock free (unless a scan's visitor asks, who may do neither).
    const DWORD error = GetLastError();
    Call("", FALSE,
         [](Store& store) { return store.IsOpen() && store.Open().InBatch() ? EndBatch(store, false) : FALSE; });
    SetLastError(error);
    return FALSE;
}

BOOL CeCancelBatch() {
    return Call("CeCancelBatch", FALSE, [](Store& store) { return EndBatch(store, false); });
}

BOOL CeCheckObjectStore(CeCheckReport report, void* context) {
    return Call("CeCheckObjectStore", FALSE, [&](Store& store) {
        const bool sound = store::CheckStore(store.Open(), [&](const std::wstring& problem) {
            if (report) report(problem.c_str(), context);
        });
        if (!sound) Fail(ERROR_FILE_CORRUPT);
        return TRUE;
    });
}

BOOL CeBackupObjectStore(LPCWSTR file) {
    return Call("CeBackupObjectStore", FALSE, [&](Store& store) {
        if (!file || !*file) Fail(ERROR_INVALID_PARAMETER);
        store::BackUp(store.Fresh(), store::StorePath(), file);
        return TRUE;
    });
}

BOOL CeRestoreObjectStore(LPCWSTR file, LPWSTR kept, DWORD room) {
    return Call("CeRestoreObjectStore", FALSE, [&](Store&) {
        if (!file || !*file || !kept || room < MAX_PATH) Fail(ERROR_INVALID_PARAMETER);
        kept[0] = L'\0';
        if (!CeUnmountObjectStore()) Fail(GetLastError());
        const std::wstring old = store::Restore(store::StorePath(), file);
        lstrcpynW(kept, old.c_str(), static_cast<int>(room));
        return TRUE;
    });
}
