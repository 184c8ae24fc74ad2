// The frame of every Ce* call: one at a time, no exception beyond it, the failure as the thread's last error.
#pragma once

#include <new>

#include "platform/objectstore/fault.h"
#include "platform/objectstore/store.h"
#include "platform/objectstore/store_error.h"

namespace store {

template <class Result, class Work>
Result Call(const char* function, Result failed, Work work) noexcept {
    DWORD error = TakeCallFault(function);
    if (error == 0) {
        try {
            Store& store = Store::Instance();
            const std::lock_guard lock(store.Mutex());
            return work(store);
        } catch (const StoreError& failure) {
            error = failure.code;
        } catch (const std::bad_alloc&) {
            error = ERROR_NOT_ENOUGH_MEMORY;
        } catch (...) {
            error = ERROR_GEN_FAILURE;
        }
    }
    SetLastError(error);
    return failed;
}

}  // namespace store
