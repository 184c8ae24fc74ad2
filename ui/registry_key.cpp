#include "ui/registry_key.h"

#include <cstring>
#include <cwchar>

namespace {

// The system's words for an error code, without the line break they end in; its number when the system has none.
std::wstring ErrorText(LSTATUS error) {
    wchar_t* words = nullptr;
    DWORD length =
        FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                       nullptr, static_cast<DWORD>(error), 0, reinterpret_cast<LPWSTR>(&words), 0, nullptr);
    if (length == 0) return std::to_wstring(error);
    while (length > 0 && (words[length - 1] == L'\n' || words[length - 1] == L'\r'))
        --length;
    const std::wstring text(words, length);
    LocalFree(words);
    return text;
}

void ShowError(LSTATUS error) {
    MessageBoxW(GetActiveWindow(), ErrorText(error).c_str(), L"Error", MB_OK | MB_ICONINFORMATION);
}

// Shows what went wrong, if anything did. Answers whether all was well.
bool Check(LSTATUS result) {
    if (result != ERROR_SUCCESS) ShowError(result);
    return result == ERROR_SUCCESS;
}

bool SameName(const wchar_t* one, const std::wstring& other) {
    return CompareStringOrdinal(one, -1, other.c_str(), -1, TRUE) == CSTR_EQUAL;
}

// A key opened for one operation: closed at its end, unless it is the application's own, which is only borrowed.
class OpenedKey {
public:
    OpenedKey() = default;
    OpenedKey(HKEY key, bool owned) : key_(key), owned_(owned) {}
    OpenedKey(const OpenedKey&) = delete;
    OpenedKey& operator=(const OpenedKey&) = delete;
    ~OpenedKey() {
        if (owned_) RegCloseKey(key_);
    }

    explicit operator bool() const { return key_ != nullptr; }
    HKEY get() const { return key_; }

private:
    HKEY key_ = nullptr;
    bool owned_ = false;
};

// The subkey of that name in whatever case; none when there is none, or when it cannot be opened, which is shown.
OpenedKey OpenForReading(HKEY parent, const std::wstring& subkey) {
    if (!parent || subkey.empty()) return {parent, false};
    for (DWORD index = 0;; ++index) {
        wchar_t name[RegistryKey::kMaxName + 1];
        DWORD length = RegistryKey::kMaxName + 1;
        const LSTATUS result = RegEnumKeyExW(parent, index, name, &length, nullptr, nullptr, nullptr, nullptr);
        if (result == ERROR_NO_MORE_ITEMS) return {};
        if (result == ERROR_MORE_DATA) continue;  // longer than any name of ours
        if (!Check(result)) return {};
        if (!SameName(name, subkey)) continue;
        HKEY key = nullptr;
        if (!Check(RegOpenKeyExW(parent, name, 0, KEY_ALL_ACCESS, &key))) return {};
        return {key, true};
    }
}

// The subkey of that name, made when absent; none when that fails, which is shown.
OpenedKey OpenForWriting(HKEY parent, const std::wstring& subkey) {
    if (!parent) {
        ShowError(ERROR_INVALID_HANDLE);
        return {};
    }
    if (subkey.empty()) return {parent, false};
    HKEY key = nullptr;
    if (!Check(RegCreateKeyExW(parent, subkey.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr))) {
        return {};
    }
    return {key, true};
}

// Reads a value of that type into `data`; `size` is the room there in bytes, and then the bytes read. False when the
// value is missing or of another type, however long, or cannot be read, which is shown.
bool ReadValue(HKEY key, const std::wstring& name, DWORD wantedType, void* data, DWORD& size) {
    DWORD type = 0;
    const LSTATUS result = RegQueryValueExW(key, name.c_str(), nullptr, &type, static_cast<BYTE*>(data), &size);
    if (result == ERROR_FILE_NOT_FOUND) return false;
    if (result == ERROR_MORE_DATA && type != wantedType) return false;
    return Check(result) && type == wantedType;
}

bool WriteValue(HKEY key, const std::wstring& name, DWORD type, const void* data, size_t size) {
    return Check(RegSetValueExW(key, name.c_str(), 0, type, static_cast<const BYTE*>(data), static_cast<DWORD>(size)));
}

}  // namespace

RegistryKey::RegistryKey(const wchar_t* path) : path_(new wchar_t[std::wcslen(path) + 1]) {
    std::wcscpy(path_.get(), path);
    const LSTATUS result =
        RegCreateKeyExW(HKEY_CURRENT_USER, path_.get(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key_, nullptr);
    if (!Check(result)) key_ = nullptr;
}

RegistryKey::~RegistryKey() {
    if (key_) RegCloseKey(key_);
}

int32_t RegistryKey::ReadInt(const std::wstring& subkey, const std::wstring& name, int32_t fallback) const {
    const OpenedKey key = OpenForReading(key_, subkey);
    int32_t value = 0;
    DWORD size = sizeof(value);
    if (!key || !ReadValue(key.get(), name, REG_DWORD, &value, size) || size != sizeof(value)) return fallback;
    return value;
}

bool RegistryKey::ReadString(const std::wstring& subkey, const std::wstring& name, const std::wstring& fallback,
                             std::wstring& text) const {
    const OpenedKey key = OpenForReading(key_, subkey);
    wchar_t buffer[kMaxText + 1] = {};  // one more than is read: a value may be stored without its NUL
    DWORD size = kMaxText * sizeof(wchar_t);
    if (!key || !ReadValue(key.get(), name, REG_SZ, buffer, size)) {
        text = fallback;
        return false;
    }
    buffer[size / sizeof(wchar_t)] = L'\0';
    text = buffer;
    return true;
}

bool RegistryKey::HasValue(const std::wstring& subkey, const std::wstring& name) const {
    const OpenedKey key = OpenForReading(key_, subkey);
    if (!key) return false;
    const LSTATUS result = RegQueryValueExW(key.get(), name.c_str(), nullptr, nullptr, nullptr, nullptr);
    return result != ERROR_FILE_NOT_FOUND && Check(result);
}

bool RegistryKey::WriteString(const std::wstring& subkey, const std::wstring& name, const std::wstring& text) {
    const OpenedKey key = OpenForWriting(key_, subkey);
    return key && WriteValue(key.get(), name, REG_SZ, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
}

bool RegistryKey::WriteInt(const std::wstring& subkey, const std::wstring& name, int32_t value) {
    if (const OpenedKey key = OpenForWriting(key_, subkey)) {
        WriteValue(key.get(), name, REG_DWORD, &value, sizeof(value));
    }
    return true;
}

bool RegistryKey::DeleteValue(const std::wstring& subkey, const std::wstring& name) {
    if (subkey.empty()) return true;
    const OpenedKey key = OpenForReading(key_, subkey);
    return !key || Check(RegDeleteValueW(key.get(), name.c_str()));
}

bool RegistryKey::DeleteKey(const std::wstring& name) {
    if (name.empty()) return false;  // the system would delete the key itself
    if (!key_) return Check(ERROR_INVALID_HANDLE);
    return Check(RegDeleteKeyW(key_, name.c_str()));
}

int RegistryKey::FindIndexedString(const std::wstring& subkey, const std::wstring& prefix, const std::wstring& text,
                                   int count) const {
    for (int index = 0; index < count; ++index) {
        std::wstring stored;
        ReadString(subkey, prefix + std::to_wstring(index), L"", stored);
        if (stored.empty()) return 0;
        if (CompareStringW(LOCALE_USER_DEFAULT, 0, stored.c_str(), -1, text.c_str(), -1) == CSTR_EQUAL) {
            return index + 1;
        }
    }
    return 0;
}
