#include "lock/password_lock.h"

#include "lock/pin_pad.h"
#include "res/ids.h"
#include "ui/application.h"
#include "ui/resource_text.h"

namespace {

constexpr wchar_t kActive[] = L"pwActive";
constexpr wchar_t kPassword[] = L"vacc";

bool IsSame(const std::wstring& one, const std::wstring& other) {
    return _wcsicmp(one.c_str(), other.c_str()) == 0;
}

}  // namespace

PasswordLock::PasswordLock(Window& owner) : subkey_(LoadText(IDS_OPTIONS)), owner_(owner) {}

bool PasswordLock::IsActive() const {
    return Application::Current()->ReadInt(subkey_, kActive, 0) != 0;
}

bool PasswordLock::Check() {
    if (!Ask(PinPad::kUnlock)) return false;
    if (!first_.empty() && IsSame(first_, Stored())) return true;
    // Without an owner, because at start-up there is no window to own it; modal to all of the program's all the same,
    // so that nothing behind it can be used.
    ::MessageBoxW(nullptr, LoadText(IDS_LOCK_DENIED).c_str(), LoadText(IDS_APP_TITLE).c_str(),
                  MB_OK | MB_ICONEXCLAMATION | MB_TASKMODAL);
    return false;
}

bool PasswordLock::Set() {
    first_.clear();
    second_.clear();
    if (!Ask(PinPad::kNew)) return false;
    // Digits that could not be read back would lock their owner out for good.
    if (first_.size() >= RegistryKey::kMaxText) return Refuse(IDS_LOCK_TOO_LONG);
    if (!first_.empty() && !Ask(PinPad::kAgain)) return false;
    if (first_.empty() || !IsSame(first_, second_)) return Refuse(IDS_LOCK_INCONSISTENT);
    if (!Activate()) return Refuse(IDS_LOCK_NOT_STORED);
    owner_.MessageBox(LoadText(IDS_LOCK_ACTIVE).c_str(), LoadText(IDS_LOCK_TITLE).c_str(), MB_OK | MB_ICONINFORMATION);
    return true;
}

// Tells why no lock was turned on; answers false, as Set then does.
bool PasswordLock::Refuse(unsigned int reason) const {
    owner_.MessageBox(LoadText(reason).c_str(), LoadText(IDS_LOCK_NOT_SET).c_str(), MB_OK | MB_ICONEXCLAMATION);
    return false;
}

void PasswordLock::Clear() {
    Application::Current()->WriteInt(subkey_, kActive, 0);
    Application::Current()->DeleteValue(subkey_, kPassword);
}

bool PasswordLock::Ask(unsigned short mode) {
    return PinPad::Run(owner_, mode, mode & PinPad::kAgain ? second_ : first_);
}

std::wstring PasswordLock::Stored() const {
    std::wstring password;
    Application::Current()->ReadString(subkey_, kPassword, L"", password);
    return password;
}

// The lock goes on only over a password that is stored: without one nothing would open it.
bool PasswordLock::Activate() {
    RegistryKey& settings = *Application::Current();
    return settings.WriteString(subkey_, kPassword, first_) && settings.WriteInt(subkey_, kActive, 1) && IsActive();
}
