// The calls about whole databases.
#include <windbase.h>

#undef CloseHandle

CEOID CeCreateDatabase(LPCWSTR, DWORD, WORD, const SORTORDERSPEC*) {
    SetLastError(ERROR_CALL_NOT_IMPLEMENTED);
    return 0;
}

HANDLE CeOpenDatabase(PCEOID, LPCWSTR, CEPROPID, DWORD, HWND) {
    SetLastError(ERROR_CALL_NOT_IMPLEMENTED);
    return INVALID_HANDLE_VALUE;
}

BOOL CeDeleteDatabase(CEOID) {
    SetLastError(ERROR_CALL_NOT_IMPLEMENTED);
    return FALSE;
}

BOOL CeSetDatabaseInfo(CEOID, const CEDBASEINFO*) {
    SetLastError(ERROR_CALL_NOT_IMPLEMENTED);
    return FALSE;
}

BOOL CeOidGetInfo(CEOID, CEOIDINFO*) {
    SetLastError(ERROR_CALL_NOT_IMPLEMENTED);
    return FALSE;
}

HANDLE CeFindFirstDatabase(DWORD) {
    SetLastError(ERROR_CALL_NOT_IMPLEMENTED);
    return INVALID_HANDLE_VALUE;
}

CEOID CeFindNextDatabase(HANDLE) {
    SetLastError(ERROR_CALL_NOT_IMPLEMENTED);
    return 0;
}

BOOL CeCloseHandle(HANDLE handle) {
    return CloseHandle(handle);
}

CEOID CeSeekDatabase(HANDLE, DWORD, DWORD_PTR, LPDWORD) {
    SetLastError(ERROR_CALL_NOT_IMPLEMENTED);
    return 0;
}

CEOID CeReadRecordProps(HANDLE, DWORD, LPWORD, const CEPROPID*, LPBYTE*, LPDWORD) {
    SetLastError(ERROR_CALL_NOT_IMPLEMENTED);
    return 0;
}

CEOID CeWriteRecordProps(HANDLE, CEOID, WORD, const CEPROPVAL*) {
    SetLastError(ERROR_CALL_NOT_IMPLEMENTED);
    return 0;
}

BOOL CeDeleteRecord(HANDLE, CEOID) {
    SetLastError(ERROR_CALL_NOT_IMPLEMENTED);
    return FALSE;
}

BOOL CeUnmountObjectStore() {
    return TRUE;
}
