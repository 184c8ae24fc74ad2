#include <string>

#include "px.h"
#include "tests/shell/shell_fixture.h"
#include "tests/support/pump.h"

namespace {

constexpr UINT_PTR kLook = 0x4C6F;  // timer of a box

// A message box, looked at when its own loop runs and answered at once: it is active before it has found its size.
class BoxesTest : public ShellTest {
protected:
    BoxesTest() {
        CreateBar(IDR_BAR);  // what makes the window a screen
        EXPECT_TRUE(SHInitExtraControls());
        icon_ = LoadIconW(nullptr, IDI_WARNING);
        SendMessageW(Window(), WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(icon_));
        live_ = this;
        hook_ = SetWindowsHookExW(WH_CBT, Look, nullptr, GetCurrentThreadId());
    }
    ~BoxesTest() override {
        UnhookWindowsHookEx(hook_);
        live_ = nullptr;
    }
    void Box(HWND owner, const std::wstring& caption, UINT flags = MB_YESNO) {
        MessageBoxW(owner, L"Delete this record?", caption.c_str(), flags);
        ASSERT_TRUE(seen_);
    }
    RECT WindowPlace() const {
        RECT place{};
        GetWindowRect(Window(), &place);
        return place;
    }
    void ExpectOver(const RECT& base) const {
        EXPECT_NEAR(box_.left + box_.right, base.left + base.right, 2);
        EXPECT_NEAR(box_.top + box_.bottom, base.top + base.bottom, 2);
    }

    HICON icon_;
    bool seen_ = false;
    RECT box_{};
    RECT client_{};
    RECT yes_{};  // in the box's client area
    RECT no_{};
    HICON shown_ = nullptr;

private:
    static LRESULT CALLBACK Look(int code, WPARAM wparam, LPARAM lparam) {
        const auto box = reinterpret_cast<HWND>(wparam);
        wchar_t name[16] = {};
        if (code == HCBT_ACTIVATE) GetClassNameW(box, name, ARRAYSIZE(name));
        if (lstrcmpW(name, L"#32770") == 0 && !live_->seen_) SetTimer(box, kLook, 1, See);
        return CallNextHookEx(nullptr, code, wparam, lparam);
    }
    // A window manager has its say about a window just shown: the box is looked at when it has been still for a while.
    static void CALLBACK See(HWND box, UINT, UINT_PTR timer, DWORD) {
        constexpr int kStill = 10;  // turns without a change
        RECT now{};
        GetWindowRect(box, &now);
        live_->still_ = IsWindowVisible(box) && EqualRect(&now, &live_->box_) ? live_->still_ + 1 : 0;
        live_->box_ = now;
        if (live_->still_ < kStill) return;
        KillTimer(box, timer);
        live_->See(box);
    }
    void See(HWND box) {
        seen_ = true;
        GetClientRect(box, &client_);
        yes_ = Button(box, IDYES);
        no_ = Button(box, IDNO);
        shown_ = reinterpret_cast<HICON>(SendMessageW(box, WM_GETICON, ICON_BIG, 0));
        PostMessageW(box, WM_COMMAND, GetDlgItem(box, IDYES) ? IDYES : IDOK, 0);
    }
    static RECT Button(HWND box, int id) {
        RECT place{};
        GetWindowRect(GetDlgItem(box, id), &place);
        MapWindowPoints(nullptr, box, reinterpret_cast<POINT*>(&place), 2);
        return place;
    }

    static BoxesTest* live_;
    int still_ = 0;
    HHOOK hook_;
};

BoxesTest* BoxesTest::live_ = nullptr;

}  // namespace

TEST_F(BoxesTest, StandInTheMiddleOfTheirOwner) {
    SetWindowPos(Window(), nullptr, 300, 200, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    PumpOnce();
    Box(Window(), L"Confirm");
    ExpectOver(WindowPlace());
}

TEST_F(BoxesTest, WithoutAnOwnerStandOverTheScreenThatIsActive) {
    SetWindowPos(Window(), nullptr, 300, 200, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    PumpOnce();
    Box(nullptr, L"Error", MB_OK);
    ExpectOver(WindowPlace());
}

TEST_F(BoxesTest, ShowTheIconOfTheirOwner) {
    Box(Window(), L"Confirm");
    EXPECT_EQ(shown_, icon_);
}

TEST_F(BoxesTest, AreWideEnoughForTheirCaption) {
    const std::wstring caption = L"A caption that is a good deal longer than the question in the box below it";
    const HDC dc = GetDC(nullptr);
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof(metrics);
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0);
    const HFONT font = CreateFontIndirectW(&metrics.lfCaptionFont);
    const HGDIOBJ before = SelectObject(dc, font);
    SIZE text{};
    GetTextExtentPoint32W(dc, caption.c_str(), static_cast<int>(caption.size()), &text);
    SelectObject(dc, before);
    DeleteObject(font);
    ReleaseDC(nullptr, dc);

    Box(Window(), caption);
    EXPECT_GE(box_.right - box_.left, text.cx + 3 * GetSystemMetrics(SM_CYCAPTION));
    // The buttons stay in the middle, or at the right end.
    const LONG leftGap = yes_.left, rightGap = client_.right - no_.right;
    EXPECT_TRUE(abs(leftGap - rightGap) <= 8 || leftGap > 2 * rightGap) << leftGap << ' ' << rightGap;
}

TEST_F(BoxesTest, StayInView) {
    SetWindowPos(Window(), nullptr, -200, 0, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    PumpOnce();
    Box(Window(), L"Confirm");
    EXPECT_GE(box_.left, -GetSystemMetrics(SM_CXSIZEFRAME));
}
