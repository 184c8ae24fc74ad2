#include <gtest/gtest.h>
#include <win.h>

#include <string>

#include "aygshell.h"
#include "platform/shell/window_place.h"
#include "px.h"
#include "tests/support/private_registry.h"
#include "tests/support/pump.h"
#include "tests/support/variable.h"

namespace {

constexpr wchar_t kClass[] = L"PlaceKeeperTest";

// Programs one after the other, each with a main window that gets a menu bar as it is made.
class PlaceKeeperTest : public testing::Test {
protected:
    PlaceKeeperTest() {
        WNDCLASSW window{};
        window.lpfnWndProc = Procedure;
        window.hInstance = GetModuleHandleW(nullptr);
        window.lpszClassName = kClass;
        RegisterClassW(&window);
        SystemParametersInfoW(SPI_GETWORKAREA, 0, &work_, 0);
    }
    ~PlaceKeeperTest() override { End(); }

    void Start() {
        DWORD style = 0;
        SIZE size{Px(300), Px(400)};
        SHScreenWindow(&style, &size);
        window_ = CreateWindowExW(0, kClass, L"Kept", style, CW_USEDEFAULT, CW_USEDEFAULT, size.cx, size.cy, nullptr,
                                  nullptr, GetModuleHandleW(nullptr), nullptr);
        ASSERT_NE(window_, nullptr);
    }
    void Show() {
        ShowWindow(window_, SW_SHOWNORMAL);
        Settle();
    }
    // A window manager has its say about a window just shown or sized.
    void Settle() const {
        constexpr int kStill = 8;  // turns of the loop without a change
        RECT last{};
        int still = 0;
        EXPECT_TRUE(PumpUntil([&] {
            const RECT now = Place();
            still = EqualRect(&now, &last) ? still + 1 : 0;
            last = now;
            return still >= kStill;
        }));
    }
    void End() {
        if (window_) DestroyWindow(window_);
        window_ = nullptr;
        PumpOnce();
    }
    RECT Place() const {
        RECT place{};
        GetWindowRect(window_, &place);
        return place;
    }
    void MoveTo(const RECT& place) {
        SetWindowPos(window_, nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
                     SWP_NOZORDER | SWP_NOACTIVATE);
        Settle();
        ExpectPlace(place);
    }
    void ExpectPlace(const RECT& expected) const {
        const RECT now = Place();
        EXPECT_TRUE(EqualRect(&now, &expected)) << now.left << ',' << now.top << ' ' << now.right << ',' << now.bottom;
    }

    const PrivateRegistry registry_;
    const Variable free_{L"CE_SCREEN", nullptr};
    RECT work_{};
    HWND window_ = nullptr;

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
        if (message == WM_CREATE) {
            SHMENUBARINFO info{};
            info.cbSize = sizeof(info);
            info.hwndParent = window;
            info.dwFlags = SHCMBF_EMPTYBAR;
            info.hInstRes = GetModuleHandleW(nullptr);
            EXPECT_TRUE(SHCreateMenuBar(&info));
        }
        return DefWindowProcW(window, message, wparam, lparam);
    }
};

}  // namespace

TEST_F(PlaceKeeperTest, TheFirstWindowIsInTheMiddle) {
    Start();
    const RECT place = Place();
    EXPECT_NEAR(place.left - work_.left, work_.right - place.right, 1);
    EXPECT_NEAR(place.top - work_.top, work_.bottom - place.bottom, 1);
}

TEST_F(PlaceKeeperTest, TheNextOneIsWhereTheLastOneWas) {
    const RECT chosen{work_.left + 70, work_.top + 90, work_.left + 70 + Px(350), work_.top + 90 + Px(450)};
    Start();
    Show();
    MoveTo(chosen);
    End();
    Start();
    ExpectPlace(chosen);
}

TEST_F(PlaceKeeperTest, AMaximisedWindowComesBackMaximisedAndKnowsItsPlaceBefore) {
    const RECT chosen{work_.left + 70, work_.top + 90, work_.left + 70 + Px(350), work_.top + 90 + Px(450)};
    Start();
    Show();
    MoveTo(chosen);
    ShowWindow(window_, SW_SHOWMAXIMIZED);
    Settle();
    ASSERT_TRUE(IsZoomed(window_));
    End();
    Start();
    ExpectPlace(chosen);
    EXPECT_FALSE(IsWindowVisible(window_));
    Show();
    EXPECT_TRUE(IsZoomed(window_));
    End();
    const auto kept = LoadPlace(kClass, DisplayArrangement());
    ASSERT_TRUE(kept);
    EXPECT_TRUE(kept->maximised);
    EXPECT_TRUE(EqualRect(&kept->normal, &chosen));
}

TEST_F(PlaceKeeperTest, AWindowThatWasOnADisplayThatIsGoneComesIntoView) {
    StorePlace(kClass, L"another arrangement", {{9000, 9000, 9300, 9400}, false, 96});
    Start();
    const RECT place = Place();
    RECT shared{};
    IntersectRect(&shared, &place, &work_);
    EXPECT_GE(shared.right - shared.left, 300 - 20);
    EXPECT_GE(shared.bottom - shared.top, 400 - 20);
    EXPECT_GE(place.top, work_.top);
}

TEST_F(PlaceKeeperTest, AWindowThatWasNeverShownIsNotKept) {
    Start();
    End();
    EXPECT_FALSE(LoadPlace(kClass, DisplayArrangement()));
}

TEST_F(PlaceKeeperTest, ADeviceOfAGivenSizeIsNeitherKeptNorMoved) {
    StorePlace(kClass, DisplayArrangement(), {{10, 10, 700, 700}, true, 96});
    const Variable forced(L"CE_SCREEN", L"300x400");
    Start();
    Show();
    RECT client{};
    GetClientRect(window_, &client);
    EXPECT_EQ(client.right, Px(300));
    EXPECT_FALSE(IsZoomed(window_));
    End();
    EXPECT_TRUE(LoadPlace(kClass, DisplayArrangement())->maximised);
}

TEST_F(PlaceKeeperTest, AnotherScaleKeepsTheLogicalSize) {
    StorePlace(kClass, DisplayArrangement(), {{50, 60, 50 + 2 * Px(300), 60 + 2 * Px(400)}, false, 2 * Px(96)});
    Start();
    const RECT place = Place();
    EXPECT_EQ(place.right - place.left, Px(300));
    EXPECT_EQ(place.bottom - place.top, Px(400));
}

TEST_F(PlaceKeeperTest, NoWindowIsSmallerThanAScreenLaysOutIn) {
    Start();
    Show();
    SetWindowPos(window_, nullptr, 0, 0, 50, 50, SWP_NOMOVE | SWP_NOZORDER);
    RECT client{};
    GetClientRect(window_, &client);
    EXPECT_EQ(client.right, Px(200));
    EXPECT_EQ(client.bottom, Px(200));
}
