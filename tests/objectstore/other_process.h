// Another process that uses the test's store, driven by lines of text (see helper_main.cpp).
#pragma once

#include <win.h>

#include <optional>
#include <string>

class OtherProcess {
public:
    OtherProcess();
    ~OtherProcess();  // kills it if it still runs
    OtherProcess(const OtherProcess&) = delete;
    OtherProcess& operator=(const OtherProcess&) = delete;

    // Sends a line and waits for the answer.
    std::string Do(const std::string& line);
    void Send(const std::string& line);
    // The next line it wrote; nothing when it is gone and everything was read.
    std::optional<std::string> ReadLine();

    void Kill();  // TerminateProcess
    void Quit();  // lets it end by itself
    DWORD Id() const { return id_; }

private:
    void WaitUntilGone();

    HANDLE process_ = nullptr;
    HANDLE input_ = nullptr;   // what we write
    HANDLE output_ = nullptr;  // what we read
    DWORD id_ = 0;
    std::string pending_;
};
