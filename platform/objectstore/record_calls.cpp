// The calls about records.
#include <windbase.h>

#include "platform/objectstore/read.h"
#include "platform/objectstore/seek.h"
#include "platform/objectstore/store_call.h"
#include "platform/objectstore/write.h"

using store::Call;
using store::Store;

CEOID CeSeekDatabase(HANDLE database, DWORD seek, DWORD_PTR value, LPDWORD index) {
    return Call("CeSeekDatabase", CEOID{0}, [&](Store& store) {
        store::OpenDatabase& open = store.FindOpen(database);
        store.Fresh();
        const CEOID record = store::Seek(store, open, seek, value, index);
        if (record == 0) SetLastError(ERROR_NO_MORE_ITEMS);
        return record;
    });
}

CEOID CeReadRecordProps(HANDLE database, DWORD flags, LPWORD count, const CEPROPID* ids, LPBYTE* buffer, LPDWORD size) {
    return Call("CeReadRecordProps", CEOID{0}, [&](Store& store) {
        store::OpenDatabase& open = store.FindOpen(database);
        store.Fresh();
        return store::ReadProperties(store, open, flags, count, ids, buffer, size);
    });
}

CEOID CeWriteRecordProps(HANDLE database, CEOID record, WORD count, const CEPROPVAL* values) {
    return Call("CeWriteRecordProps", CEOID{0}, [&](Store& store) {
        return store::WriteProperties(store, store.FindOpen(database), record, values, count);
    });
}

BOOL CeDeleteRecord(HANDLE database, CEOID record) {
    return Call("CeDeleteRecord", FALSE, [&](Store& store) {
        store::DeleteRecord(store, store.FindOpen(database), record);
        return TRUE;
    });
}
