#include <storefile.h>

#include "platform/objectstore/store_error.h"
#include "platform/objectstore/store_file.h"

BOOL CeObjectStoreFile(LPWSTR path, DWORD room) {
    DWORD error = ERROR_INSUFFICIENT_BUFFER;
    try {
        const std::wstring found = store::StorePath();
        if (found.size() < room) {
            path[found.copy(path, found.size())] = L'\0';
            return TRUE;
        }
    } catch (const store::StoreError& failure) {
        error = failure.code;
    } catch (...) {
        error = ERROR_NOT_ENOUGH_MEMORY;
    }
    SetLastError(error);
    return FALSE;
}
