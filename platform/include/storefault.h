// Failures on demand, for tests: only the checked build's cehost.dll has these.
#pragma once

#include <windbase.h>

// In place of an error, and of what the disk does: the process ends there, as if somebody had killed it.
constexpr DWORD kCeKill = 0xFFFFFFFF;

// The nth next call (1: the next) of the Ce* function of that name fails with that last error and does nothing.
// Several may be armed, also for one function. A restore's steps and a commit's have names as well.
CEHOST_API void CeFailCall(LPCSTR function, DWORD nth, DWORD error);

// The nth next time (1: the next) that the store comes to the step of that name, it calls this first.
CEHOST_API void CeAtStep(LPCSTR step, DWORD nth, void(CALLBACK* call)(void* context), void* context);

// What the disk does to the store.
enum CeDiskFault : DWORD {
    kCeDiskFull,        // the write is refused: no room
    kCeDiskWriteError,  // the write or flush fails
    kCeDiskKill         // the process is killed before the write or flush
};

// The nth next write, flush or growth of the store's files (1: the next) fails, and every one after it does too.
CEHOST_API void CeFailDisk(DWORD nth, CeDiskFault fault);

// How many of them there were since the last CeFailDisk or CeClearFaults.
CEHOST_API DWORD CeCountDiskWork(void);

// Disarms everything.
CEHOST_API void CeClearFaults(void);
