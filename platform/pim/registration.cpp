// The entries of the registry by which COM finds Pocket Outlook.
#include <pimstore.h>

#include <string>

namespace {

constexpr wchar_t kName[] = L"Pocket Outlook";
constexpr wchar_t kThreading[] = L"Both";  // programs for the device begin with CoInitializeEx(nullptr, 0)

std::wstring ClassKey() {
    wchar_t id[40] = L"";
    StringFromGUID2(CLSID_Application, id, 40);
    return std::wstring(L"CLSID\\") + id;
}

std::wstring LibraryPath() {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<const wchar_t*>(&LibraryPath), &module);
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

bool Holds(HKEY root, const std::wstring& key, const wchar_t* name, const std::wstring& wanted) {
    std::wstring text(wanted.size() + 1, L'\0');
    DWORD size = static_cast<DWORD>(text.size() * sizeof(wchar_t));
    return RegGetValueW(root, key.c_str(), name, RRF_RT_REG_SZ, nullptr, text.data(), &size) == ERROR_SUCCESS &&
           text.c_str() == wanted;
}

LSTATUS Put(HKEY root, const std::wstring& key, const wchar_t* name, const std::wstring& text) {
    if (Holds(root, key, name, text)) return ERROR_SUCCESS;
    return RegSetKeyValueW(root, key.c_str(), name, REG_SZ, text.c_str(),
                           static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
}

LSTATUS Register(HKEY root, const std::wstring& classes, const std::wstring& library) {
    const std::wstring key = classes + ClassKey();
    const std::wstring server = key + L"\\InprocServer32";
    LSTATUS result = Put(root, key, nullptr, kName);
    if (result == ERROR_SUCCESS) result = Put(root, server, nullptr, library);
    if (result == ERROR_SUCCESS) result = Put(root, server, L"ThreadingModel", kThreading);
    return result;
}

constexpr wchar_t kUserClasses[] = L"Software\\Classes\\";

// Whether COM, which looks below HKEY_CLASSES_ROOT, finds this library there.
bool IsFound(const std::wstring& library) {
    return Holds(HKEY_CLASSES_ROOT, ClassKey() + L"\\InprocServer32", nullptr, library);
}

}  // namespace

HRESULT WINAPI PimRegisterServer() try {
    const std::wstring library = LibraryPath();
    LSTATUS result = Register(HKEY_CURRENT_USER, kUserClasses, library);
    // Windows shows the user's classes below HKEY_CLASSES_ROOT. Older versions of Wine do not, and look for the classes
    // of all users alone, which a prefix has one of.
    if (!IsFound(library)) result = Register(HKEY_CLASSES_ROOT, L"", library);
    return HRESULT_FROM_WIN32(result);
} catch (...) {
    return E_OUTOFMEMORY;
}

HRESULT WINAPI PimUnregisterServer() try {
    const std::wstring key = ClassKey();
    LSTATUS result = RegDeleteTreeW(HKEY_CURRENT_USER, (kUserClasses + key).c_str());
    if (result == ERROR_FILE_NOT_FOUND) result = ERROR_SUCCESS;
    const LSTATUS other = RegDeleteTreeW(HKEY_CLASSES_ROOT, key.c_str());
    if (other != ERROR_FILE_NOT_FOUND && result == ERROR_SUCCESS) result = other;
    return HRESULT_FROM_WIN32(result);
} catch (...) {
    return E_OUTOFMEMORY;
}

extern "C" __declspec(dllexport) HRESULT WINAPI DllRegisterServer() {
    return PimRegisterServer();
}

extern "C" __declspec(dllexport) HRESULT WINAPI DllUnregisterServer() {
    return PimUnregisterServer();
}
