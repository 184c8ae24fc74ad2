#include "bench/start_up.h"

#include <win.h>

#include "bench/report.h"

namespace {

constexpr int kStarts = 7;
constexpr DWORD kPatience = 30'000;  // milliseconds

struct Search {
    DWORD process;
    HWND found;
};

BOOL CALLBACK IsItsWindow(HWND window, LPARAM context) {
    auto& search = *reinterpret_cast<Search*>(context);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process != search.process || !IsWindowVisible(window) || GetWindow(window, GW_OWNER)) return TRUE;
    search.found = window;
    return FALSE;
}

std::wstring Beside(const wchar_t* name) {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    if (!name) return path;
    PathRemoveFileSpecW(path);
    return std::wstring(path) + L"\\" + name;
}

}  // namespace

std::wstring JournalProgram() {
    return Beside(L"journal.exe");
}
std::wstring OwnProgram() {
    return Beside(nullptr);
}

double MeasureStart(const std::wstring& program, const std::wstring& arguments) {
    if (GetFileAttributesW(program.c_str()) == INVALID_FILE_ATTRIBUTES) return 0;
    PROCESS_INFORMATION process = {};
    const auto start = [&] {
        std::wstring command = L"\"" + program + L"\" " + arguments;
        STARTUPINFOW info = {};
        info.cb = sizeof info;
        Require(CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &info, &process),
                "starting a program");
        const ULONGLONG end = GetTickCount64() + kPatience;
        Search search = {process.dwProcessId, nullptr};
        while (!search.found && GetTickCount64() < end) {
            EnumWindows(IsItsWindow, reinterpret_cast<LPARAM>(&search));
            if (!search.found) MsgWaitForMultipleObjects(0, nullptr, FALSE, 1, QS_ALLINPUT);
        }
        Require(search.found != nullptr, "seeing the program's window");
        // It answers once it has drawn itself and waits.
        DWORD_PTR answer = 0;
        SendMessageTimeoutW(search.found, WM_NULL, 0, 0, SMTO_NORMAL, kPatience, &answer);
    };
    const auto stop = [&] {
        if (!process.hProcess) return;
        TerminateProcess(process.hProcess, 0);
        WaitForSingleObject(process.hProcess, kPatience);
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
        process = {};
    };
    const double time = Measure(kStarts, start, stop);
    stop();
    return time;
}

int ShowEmptyWindow() {
    WNDCLASSW windowClass = {};
    windowClass.lpfnWndProc = [](HWND window, UINT message, WPARAM wparam, LPARAM lparam) -> LRESULT {
        if (message == WM_DESTROY) PostQuitMessage(0);
        return DefWindowProcW(window, message, wparam, lparam);
    };
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = L"EmptyWindow";
    windowClass.hbrBackground = GetSysColorBrush(COLOR_WINDOW);
    RegisterClassW(&windowClass);
    CreateWindowW(L"EmptyWindow", L"Empty", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 100, 100, 240, 320, nullptr, nullptr,
                  windowClass.hInstance, nullptr);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0)
        DispatchMessageW(&message);
    return 0;
}
