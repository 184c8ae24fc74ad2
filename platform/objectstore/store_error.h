// How a failure travels inside the object store: thrown where it is noticed, turned into the thread's last error at the
// one place where every Ce* call ends (store_call.h). It never leaves the library.
#pragma once

#include <win.h>

struct sqlite3;

namespace store {

struct StoreError {
    DWORD code;  // a system error code, as windbase.h lists them
};

[[noreturn]] void Fail(DWORD code);

// The system error code for what SQLite answered: of the connection's last call, when there is one, what the system
// told it counts too.
DWORD ErrorFromSqlite(int result, sqlite3* connection = nullptr);

// Throws what the connection's last call failed with.
[[noreturn]] void FailSqlite(sqlite3* connection, int result);

}  // namespace store
