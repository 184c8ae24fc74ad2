// Taps and holds with the messages a mouse makes: what they select, what they send, what a double tap may not press.
#include <aygshell.h>

#include "list/entry_list.h"
#include "list/tap_guard.h"
#include "res/ids.h"
#include "tests/list/journal_fixture.h"
#include "tests/list/list_host.h"
#include "tests/support/pump.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// ---- On the list ----

class ListTapTest : public JournalFixture {
protected:
    void SetUp() override {
        host_.onNotify = [this](NMHDR* header) {
            if (header->code == GN_CONTEXTMENU) held_.push_back(reinterpret_cast<NMRGINFO*>(header)->ptAction);
            return list_.OnNotify(header);
        };
        ASSERT_TRUE(list_.CreateIn(host_.Handle(), host_.Client()));
        list_.Show();
        ids_ = InsertDays(4);
        list_.RefreshList();
    }
    ~ListTapTest() override { SetKey(VK_CONTROL, false); }

    POINT Middle(int row) const {
        RECT rect = {};
        EXPECT_TRUE(list_.GetItemRect(row, &rect));
        return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
    }
    LPARAM Place(int row) const { return MAKELPARAM(Middle(row).x, Middle(row).y); }
    void Tap(int row) {
        list_.PostMessage(WM_LBUTTONUP, 0, Place(row));  // waiting already: a short tap
        list_.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, Place(row));
        PumpOnce();
    }
    // Presses and stays there, pointer and all.
    POINT Hold(int row) {
        POINT point = Middle(row);
        ClientToScreen(list_.GetHandle(), &point);
        SetCursorPos(point.x, point.y);
        PumpOnce();
        list_.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, Place(row));
        return point;
    }
    static void SetKey(BYTE key, bool down) {
        BYTE keys[256];
        GetKeyboardState(keys);
        keys[key] = down ? 0x80 : 0;
        SetKeyboardState(keys);
    }

    ListHost host_;
    EntryList list_{journal_, selection_, filter_};
    std::vector<CEOID> ids_;
    std::vector<POINT> held_;
};

TEST_F(ListTapTest, ATapSelectsTheEntryAndThenOpensIt) {
    Tap(2);
    EXPECT_EQ(selection_.Current(), ids_[2]);
    EXPECT_THAT(selection_.Ids(), ElementsAre(ids_[2]));
    EXPECT_THAT(host_.commands, ElementsAre(ListHost::Command{122, 0}));
    EXPECT_THAT(held_, IsEmpty());
}

TEST_F(ListTapTest, ATapBelowTheRowsForgetsTheSelection) {
    list_.SelectEntry(ids_[1]);
    const LPARAM below = MAKELPARAM(Middle(3).x, Middle(3).y + 60);
    list_.PostMessage(WM_LBUTTONUP, 0, below);
    list_.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, below);
    PumpOnce();
    EXPECT_THAT(selection_.Ids(), IsEmpty());
    EXPECT_THAT(host_.commands, IsEmpty());
}

TEST_F(ListTapTest, ATapWithCtrlExtendsTheSelectionAndOpensNothing) {
    list_.SelectEntry(ids_[0]);
    SetKey(VK_CONTROL, true);
    list_.PostMessage(WM_LBUTTONUP, MK_CONTROL, Place(2));
    list_.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON | MK_CONTROL, Place(2));
    PumpOnce();
    EXPECT_THAT(selection_.Ids(), testing::UnorderedElementsAre(ids_[0], ids_[2]));
    EXPECT_THAT(host_.commands, IsEmpty());
}

TEST_F(ListTapTest, AHoldSelectsTheEntryAndAsksForItsMenu) {
    list_.SelectEntry(ids_[0]);
    const POINT point = Hold(2);
    ASSERT_EQ(held_.size(), 1u);
    EXPECT_EQ(held_[0].x, point.x);
    EXPECT_EQ(held_[0].y, point.y);
    EXPECT_THAT(selection_.Ids(), ElementsAre(ids_[2]));
    list_.SendMessage(WM_LBUTTONUP, 0, Place(2));
    EXPECT_THAT(host_.commands, IsEmpty());
}

TEST_F(ListTapTest, AHoldOnASelectedEntryKeepsTheOthersSelected) {
    list_.SelectEntry(ids_[0]);
    list_.SelectEntry(ids_[2]);
    Hold(0);
    EXPECT_EQ(held_.size(), 1u);
    EXPECT_EQ(selection_.Ids().size(), 2u);
}

// ---- The second tap of a double tap ----

constexpr UINT kTapped = WM_APP + 1;

// Guards itself when it gets kTapped; writes down the presses and releases that reach it.
class TappedWindow {
public:
    TappedWindow() {
        WNDCLASSW windowClass = {};
        windowClass.lpfnWndProc = Procedure;
        windowClass.hInstance = GetModuleHandleW(nullptr);
        windowClass.lpszClassName = L"TappedWindow";
        RegisterClassW(&windowClass);
        handle_ = CreateWindowExW(0, L"TappedWindow", L"", WS_POPUP, 0, 0, 100, 100, nullptr, nullptr,
                                  GetModuleHandleW(nullptr), nullptr);
        seen.clear();
        told = 0;
    }
    ~TappedWindow() { DestroyWindow(handle_); }
    TappedWindow(const TappedWindow&) = delete;
    TappedWindow& operator=(const TappedWindow&) = delete;

    void Post(std::initializer_list<UINT> messages) {
        for (const UINT message : messages)
            PostMessageW(handle_, message, 0, 0);
    }

    static std::vector<UINT> seen;
    static int told;  // how often a second tap was taken

private:
    static LRESULT CALLBACK Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) {
        if (message == kTapped) SwallowSecondTap([] { ++told; });
        if (message == WM_LBUTTONDOWN || message == WM_LBUTTONUP || message == WM_LBUTTONDBLCLK)
            seen.push_back(message);
        return DefWindowProcW(hwnd, message, wparam, lparam);
    }

    HWND handle_ = nullptr;
};

std::vector<UINT> TappedWindow::seen;
int TappedWindow::told = 0;

class TapGuardTest : public testing::Test {
protected:
    TapGuardTest() { SetCursorPos(200, 200); }
    ~TapGuardTest() override { SetDoubleClickTime(doubleClickTime_); }

    const UINT doubleClickTime_ = GetDoubleClickTime();
    TappedWindow window_;
};

TEST_F(TapGuardTest, SwallowsOnePressWithItsRelease) {
    SetDoubleClickTime(5000);
    window_.Post({kTapped, WM_LBUTTONDOWN, WM_LBUTTONUP});
    PumpOnce();
    EXPECT_THAT(TappedWindow::seen, IsEmpty());
    EXPECT_EQ(TappedWindow::told, 1);
    window_.Post({WM_LBUTTONDOWN, WM_LBUTTONUP});
    PumpOnce();
    EXPECT_EQ(TappedWindow::told, 1);
    EXPECT_THAT(TappedWindow::seen, ElementsAre(WM_LBUTTONDOWN, WM_LBUTTONUP));
}

TEST_F(TapGuardTest, SwallowsItAsADoubleClickToo) {
    SetDoubleClickTime(5000);
    window_.Post({kTapped, WM_LBUTTONDBLCLK, WM_LBUTTONUP});
    PumpOnce();
    EXPECT_THAT(TappedWindow::seen, IsEmpty());
}

TEST_F(TapGuardTest, LetsAPressElsewherePass) {
    SetDoubleClickTime(5000);
    window_.Post({kTapped});
    PumpOnce();
    SetCursorPos(260, 200);
    window_.Post({WM_LBUTTONDOWN, WM_LBUTTONUP});
    PumpOnce();
    EXPECT_THAT(TappedWindow::seen, ElementsAre(WM_LBUTTONDOWN, WM_LBUTTONUP));
    EXPECT_EQ(TappedWindow::told, 0);
}

TEST_F(TapGuardTest, LetsALaterPressPass) {
    SetDoubleClickTime(50);
    window_.Post({kTapped});
    PumpOnce();
    const ULONGLONG armed = GetTickCount64();
    ASSERT_TRUE(PumpUntil([&] { return GetTickCount64() > armed + 100; }));
    window_.Post({WM_LBUTTONDOWN, WM_LBUTTONUP});
    PumpOnce();
    EXPECT_THAT(TappedWindow::seen, ElementsAre(WM_LBUTTONDOWN, WM_LBUTTONUP));
}

TEST_F(TapGuardTest, TellsOfAPressThatNobodyGot) {
    SetDoubleClickTime(5000);
    window_.Post({kTapped});
    PumpOnce();
    TakeLostSecondTap();
    EXPECT_EQ(TappedWindow::told, 0);
    mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);  // the window is hidden: on the desktop
    mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
    TakeLostSecondTap();
    TakeLostSecondTap();
    EXPECT_EQ(TappedWindow::told, 1);
}

TEST_F(TapGuardTest, LeavesTheReleaseOfTheFirstTapAlone) {
    SetDoubleClickTime(5000);
    window_.Post({kTapped, WM_LBUTTONUP, WM_LBUTTONDOWN, WM_LBUTTONUP});
    PumpOnce();
    EXPECT_THAT(TappedWindow::seen, ElementsAre(WM_LBUTTONUP));
}

}  // namespace
