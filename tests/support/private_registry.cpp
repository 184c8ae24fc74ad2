#include "tests/support/private_registry.h"

#include <gtest/gtest.h>

namespace {
constexpr wchar_t kRoot[] = L"Software\\Quillon Journal Tests";
}

PrivateRegistry::PrivateRegistry() : path_(std::wstring(kRoot) + L"\\" + std::to_wstring(GetCurrentProcessId())) {
    SHDeleteKeyW(HKEY_CURRENT_USER, path_.c_str());
    const LSTATUS made =
        RegCreateKeyExW(HKEY_CURRENT_USER, path_.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key_, nullptr);
    EXPECT_EQ(made, ERROR_SUCCESS);
    EXPECT_EQ(RegOverridePredefKey(HKEY_CURRENT_USER, key_), ERROR_SUCCESS);
}

PrivateRegistry::~PrivateRegistry() {
    RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    RegCloseKey(key_);
    SHDeleteKeyW(HKEY_CURRENT_USER, path_.c_str());
}
