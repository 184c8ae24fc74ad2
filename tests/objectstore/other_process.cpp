#include "tests/objectstore/other_process.h"

#include <gtest/gtest.h>

namespace {

std::wstring HelperPath() {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    PathRemoveFileSpecW(path);
    return std::wstring(path) + L"\\objectstore_helper.exe";
}

}  // namespace

OtherProcess::OtherProcess() {
    SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
    HANDLE itsInput = nullptr;
    HANDLE itsOutput = nullptr;
    CreatePipe(&itsInput, &input_, &inherited, 0);
    CreatePipe(&output_, &itsOutput, &inherited, 0);
    SetHandleInformation(input_, HANDLE_FLAG_INHERIT, 0);
    SetHandleInformation(output_, HANDLE_FLAG_INHERIT, 0);
    STARTUPINFOW start = {};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = itsInput;
    start.hStdOutput = itsOutput;
    start.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    PROCESS_INFORMATION process = {};
    std::wstring command = L"\"" + HelperPath() + L"\"";
    const BOOL started =
        CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start, &process);
    EXPECT_TRUE(started) << "error " << GetLastError();
    CloseHandle(itsInput);
    CloseHandle(itsOutput);
    if (!started) return;
    process_ = process.hProcess;
    id_ = process.dwProcessId;
    CloseHandle(process.hThread);
}

OtherProcess::~OtherProcess() {
    Kill();
    CloseHandle(input_);
    CloseHandle(output_);
    if (process_) CloseHandle(process_);
}

void OtherProcess::Send(const std::string& line) {
    const std::string text = line + "\n";
    DWORD written = 0;
    EXPECT_TRUE(WriteFile(input_, text.data(), static_cast<DWORD>(text.size()), &written, nullptr)) << line;
}

std::optional<std::string> OtherProcess::ReadLine() {
    for (;;) {
        const size_t end = pending_.find('\n');
        if (end != std::string::npos) {
            std::string line = pending_.substr(0, end);
            pending_.erase(0, end + 1);
            if (!line.empty() && line.back() == '\r') line.pop_back();
            return line;
        }
        char piece[4096];
        DWORD got = 0;
        if (!ReadFile(output_, piece, sizeof piece, &got, nullptr) || got == 0) return std::nullopt;
        pending_.append(piece, got);
    }
}

std::string OtherProcess::Do(const std::string& line) {
    Send(line);
    return ReadLine().value_or("gone");
}

void OtherProcess::Kill() {
    if (process_) TerminateProcess(process_, 1);
    WaitUntilGone();
}

void OtherProcess::Quit() {
    Send("quit");
    WaitUntilGone();
}

void OtherProcess::WaitUntilGone() {
    if (!process_) return;
    EXPECT_EQ(WaitForSingleObject(process_, 20'000), WAIT_OBJECT_0);
}
