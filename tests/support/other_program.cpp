#include "tests/support/other_program.h"

#include <gtest/gtest.h>

DWORD RunOtherProgram(const std::wstring& program, const std::wstring& words) {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    const std::wstring folder(path, std::wstring(path).find_last_of(L'\\') + 1);
    std::wstring line = L"\"" + folder + program + L"\" " + words;
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process)) {
        ADD_FAILURE() << "error " << GetLastError();
        return 0;
    }
    EXPECT_EQ(WaitForSingleObject(process.hProcess, 30'000), WAIT_OBJECT_0);
    DWORD result = 0;
    GetExitCodeProcess(process.hProcess, &result);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return result;
}
