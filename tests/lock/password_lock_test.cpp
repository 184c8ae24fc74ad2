// Asking for, setting and clearing the password, and what the settings hold of it.
#include <vector>

#include "tests/lock/lock_fixture.h"
#include "tests/support/replaced_import.h"

namespace {

// The system's words for an error.
std::wstring Words(DWORD error) {
    wchar_t buffer[512] = L"";
    FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error, 0, buffer, 512, nullptr);
    std::wstring words = buffer;
    while (!words.empty() && (words.back() == L'\n' || words.back() == L'\r'))
        words.pop_back();
    return words;
}

const std::wstring kDenied = L"Incorrect Password!\nAccess Denied";
const std::wstring kInconsistent = L"Inconsistently Entered Passwords. Password NOT Active";

// Looks at some windows as soon as a message box is in front.
class BoxWatch {
public:
    explicit BoxWatch(std::vector<HWND> windows) {
        windows_ = std::move(windows);
        boxes_ = usable_ = 0;
        hook_ = SetWindowsHookExW(WH_CBT, OnHook, nullptr, GetCurrentThreadId());
    }
    ~BoxWatch() { UnhookWindowsHookEx(hook_); }
    BoxWatch(const BoxWatch&) = delete;
    BoxWatch& operator=(const BoxWatch&) = delete;

    int Boxes() const { return boxes_; }
    int Usable() const { return usable_; }  // of the windows, while a box was there

private:
    static LRESULT CALLBACK OnHook(int code, WPARAM wparam, LPARAM lparam) {
        wchar_t title[40] = L"";
        GetWindowTextW(reinterpret_cast<HWND>(wparam), title, 40);
        if (code == HCBT_ACTIVATE && lstrcmpW(title, L"Quillon Journal") == 0) {
            ++boxes_;
            for (const HWND window : windows_)
                usable_ += IsWindowEnabled(window) ? 1 : 0;
        }
        return CallNextHookEx(nullptr, code, wparam, lparam);
    }

    static inline std::vector<HWND> windows_;
    static inline int boxes_;
    static inline int usable_;

    HHOOK hook_;
};

class PasswordLockTest : public LockFixture {
protected:
    bool Check() {
        PasswordLock lock(owner_);
        return lock.Check();
    }
    bool Set() {
        PasswordLock lock(owner_);
        return lock.Set();
    }
    bool IsActive() {
        PasswordLock lock(owner_);
        return lock.IsActive();
    }
    void ExpectDenied() { boxes_.Expect(L"Quillon Journal", kDenied); }
    void ExpectNotSet() { boxes_.Expect(L"Password NOT Set", kInconsistent); }
};

// ---- Whether there is one ----

TEST_F(PasswordLockTest, IsOffWithoutSettings) {
    EXPECT_FALSE(IsActive());
}

TEST_F(PasswordLockTest, IsOnWithAnyNumberButZero) {
    application_.WriteInt(L"Options", L"pwActive", 1);
    EXPECT_TRUE(IsActive());
    application_.WriteInt(L"Options", L"pwActive", -7);
    EXPECT_TRUE(IsActive());
    application_.WriteInt(L"Options", L"pwActive", 0);
    EXPECT_FALSE(IsActive());
}

TEST_F(PasswordLockTest, FindsItsSubkeyWhateverItsCase) {
    application_.WriteInt(L"OPTIONS", L"pwActive", 1);
    EXPECT_TRUE(IsActive());
}

TEST_F(PasswordLockTest, ATextInPlaceOfTheNumberReadsAsOff) {
    application_.WriteString(L"Options", L"pwActive", L"1");
    EXPECT_FALSE(IsActive());
}

// ---- Check ----

TEST_F(PasswordLockTest, TheRightDigitsPass) {
    TurnOn(L"1204");
    pads_.Expect([&] {
        EXPECT_EQ(pads_.TextOf(1018), L"Enter Password");
        pads_.Tap(L"1204");
    });
    EXPECT_TRUE(Check());
}

TEST_F(PasswordLockTest, WrongDigitsAreDeniedByABoxWithoutOwner) {
    TurnOn(L"1204");
    pads_.ExpectDigits(L"1205");
    ExpectDenied();
    EXPECT_FALSE(Check());
    ASSERT_EQ(boxes_.Seen().size(), 1u);
    EXPECT_EQ(boxes_.Seen()[0].icon, static_cast<UINT>(MB_ICONEXCLAMATION));
    EXPECT_EQ(boxes_.Seen()[0].buttons, static_cast<UINT>(MB_OK));
    EXPECT_EQ(boxes_.Seen()[0].owner, nullptr);
    EXPECT_TRUE(owner_.IsEnabled());
}

TEST_F(PasswordLockTest, PartOfTheDigitsOrMoreOfThemAreDenied) {
    TurnOn(L"1204");
    for (const wchar_t* digits : {L"120", L"12044", L"204", L"4021"}) {
        pads_.ExpectDigits(digits);
        ExpectDenied();
        EXPECT_FALSE(Check()) << digits;
    }
}

TEST_F(PasswordLockTest, NothingEnteredIsDeniedEvenWithNothingStored) {
    TurnOn(L"");
    pads_.ExpectDigits(L"");
    ExpectDenied();
    EXPECT_FALSE(Check());
}

TEST_F(PasswordLockTest, DigitsThatWereClearedAreDenied) {
    TurnOn(L"12");
    pads_.ExpectDigits(L"12C");
    ExpectDenied();
    EXPECT_FALSE(Check());
}

TEST_F(PasswordLockTest, WithTheStoredPasswordMissingNothingPasses) {
    application_.WriteInt(L"Options", L"pwActive", 1);
    for (const wchar_t* digits : {L"", L"0", L"1204"}) {
        pads_.ExpectDigits(digits);
        ExpectDenied();
        EXPECT_FALSE(Check()) << digits;
    }
}

TEST_F(PasswordLockTest, AStoredPasswordOfAnotherTypeMatchesNothing) {
    application_.WriteInt(L"Options", L"pwActive", 1);
    application_.WriteInt(L"Options", L"vacc", 1204);
    for (const wchar_t* digits : {L"", L"1204"}) {
        pads_.ExpectDigits(digits);
        ExpectDenied();
        EXPECT_FALSE(Check()) << digits;
    }
}

// It is not cut: that would let fewer digits pass than were set.
TEST_F(PasswordLockTest, AStoredPasswordTooLongToReadIsReportedAndMatchesNothing) {
    const std::wstring longest(200, L'1');
    TurnOn(longest.c_str());
    for (const std::wstring& digits : {longest, std::wstring(155, L'1'), std::wstring()}) {
        pads_.ExpectDigits(digits);
        if (!digits.empty()) boxes_.Expect(L"Error", Words(ERROR_MORE_DATA));
        ExpectDenied();
        EXPECT_FALSE(Check());
    }
}

TEST_F(PasswordLockTest, LettersInTheStoredPasswordAreComparedIgnoringCase) {
    TurnOn(L"12ab");
    pads_.ExpectDigits(L"12");
    ExpectDenied();
    EXPECT_FALSE(Check());
}

TEST_F(PasswordLockTest, SaysNothingWhenThePadGoesWithItsOwner) {
    TurnOn(L"12");
    pads_.Expect([&] { owner_.Destroy(); });
    EXPECT_FALSE(Check());
}

// ---- Set ----

TEST_F(PasswordLockTest, TheSameDigitsTwiceTurnItOn) {
    pads_.Expect([&] {
        EXPECT_EQ(pads_.TextOf(1018), L"New Password");
        pads_.Tap(L"0042");
    });
    pads_.Expect([&] {
        EXPECT_EQ(pads_.TextOf(1018), L"Re-Enter Password");
        EXPECT_EQ(pads_.TextOf(1019), L"");
        pads_.Tap(L"0042");
    });
    boxes_.Expect(L"Journal Password", L"Password Active");
    EXPECT_TRUE(Set());
    EXPECT_EQ(Active(), 1);
    EXPECT_EQ(Stored(), L"0042");
    ASSERT_EQ(boxes_.Seen().size(), 1u);
    EXPECT_EQ(boxes_.Seen()[0].icon, static_cast<UINT>(MB_ICONINFORMATION));
    EXPECT_EQ(boxes_.Seen()[0].buttons, static_cast<UINT>(MB_OK));
    EXPECT_EQ(boxes_.Seen()[0].owner, owner_.GetHandle());
}

TEST_F(PasswordLockTest, OtherDigitsTheSecondTimeSetNothing) {
    pads_.ExpectDigits(L"1");
    pads_.ExpectDigits(L"2");
    ExpectNotSet();
    EXPECT_FALSE(Set());
    EXPECT_EQ(Active(), -1);
    EXPECT_EQ(Stored(), L"<none>");
    ASSERT_EQ(boxes_.Seen().size(), 1u);
    EXPECT_EQ(boxes_.Seen()[0].icon, static_cast<UINT>(MB_ICONEXCLAMATION));
    EXPECT_EQ(boxes_.Seen()[0].owner, owner_.GetHandle());
}

TEST_F(PasswordLockTest, NothingTheSecondTimeSetsNothing) {
    pads_.ExpectDigits(L"1");
    pads_.ExpectDigits(L"");
    ExpectNotSet();
    EXPECT_FALSE(Set());
    EXPECT_EQ(Active(), -1);
}

TEST_F(PasswordLockTest, NothingTheFirstTimeEndsWithoutASecondPad) {
    pads_.ExpectDigits(L"");
    ExpectNotSet();
    EXPECT_FALSE(Set());
    EXPECT_EQ(pads_.Seen(), 1);
    EXPECT_EQ(Active(), -1);
    EXPECT_EQ(Stored(), L"<none>");
}

TEST_F(PasswordLockTest, AFailedSetLeavesWhatWasStored) {
    application_.WriteString(L"Options", L"vacc", L"99");
    pads_.ExpectDigits(L"1");
    pads_.ExpectDigits(L"2");
    ExpectNotSet();
    EXPECT_FALSE(Set());
    EXPECT_EQ(Stored(), L"99");
}

TEST_F(PasswordLockTest, TheMostDigitsThatCanBeReadBackOpenIt) {
    const std::wstring most(155, L'3');
    pads_.ExpectDigits(most);
    pads_.ExpectDigits(most);
    boxes_.Expect(L"Journal Password", L"Password Active");
    ASSERT_TRUE(Set());
    pads_.ExpectDigits(most);
    EXPECT_TRUE(Check());
}

TEST_F(PasswordLockTest, MoreDigitsThanCanBeReadBackAreRefused) {
    const std::wstring many(156, L'3');
    pads_.ExpectDigits(many);  // and no second pad: nothing typed there could be right
    boxes_.Expect(L"Password NOT Set", L"A password has at most 155 digits. Password NOT Active");
    EXPECT_FALSE(Set());
    EXPECT_EQ(Active(), -1);
    EXPECT_EQ(Stored(), L"<none>");
}

TEST_F(PasswordLockTest, APasswordThatCannotBeStoredIsToldSo) {
    ReplacedImport noWrite(
        nullptr, "RegSetValueExW",
        +[](HKEY, const wchar_t*, DWORD, DWORD, const BYTE*, DWORD) -> LSTATUS { return ERROR_DISK_FULL; });
    pads_.ExpectDigits(L"12");
    pads_.ExpectDigits(L"12");
    boxes_.Expect(L"Error", MessageBoxes::SystemText(ERROR_DISK_FULL));
    boxes_.Expect(L"Password NOT Set", L"The password could not be stored. Password NOT Active");
    EXPECT_FALSE(Set());
    EXPECT_EQ(Active(), -1);
}

TEST_F(PasswordLockTest, TheDeniedBoxKeepsEveryWindowOfTheProgramDisabled) {
    TurnOn(L"12");
    Window other;
    other.Create(L"STATIC", L"Other", WS_OVERLAPPEDWINDOW, 0, 0, 100, 100, nullptr, nullptr, GetModuleHandleW(nullptr),
                 nullptr);
    other.Show();
    pads_.ExpectDigits(L"3");
    ExpectDenied();
    {
        const BoxWatch watch({owner_.GetHandle(), other.GetHandle()});
        EXPECT_FALSE(Check());
        EXPECT_EQ(watch.Boxes(), 1);
        EXPECT_EQ(watch.Usable(), 0);
    }
    EXPECT_TRUE(owner_.IsEnabled());
    EXPECT_TRUE(other.IsEnabled());
    other.Destroy();
}

// ---- Clear ----

TEST_F(PasswordLockTest, ClearTurnsItOffAndForgetsTheDigits) {
    TurnOn(L"12");
    PasswordLock lock(owner_);
    lock.Clear();
    EXPECT_EQ(Active(), 0);
    EXPECT_FALSE(application_.HasValue(L"Options", L"vacc"));
    EXPECT_FALSE(lock.IsActive());
}

TEST_F(PasswordLockTest, APasswordIsChangedByClearingAndSetting) {
    TurnOn(L"12");
    PasswordLock lock(owner_);
    lock.Clear();
    pads_.ExpectDigits(L"34");
    pads_.ExpectDigits(L"34");
    boxes_.Expect(L"Journal Password", L"Password Active");
    EXPECT_TRUE(lock.Set());
    pads_.ExpectDigits(L"12");
    ExpectDenied();
    EXPECT_FALSE(lock.Check());
    pads_.ExpectDigits(L"34");
    EXPECT_TRUE(lock.Check());
}

}  // namespace
