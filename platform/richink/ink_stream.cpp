#include "platform/richink/ink_stream.h"

#include <algorithm>
#include <new>

namespace {

constexpr size_t kLargest = 64 * 1024 * 1024;
constexpr LONG kPiece = 4096;

DWORD CALLBACK Give(DWORD_PTR cookie, LPBYTE buffer, LONG wanted, LONG* given) {
    auto& rest = *reinterpret_cast<std::string_view*>(cookie);
    *given = static_cast<LONG>(std::min<size_t>(wanted, rest.size()));
    std::copy_n(rest.data(), *given, buffer);
    rest.remove_prefix(*given);
    return 0;
}

DWORD CALLBACK Take(DWORD_PTR cookie, LPBYTE buffer, LONG offered, LONG* taken) {
    try {
        reinterpret_cast<std::string*>(cookie)->append(reinterpret_cast<const char*>(buffer), offered);
    } catch (const std::bad_alloc&) {
        *taken = 0;
        return ERROR_NOT_ENOUGH_MEMORY;
    }
    *taken = offered;
    return 0;
}

DWORD Run(WNDPROC richEdit, HWND control, UINT message, UINT format, void* cookie, EDITSTREAMCALLBACK callback) {
    EDITSTREAM stream{};
    stream.dwCookie = reinterpret_cast<DWORD_PTR>(cookie);
    stream.pfnCallback = callback;
    CallWindowProcW(richEdit, control, message, format, reinterpret_cast<LPARAM>(&stream));
    return stream.dwError;
}

}  // namespace

DWORD ReadAll(const EDITSTREAM& stream, std::string* bytes) {
    BYTE piece[kPiece];
    for (;;) {
        LONG given = 0;
        const DWORD error = stream.pfnCallback(stream.dwCookie, piece, kPiece, &given);
        if (error) return error;
        if (given == 0) return 0;
        if (given < 0 || given > kPiece) return ERROR_INVALID_DATA;
        if (bytes->size() + given > kLargest) return ERROR_FILE_TOO_LARGE;
        bytes->append(reinterpret_cast<const char*>(piece), given);
    }
}

DWORD WriteAll(const EDITSTREAM& stream, std::string_view bytes) {
    BYTE piece[kPiece];  // the callback may write into its buffer
    while (!bytes.empty()) {
        const LONG offered = static_cast<LONG>(std::min<size_t>(kPiece, bytes.size()));
        std::copy_n(bytes.data(), offered, piece);
        LONG taken = 0;
        const DWORD error = stream.pfnCallback(stream.dwCookie, piece, offered, &taken);
        if (error) return error;
        if (taken <= 0 || taken > offered) return ERROR_WRITE_FAULT;
        bytes.remove_prefix(taken);
    }
    return 0;
}

DWORD LoadInto(WNDPROC richEdit, HWND control, UINT format, const std::string& bytes) {
    std::string_view rest = bytes;
    return Run(richEdit, control, EM_STREAMIN, format, &rest, Give);
}

DWORD SaveFrom(WNDPROC richEdit, HWND control, UINT format, std::string* bytes) {
    return Run(richEdit, control, EM_STREAMOUT, format, bytes, Take);
}
