#include "tests/support/watchdog.h"

#include <gtest/gtest.h>
#include <win.h>

#include <condition_variable>
#include <cstdio>
#include <mutex>
#include <string>
#include <thread>

namespace {

// What a message box says.
BOOL CALLBACK PrintLabel(HWND window, LPARAM) {
    wchar_t className[100] = {};
    GetClassNameW(window, className, 100);
    wchar_t text[400] = {};
    InternalGetWindowText(window, text, 400);
    if (_wcsicmp(className, L"Static") == 0 && text[0] != L'\0') std::fwprintf(stderr, L"    \"%ls\"\n", text);
    return TRUE;
}

BOOL CALLBACK PrintWindow(HWND window, LPARAM) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process != GetCurrentProcessId() || !IsWindowVisible(window)) return TRUE;
    wchar_t title[200] = {};
    wchar_t className[100] = {};
    InternalGetWindowText(window, title, 200);
    GetClassNameW(window, className, 100);
    std::fwprintf(stderr, L"  window \"%ls\" of class %ls\n", title, className);
    EnumChildWindows(window, PrintLabel, 0);
    return TRUE;
}

class Watchdog : public testing::EmptyTestEventListener {
public:
    explicit Watchdog(unsigned seconds) : seconds_(seconds), thread_([this] { Watch(); }) {}
    ~Watchdog() override {
        {
            std::lock_guard lock(mutex_);
            over_ = true;
        }
        changed_.notify_all();
        thread_.join();
    }

    void OnTestStart(const testing::TestInfo& info) override {
        Arm(std::string(info.test_suite_name()) + "." + info.name());
    }
    void OnTestEnd(const testing::TestInfo&) override { Arm(""); }

private:
    void Arm(const std::string& test) {
        {
            std::lock_guard lock(mutex_);
            test_ = test;
            ++turn_;
        }
        changed_.notify_all();
    }

    void Watch() {
        std::unique_lock lock(mutex_);
        while (!over_) {
            const unsigned turn = turn_;
            const bool moved =
                changed_.wait_for(lock, std::chrono::seconds(seconds_), [&] { return over_ || turn_ != turn; });
            if (moved || test_.empty()) continue;
            std::fprintf(stderr, "%s has hung for %u seconds; this program shows:\n", test_.c_str(), seconds_);
            EnumWindows(PrintWindow, 0);
            std::fflush(stderr);
            TerminateProcess(GetCurrentProcess(), 3);
        }
    }

    const unsigned seconds_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::string test_;
    unsigned turn_ = 0;
    bool over_ = false;
    std::thread thread_;
};

}  // namespace

void InstallWatchdog(unsigned secondsPerTest) {
    testing::UnitTest::GetInstance()->listeners().Append(new Watchdog(secondsPerTest));
}
