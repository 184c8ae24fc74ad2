#include "platform/objectstore/fault.h"

namespace store {

DWORD TakeCallFault(const char*) {
    return 0;
}

const char* StoreVfs() {
    return nullptr;
}

}  // namespace store
