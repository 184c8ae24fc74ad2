// The places where a test may let the store fail. fault_none.cpp, in the release, answers "never"; the checked build
// links fault_injection.cpp and fault_vfs.cpp in its stead.
#pragma once

#include <win.h>

namespace store {

// The error that this call of a Ce* function is to fail with, 0 for none.
DWORD TakeCallFault(const char* function);

// The name of the SQLite file layer the store uses; null for the usual one.
const char* StoreVfs();

}  // namespace store
