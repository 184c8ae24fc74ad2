// The calendar that a date picker drops down, on real pickers in a window that is seen.
#include "ui/drop_calendar.h"

#include <gtest/gtest.h>

#include "tests/support/pump.h"
#include "ui/date_picker.h"
#include "ui/edit.h"

namespace {

class DropCalendarTest : public testing::Test {
protected:
    DropCalendarTest() {
        INITCOMMONCONTROLSEX classes = {sizeof classes, ICC_DATE_CLASSES};
        InitCommonControlsEx(&classes);
        SHInitExtraControls();
        form_.Create(L"#32770", L"Form", WS_POPUP | WS_VISIBLE | WS_CAPTION, 100, 100, 300, 300, nullptr, nullptr,
                     nullptr, nullptr);
        EXPECT_TRUE(picker_.CreateIn(form_.GetHandle(), 1, WS_VISIBLE | WS_TABSTOP, {10, 10, 150, 34}));
        EXPECT_TRUE(other_.CreateIn(form_.GetHandle(), 2, WS_VISIBLE | WS_TABSTOP, {10, 50, 150, 74}));
        form_.SetForeground();
        PumpOnce();
        EXPECT_TRUE(picker_.SetTime(kDay));
        picker_.SetFocus();
    }
    ~DropCalendarTest() override { form_.Destroy(); }

    HWND Calendar() const { return reinterpret_cast<HWND>(picker_.SendMessage(DTM_GETMONTHCAL)); }
    bool IsOpen() const { return Calendar() && IsWindowVisible(Calendar()); }
    void PressButton() {
        RECT client = {};
        ::GetClientRect(picker_.GetHandle(), &client);
        const LPARAM button = MAKELPARAM(client.right - 4, client.bottom / 2);
        picker_.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, button);
        picker_.SendMessage(WM_LBUTTONUP, 0, button);
    }
    // The window manager may still be giving the keys to the window that stood there before, and that closes a
    // calendar, as it should: then once more.
    void Open() {
        ASSERT_TRUE(PumpUntil([this] {
            if (!IsOpen()) {
                form_.SetForeground();
                PressButton();
            }
            if (IsOpen() && GetFocus() != Calendar()) ::SetFocus(Calendar());
            return IsOpen() && GetFocus() == Calendar();
        })) << "calendar "
            << Calendar() << ", focus " << GetFocus() << ", active " << GetActiveWindow() << ", in front "
            << GetForegroundWindow();
    }
    void ExpectSameDay() const {
        SYSTEMTIME day = {};
        EXPECT_TRUE(picker_.GetTime(&day));
        EXPECT_EQ(day.wYear, kDay.wYear);
        EXPECT_EQ(day.wMonth, kDay.wMonth);
        EXPECT_EQ(day.wDay, kDay.wDay);
    }

    static constexpr SYSTEMTIME kDay = {2026, 3, 0, 14, 0, 0, 0, 0};
    Window form_;
    DatePicker picker_;
    Edit other_;
};

}  // namespace

TEST_F(DropCalendarTest, EscapeClosesItAndLeavesTheKeysToThePicker) {
    Open();
    SendMessageW(Calendar(), WM_KEYDOWN, VK_ESCAPE, 1);
    EXPECT_FALSE(IsOpen());
    EXPECT_TRUE(PumpUntil([this] { return GetFocus() == picker_.GetHandle(); }));
    ExpectSameDay();
    Open();  // and again
    SendMessageW(Calendar(), WM_KEYDOWN, VK_ESCAPE, 1);
    EXPECT_FALSE(IsOpen());
}

TEST_F(DropCalendarTest, TabClosesItAndGoesOn) {
    Open();
    SendMessageW(Calendar(), WM_KEYDOWN, VK_TAB, 1);
    EXPECT_FALSE(IsOpen());
    EXPECT_TRUE(PumpUntil([this] { return GetFocus() == other_.GetHandle(); }));
    ExpectSameDay();
}

TEST_F(DropCalendarTest, TheFocusElsewhereClosesIt) {
    Open();
    other_.SetFocus();
    EXPECT_FALSE(IsOpen());
    EXPECT_TRUE(PumpUntil([this] { return GetFocus() == other_.GetHandle(); }));
    ExpectSameDay();
}

TEST_F(DropCalendarTest, AClickOnAPlaceThatTakesNoFocusClosesIt) {
    Open();
    POINT bare = {250, 200};
    ::ClientToScreen(form_.GetHandle(), &bare);
    SetCursorPos(bare.x, bare.y);
    INPUT press = {};
    press.type = INPUT_MOUSE;
    press.mi.dwFlags = MOUSEEVENTF_LEFTDOWN;
    SendInput(1, &press, sizeof press);
    EXPECT_TRUE(PumpUntil([this] { return !IsOpen(); }));
    press.mi.dwFlags = MOUSEEVENTF_LEFTUP;
    SendInput(1, &press, sizeof press);
    PumpOnce();
    ExpectSameDay();
}

TEST_F(DropCalendarTest, AWindowThatGoesTakesItAlong) {
    Open();
    const HWND calendar = Calendar();
    form_.Destroy();
    EXPECT_FALSE(IsWindow(calendar));
}
