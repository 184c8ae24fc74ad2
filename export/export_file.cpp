#include "export/export_file.h"

#include <algorithm>

ExportFile::~ExportFile() {
    Close();
}

bool ExportFile::Create(const wchar_t* path, DWORD access, DWORD share, DWORD creation, DWORD attributes) {
    if (handle_ != nullptr) return false;
    // What CreateFileW answers when it fails is no null handle. It is kept and used like any other, in vain: that an
    // export ends with its count, whatever became of the file, is meant so.
    handle_ = CreateFileW(path, access, share, nullptr, creation, attributes, nullptr);
    failed_ = handle_ == INVALID_HANDLE_VALUE;
    return handle_ != nullptr;
}

void ExportFile::Write(std::string_view bytes) {
    constexpr size_t kMost = 1u << 30;  // a single write counts in 32 bits
    while (!bytes.empty()) {
        DWORD written = 0;
        const DWORD wanted = static_cast<DWORD>(std::min(bytes.size(), kMost));
        if (!WriteFile(handle_, bytes.data(), wanted, &written, nullptr) || written == 0) {
            failed_ = true;
            break;
        }
        bytes.remove_prefix(written);
    }
    if (!FlushFileBuffers(handle_)) failed_ = true;
    ++flushes_;
}

void ExportFile::SetEnd() {
    if (!SetEndOfFile(handle_)) failed_ = true;
}

void ExportFile::Close() {
    if (handle_ != nullptr) CloseHandle(handle_);
    handle_ = nullptr;
}
