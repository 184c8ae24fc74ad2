// An empty HKEY_CURRENT_USER for the time of a test: the program keeps its fixed path and touches nobody's settings.
#pragma once

#include <win.h>

#include <string>

class PrivateRegistry {
public:
    PrivateRegistry();
    ~PrivateRegistry();
    PrivateRegistry(const PrivateRegistry&) = delete;
    PrivateRegistry& operator=(const PrivateRegistry&) = delete;

private:
    std::wstring path_;
    HKEY key_ = nullptr;
};
