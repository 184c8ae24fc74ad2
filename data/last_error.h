// Keeps this thread's last error over calls that set their own.
#pragma once

#include <win.h>

class KeepLastError {
public:
    KeepLastError() : code_(GetLastError()) {}
    ~KeepLastError() { SetLastError(code_); }
    KeepLastError(const KeepLastError&) = delete;
    KeepLastError& operator=(const KeepLastError&) = delete;

    DWORD Code() const { return code_; }

private:
    DWORD code_;
};
