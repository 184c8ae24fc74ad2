// A variable of the environment for the time of a test.
#pragma once

#include <win.h>

#include <string>

class Variable {
public:
    // Null takes the variable away.
    Variable(const wchar_t* name, const wchar_t* value) : name_(name) {
        wchar_t before[256] = {};
        was_ = GetEnvironmentVariableW(name, before, ARRAYSIZE(before)) != 0;
        before_ = before;
        SetEnvironmentVariableW(name, value);
    }
    ~Variable() { SetEnvironmentVariableW(name_, was_ ? before_.c_str() : nullptr); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    const wchar_t* name_;
    bool was_ = false;
    std::wstring before_;
};
