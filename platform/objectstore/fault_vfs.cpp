#include "platform/objectstore/fault_vfs.h"

#include <sqlite3.h>

#include <cstring>

namespace store {
namespace {

// Our part of an open file, followed in memory by the system layer's.
struct File {
    sqlite3_file base;
};

sqlite3_vfs* System() {
    return sqlite3_vfs_find("win32");
}

sqlite3_file* Real(sqlite3_file* file) {
    return reinterpret_cast<sqlite3_file*>(reinterpret_cast<char*>(file) + sizeof(File));
}

int Close(sqlite3_file* f) {
    return Real(f)->pMethods ? Real(f)->pMethods->xClose(Real(f)) : SQLITE_OK;
}
int Read(sqlite3_file* f, void* p, int n, sqlite3_int64 at) {
    return Real(f)->pMethods->xRead(Real(f), p, n, at);
}
int Write(sqlite3_file* f, const void* p, int n, sqlite3_int64 at) {
    if (const int fault = TakeDiskFault(SQLITE_IOERR_WRITE)) return fault;
    return Real(f)->pMethods->xWrite(Real(f), p, n, at);
}
int Truncate(sqlite3_file* f, sqlite3_int64 size) {
    return Real(f)->pMethods->xTruncate(Real(f), size);
}
int Sync(sqlite3_file* f, int flags) {
    if (const int fault = TakeDiskFault(SQLITE_IOERR_FSYNC)) return fault;
    return Real(f)->pMethods->xSync(Real(f), flags);
}
int FileSize(sqlite3_file* f, sqlite3_int64* size) {
    return Real(f)->pMethods->xFileSize(Real(f), size);
}
int Lock(sqlite3_file* f, int kind) {
    return Real(f)->pMethods->xLock(Real(f), kind);
}
int Unlock(sqlite3_file* f, int kind) {
    return Real(f)->pMethods->xUnlock(Real(f), kind);
}
int CheckLock(sqlite3_file* f, int* out) {
    return Real(f)->pMethods->xCheckReservedLock(Real(f), out);
}
int Control(sqlite3_file* f, int op, void* p) {
    return Real(f)->pMethods->xFileControl(Real(f), op, p);
}
int SectorSize(sqlite3_file* f) {
    return Real(f)->pMethods->xSectorSize(Real(f));
}
int Characteristics(sqlite3_file* f) {
    return Real(f)->pMethods->xDeviceCharacteristics(Real(f));
}
int ShmMap(sqlite3_file* f, int page, int size, int extend, void volatile** p) {
    if (extend) {
        if (const int fault = TakeDiskFault(SQLITE_IOERR_SHMMAP)) {
            return fault == SQLITE_FULL ? SQLITE_IOERR_SHMSIZE : fault;
        }
    }
    return Real(f)->pMethods->xShmMap(Real(f), page, size, extend, p);
}
int ShmLock(sqlite3_file* f, int at, int n, int flags) {
    return Real(f)->pMethods->xShmLock(Real(f), at, n, flags);
}
void ShmBarrier(sqlite3_file* f) {
    Real(f)->pMethods->xShmBarrier(Real(f));
}
int ShmUnmap(sqlite3_file* f, int remove) {
    return Real(f)->pMethods->xShmUnmap(Real(f), remove);
}

// Version 2: without the mapping of files, which would go past Write.
const sqlite3_io_methods methods = {
    2,          Close,           Read,   Write,   Truncate,   Sync,     FileSize, Lock,   Unlock, CheckLock, Control,
    SectorSize, Characteristics, ShmMap, ShmLock, ShmBarrier, ShmUnmap, nullptr,  nullptr};

int Open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags) {
    file->pMethods = nullptr;
    Real(file)->pMethods = nullptr;
    const int result = System()->xOpen(System(), name, Real(file), flags, outFlags);
    if (Real(file)->pMethods) file->pMethods = &methods;
    return result;
}

int Delete(sqlite3_vfs*, const char* name, int sync) {
    return System()->xDelete(System(), name, sync);
}

}  // namespace

const char* FaultVfs() {
    static sqlite3_vfs layer = [] {
        sqlite3_initialize();
        sqlite3_vfs made = *System();
        made.szOsFile = static_cast<int>(sizeof(File)) + System()->szOsFile;
        made.zName = "failing";
        made.pNext = nullptr;
        made.xOpen = Open;
        made.xDelete = Delete;
        return made;
    }();
    static const int registered = sqlite3_vfs_register(&layer, 0);
    return registered == SQLITE_OK ? "failing" : nullptr;
}

}  // namespace store
