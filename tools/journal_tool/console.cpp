#include "tools/journal_tool/console.h"

#include <fcntl.h>
#include <io.h>
#include <win.h>

#include <cstdio>

void PrepareConsole() {
    SetConsoleOutputCP(CP_UTF8);
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
}

void Print(std::wstring_view text) {
    const std::string bytes = ToUtf8(text);
    std::fwrite(bytes.data(), 1, bytes.size(), stdout);
}

void Complain(std::wstring_view text) {
    std::fflush(stdout);  // so that both streams keep their order when they go to one place
    const std::string bytes = "journal-tool: " + ToUtf8(text) + "\n";
    std::fwrite(bytes.data(), 1, bytes.size(), stderr);
    std::fflush(stderr);
}

std::wstring Counted(long long count, const wchar_t* one, const wchar_t* many) {
    return std::to_wstring(count) + L" " + (count == 1 ? one : many);
}

std::string ToUtf8(std::wstring_view text) {
    const int length = static_cast<int>(text.size());
    std::string bytes(
        static_cast<size_t>(WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr)), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(), static_cast<int>(bytes.size()), nullptr,
                        nullptr);
    return bytes;
}

bool FromUtf8(std::string_view bytes, std::wstring* text) {
    text->clear();
    if (bytes.empty()) return true;
    const int length = static_cast<int>(bytes.size());
    const int needed = MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, bytes.data(), length, nullptr, 0);
    if (needed <= 0) return false;
    text->resize(static_cast<size_t>(needed));
    MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, bytes.data(), length, text->data(), needed);
    return true;
}
