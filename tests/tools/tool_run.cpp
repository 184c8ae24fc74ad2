#include "tests/tools/tool_run.h"

#include <gtest/gtest.h>
#include <win.h>

#include <filesystem>
#include <sstream>
#include <thread>

namespace {

constexpr DWORD kLongestRun = 55'000;  // milliseconds

// One end is ours to read, the other the tool's to write.
struct Pipe {
    Pipe() {
        SECURITY_ATTRIBUTES inheritable{sizeof(inheritable), nullptr, TRUE};
        EXPECT_TRUE(CreatePipe(&read, &write, &inheritable, 0));
        SetHandleInformation(read, HANDLE_FLAG_INHERIT, 0);
    }
    ~Pipe() {
        CloseHandle(read);
        CloseWriteEnd();
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

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

ToolRun RunTool(const std::vector<std::wstring>& arguments) {
    ToolRun run;
    std::wstring command = L"\"" + ToolPath() + L"\"";
    for (const std::wstring& argument : arguments)
        command += L" \"" + argument + L"\"";

    Pipe output, complaints;
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = output.write;
    startup.hStdError = complaints.write;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, CREATE_NO_WINDOW, nullptr, nullptr, &startup,
                        &process)) {
        ADD_FAILURE() << "the tool does not start, error " << GetLastError();
        return run;
    }
    CloseHandle(process.hThread);
    output.CloseWriteEnd();
    complaints.CloseWriteEnd();
    std::thread readOutput([&] { output.ReadAll(&run.output); });
    std::thread readComplaints([&] { complaints.ReadAll(&run.complaints); });
    DWORD code = static_cast<DWORD>(-1);
    if (WaitForSingleObject(process.hProcess, kLongestRun) == WAIT_OBJECT_0) {
        GetExitCodeProcess(process.hProcess, &code);
    } else {
        ADD_FAILURE() << "the tool does not end";
        TerminateProcess(process.hProcess, code);
    }
    readOutput.join();
    readComplaints.join();
    CloseHandle(process.hProcess);
    run.exitCode = static_cast<int>(code);
    return run;
}
