#include "tests/support/temp_folder.h"

#include <win.h>

#include <atomic>
#include <system_error>

namespace {
std::atomic<int> made{0};
}

TempFolder::TempFolder() {
    wchar_t base[MAX_PATH + 1] = {};
    GetTempPathW(MAX_PATH + 1, base);
    path_ = std::filesystem::path(base) /
            (L"journal-test-" + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(made++));
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);  // of a test that crashed, in a process of the same number
    std::filesystem::create_directories(path_);
}

TempFolder::~TempFolder() {
    std::error_code ignored;  // a file still open elsewhere must not end the run
    std::filesystem::remove_all(path_, ignored);
}
