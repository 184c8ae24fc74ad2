// Failures that a test arms; see storefault.h.
#include <sqlite3.h>
#include <storefault.h>

#include <mutex>
#include <string>
#include <vector>

#include "platform/objectstore/fault.h"
#include "platform/objectstore/fault_vfs.h"

namespace {

struct CallFault {
    std::string function;
    DWORD left;  // calls until it strikes, that one included
    DWORD error;
    void(CALLBACK* call)(void*) = nullptr;  // in place of the error
    void* context = nullptr;
};

std::mutex faultLock;
std::vector<CallFault> callFaults;
DWORD diskWork = 0;
DWORD diskFaultAt = 0;  // 0: never
CeDiskFault diskFault = kCeDiskFull;

}  // namespace

namespace store {

DWORD TakeCallFault(const char* function) {
    std::unique_lock lock(faultLock);
    DWORD error = 0;
    std::vector<CallFault> calls;
    for (auto fault = callFaults.begin(); fault != callFaults.end();) {
        if (fault->function == function && --fault->left == 0) {
            error = fault->error;
            if (fault->call) calls.push_back(*fault);
            fault = callFaults.erase(fault);
        } else {
            ++fault;
        }
    }
    lock.unlock();
    for (const CallFault& fault : calls)
        fault.call(fault.context);
    if (error == kCeKill) TerminateProcess(GetCurrentProcess(), 1);
    return error;
}

int TakeDiskFault(int writeError) {
    const std::lock_guard lock(faultLock);
    ++diskWork;
    if (diskFaultAt == 0 || diskWork < diskFaultAt) return SQLITE_OK;
    if (diskFault == kCeDiskKill) TerminateProcess(GetCurrentProcess(), 1);
    return diskFault == kCeDiskFull ? SQLITE_FULL : writeError;
}

const char* StoreVfs() {
    return FaultVfs();
}

}  // namespace store

void CeFailCall(LPCSTR function, DWORD nth, DWORD error) {
    const std::lock_guard lock(faultLock);
    callFaults.push_back({function, nth, error});
}

void CeAtStep(LPCSTR step, DWORD nth, void(CALLBACK* call)(void* context), void* context) {
    const std::lock_guard lock(faultLock);
    callFaults.push_back({step, nth, 0, call, context});
}

void CeFailDisk(DWORD nth, CeDiskFault fault) {
    const std::lock_guard lock(faultLock);
    diskWork = 0;
    diskFaultAt = nth;
    diskFault = fault;
}

DWORD CeCountDiskWork() {
    const std::lock_guard lock(faultLock);
    return diskWork;
}

void CeClearFaults() {
    const std::lock_guard lock(faultLock);
    callFaults.clear();
    diskWork = 0;
    diskFaultAt = 0;
}
