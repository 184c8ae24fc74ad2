#include "platform/objectstore/store_error.h"

#include <sqlite3.h>

namespace store {

void Fail(DWORD code) {
    throw StoreError{code};
}

DWORD ErrorFromSqlite(int result, sqlite3* connection) {
    if ((result & 0xFF) == SQLITE_IOERR && connection) {
        const auto system = static_cast<DWORD>(sqlite3_system_errno(connection));
        if (system == ERROR_DISK_FULL || system == ERROR_HANDLE_DISK_FULL) return ERROR_DISK_FULL;
    }
    // The memory that processes share beside the file could not be made: it takes room on the disk.
    if (result == SQLITE_IOERR_SHMSIZE) return ERROR_DISK_FULL;
    switch (result & 0xFF) {
        case SQLITE_NOMEM: return ERROR_NOT_ENOUGH_MEMORY;
        case SQLITE_FULL: return ERROR_DISK_FULL;
        case SQLITE_TOOBIG: return ERROR_DISK_FULL;
        case SQLITE_BUSY: return ERROR_LOCK_VIOLATION;
        case SQLITE_LOCKED: return ERROR_LOCK_VIOLATION;
        case SQLITE_PROTOCOL: return ERROR_LOCK_VIOLATION;  // others went on and on taking the locks
        case SQLITE_READONLY: return ERROR_WRITE_PROTECT;
        case SQLITE_CANTOPEN: return ERROR_ACCESS_DENIED;
        case SQLITE_PERM: return ERROR_ACCESS_DENIED;
        case SQLITE_CORRUPT: return ERROR_FILE_CORRUPT;
        case SQLITE_NOTADB: return ERROR_FILE_CORRUPT;
        // An id that was given before, or a table with other rules than ours.
        case SQLITE_CONSTRAINT: return ERROR_FILE_CORRUPT;
        case SQLITE_MISMATCH: return ERROR_FILE_CORRUPT;
        // The only statements are our own: one that doesn't compile met tables that we did not make.
        case SQLITE_ERROR: return ERROR_FILE_CORRUPT;
        case SQLITE_IOERR: return result == SQLITE_IOERR_NOMEM ? ERROR_NOT_ENOUGH_MEMORY : ERROR_IO_DEVICE;
        default: return ERROR_IO_DEVICE;
    }
}

void FailSqlite(sqlite3* connection, int result) {
    const int extended = connection ? sqlite3_extended_errcode(connection) : result;
    Fail(ErrorFromSqlite((extended & 0xFF) == (result & 0xFF) ? extended : result, connection));
}

}  // namespace store
