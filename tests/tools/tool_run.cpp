#include "tests/tools/tool_run.h"

#include <gtest/gtest.h>
#include <win.h>

#include <filesystem>
#include <sstream>
#include <thread>

namespace {

constexpr DWORD kLongestRun = 55'000;  // milliseconds

// One end is ours, the other the tool's.
struct Pipe {
    explicit Pipe(bool weWrite = false) {
        SECURITY_ATTRIBUTES inheritable{sizeof(inheritable), nullptr, TRUE};
        EXPECT_TRUE(CreatePipe(&read, &write, &inheritable, 0));
        SetHandleInformation(weWrite ? write : read, HANDLE_FLAG_INHERIT, 0);
    }
    ~Pipe() {
        CloseReadEnd();
        CloseWriteEnd();
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    void CloseReadEnd() {
        if (read) CloseHandle(read);
        read = nullptr;
    }
    void CloseWriteEnd() {
        if (write) CloseHandle(write);
        write = nullptr;
    }
    void ReadAll(std::string* text) const {
        char buffer[65536];
        DWORD count = 0;
        while (ReadFile(read, buffer, sizeof(buffer), &count, nullptr) && count)
            text->append(buffer, count);
    }
    void WriteAll(const std::string& text) {
        DWORD count = 0;
        for (size_t at = 0; at < text.size(); at += count)
            if (!WriteFile(write, text.data() + at, static_cast<DWORD>(text.size() - at), &count, nullptr)) break;
        CloseWriteEnd();
    }

    HANDLE read = nullptr;
    HANDLE write = nullptr;
};

std::wstring ToolPath() {
    wchar_t path[MAX_PATH];
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return (std::filesystem::path(path).parent_path() / L"journal-tool.exe").wstring();
}

}  // namespace

std::vector<std::string> ToolRun::Lines() const {
    std::vector<std::string> lines;
    std::istringstream stream(output);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

ToolRun RunTool(const std::vector<std::wstring>& arguments, const std::string& input) {
    ToolRun run;
    std::wstring command = L"\"" + ToolPath() + L"\"";
    for (const std::wstring& argument : arguments)
        command += L" \"" + argument + L"\"";

    Pipe given(true), output, complaints;
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = given.read;
    startup.hStdOutput = output.write;
    startup.hStdError = complaints.write;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, CREATE_NO_WINDOW, nullptr, nullptr, &startup,
                        &process)) {
        ADD_FAILURE() << "the tool does not start, error " << GetLastError();
        return run;
    }
    CloseHandle(process.hThread);
    given.CloseReadEnd();
    output.CloseWriteEnd();
    complaints.CloseWriteEnd();
    std::thread writeInput([&] { given.WriteAll(input); });
    std::thread readOutput([&] { output.ReadAll(&run.output); });
    std::thread readComplaints([&] { complaints.ReadAll(&run.complaints); });
    DWORD code = static_cast<DWORD>(-1);
    if (WaitForSingleObject(process.hProcess, kLongestRun) == WAIT_OBJECT_0) {
        GetExitCodeProcess(process.hProcess, &code);
    } else {
        ADD_FAILURE() << "the tool does not end";
        TerminateProcess(process.hProcess, code);
    }
    writeInput.join();
    readOutput.join();
    readComplaints.join();
    CloseHandle(process.hProcess);
    run.exitCode = static_cast<int>(code);
    return run;
}
