#include "tools/journal_tool/store_access.h"

#include <filesystem>

#include "data/last_error.h"
#include "tools/journal_tool/console.h"

namespace {

constexpr wchar_t kStoreVariable[] = L"CE_OBJECT_STORE";

}  // namespace

std::wstring ErrorText(DWORD error) {
    switch (error) {
        case ERROR_DISK_FULL: return L"error 112: the disk is full, or the journal holds its 65535 entries";
        case ERROR_FILE_CORRUPT: return L"error 1392: the file is damaged, or no store";
        case ERROR_WRITE_PROTECT: return L"error 19: the file is read-only";
        case ERROR_LOCK_VIOLATION: return L"error 33: another program is writing to the store";
        default: break;
    }
    wchar_t words[256];
    DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error, 0, words,
                                  static_cast<DWORD>(std::size(words)), nullptr);
    while (length && (words[length - 1] == L'\n' || words[length - 1] == L'\r' || words[length - 1] == L'.'))
        --length;
    return L"error " + std::to_wstring(error) + (length ? L": " + std::wstring(words, length) : L"");
}

void ComplainAboutStore(const wchar_t* what) {
    const KeepLastError error;
    Complain(std::wstring(what) + L" (" + ErrorText(error.Code()) + L")");
}

void UseStore(const std::wstring& file) {
    std::error_code error;
    SetEnvironmentVariableW(kStoreVariable, std::filesystem::absolute(file, error).c_str());
}

bool StoreIsThere() {
    std::wstring store(GetEnvironmentVariableW(kStoreVariable, nullptr, 0), L'\0');
    store.resize(GetEnvironmentVariableW(kStoreVariable, store.data(), static_cast<DWORD>(store.size())));
    std::error_code error;
    if (store.empty() || std::filesystem::exists(store, error)) return true;
    Complain(L"there is no store " + store);
    return false;
}

bool OpenOrComplain(ConsoleJournal& journal) {
    if (journal.Open(nullptr)) return true;
    Complain(L"the journal cannot be opened");
    return false;
}

bool OpenOrComplain(ConsoleCategories& categories) {
    if (categories.Open(nullptr)) return true;
    Complain(L"the categories cannot be opened");
    return false;
}
