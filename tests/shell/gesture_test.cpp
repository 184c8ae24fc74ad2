#include <gmock/gmock.h>

#include "px.h"
#include "tests/shell/shell_fixture.h"
#include "tests/support/pump.h"

namespace {

class GestureTest : public ShellTest {
protected:
    // The stylus goes down at a point of the window; what follows is in the queue before the shell looks.
    DWORD Recognize(DWORD flags, const std::function<void()>& then = {}) {
        const Place place = At(Window(), Px(50), Px(60));
        MoveTo(place);
        down_ = place.point();
        Press();
        EXPECT_TRUE(PumpUntil([&] { return !Seen(WM_LBUTTONDOWN).empty(); }));
        if (then) then();
        SHRGINFO info{sizeof(SHRGINFO), Window(), {Px(50), Px(60)}, flags};
        const DWORD result = SHRecognizeGesture(&info);
        Release();
        PumpOnce();
        return result;
    }
    POINT down_{};
};

}  // namespace

TEST_F(GestureTest, ARestingStylusIsAHold) {
    EXPECT_EQ(Recognize(SHRG_RETURNCMD), static_cast<DWORD>(GN_CONTEXTMENU));
}

TEST_F(GestureTest, ALiftedStylusIsATapAndTheLiftIsKeptForTheCaller) {
    EXPECT_EQ(Recognize(SHRG_RETURNCMD, [] { Release(); }), 0u);
    EXPECT_TRUE(PumpUntil([&] { return !Seen(WM_LBUTTONUP).empty(); }));
}

TEST_F(GestureTest, ADraggedStylusIsNoHold) {
    EXPECT_EQ(Recognize(SHRG_RETURNCMD,
                        [&] {
                            SetCursorPos(down_.x + Px(30), down_.y);
                            INPUT move{};
                            move.type = INPUT_MOUSE;
                            move.mi.dwFlags = MOUSEEVENTF_MOVE;
                            SendInput(1, &move, sizeof(move));
                        }),
              0u);
}

TEST_F(GestureTest, TremblingIsStillAHold) {
    EXPECT_EQ(Recognize(SHRG_RETURNCMD, [&] { SetCursorPos(down_.x + 2, down_.y + 1); }),
              static_cast<DWORD>(GN_CONTEXTMENU));
}

TEST_F(GestureTest, AHoldNotifiesTheWindowWithThePointOnTheScreen) {
    NMRGINFO seen{};
    onNotify = [&](NMHDR* notice) { return seen = *reinterpret_cast<NMRGINFO*>(notice), 7; };
    EXPECT_EQ(Recognize(0), 7u);
    EXPECT_EQ(seen.hdr.code, static_cast<UINT>(GN_CONTEXTMENU));
    EXPECT_EQ(seen.hdr.hwndFrom, Window());
    EXPECT_EQ(seen.ptAction.x, down_.x);
    EXPECT_EQ(seen.ptAction.y, down_.y);
}

TEST_F(GestureTest, AHoldOnAControlNotifiesItsParent) {
    const HWND child = CreateWindowExW(0, L"Static", nullptr, WS_CHILD | WS_VISIBLE, 10, 10, 80, 80, Window(),
                                       reinterpret_cast<HMENU>(101), nullptr, nullptr);
    NMRGINFO seen{};
    onNotify = [&](NMHDR* notice) { return seen = *reinterpret_cast<NMRGINFO*>(notice), 1; };
    SHRGINFO info{sizeof(SHRGINFO), child, {5, 5}, SHRG_NOTIFYPARENT};
    EXPECT_EQ(SHRecognizeGesture(&info), 1u);
    EXPECT_EQ(seen.hdr.hwndFrom, child);
    EXPECT_EQ(seen.hdr.idFrom, 101u);
}

TEST_F(GestureTest, ABadRecordIsNoHold) {
    SHRGINFO info{4, Window(), {}, SHRG_RETURNCMD};
    EXPECT_EQ(SHRecognizeGesture(&info), 0u);
    EXPECT_EQ(SHRecognizeGesture(nullptr), 0u);
}
