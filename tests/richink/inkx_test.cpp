#include "inkx.h"

#include "tests/richink/rich_ink_fixture.h"

namespace {

class InkXTest : public RichInkTest {
protected:
    InkXTest() {
        InitInkX();
        InitInkX();
        container_ = CreateWindowExW(0, WC_INKX, nullptr, WS_CHILD | WS_VISIBLE, 0, 0, 100, 80, Parent(),
                                     reinterpret_cast<HMENU>(103), nullptr, nullptr);
        inside_ = reinterpret_cast<HWND>(SendMessageW(container_, IM_GETRICHINK, 0, 0));
    }
    HWND container_;
    HWND inside_;
};

}  // namespace

TEST_F(InkXTest, HoldsARichInkControlThatFillsIt) {
    ASSERT_NE(inside_, nullptr);
    MoveWindow(container_, 0, 0, 150, 120, TRUE);
    RECT client;
    GetClientRect(container_, &client);
    RECT inside;
    GetWindowRect(inside_, &inside);
    EXPECT_EQ(inside.right - inside.left, client.right);
    EXPECT_EQ(inside.bottom - inside.top, client.bottom);
}

TEST_F(InkXTest, PassesTheModifyFlagAndTheNotificationsOn) {
    Forget();
    SendMessageW(inside_, WM_CHAR, L'a', 1);
    EXPECT_NE(SendMessageW(container_, EM_GETMODIFY, 0, 0), 0);
    EXPECT_GE(Count(EN_CHANGE), 1);
    SendMessageW(container_, EM_SETMODIFY, FALSE, 0);
    EXPECT_EQ(SendMessageW(inside_, EM_GETMODIFY, 0, 0), 0);
}

TEST_F(InkXTest, IsEmptied) {
    SetWindowTextW(inside_, L"text");
    SendMessageW(container_, IM_CLEARALL, 0, 0);
    EXPECT_EQ(GetWindowTextLengthW(inside_), 0);
}

TEST_F(InkXTest, TakesTheFocusForItsControl) {
    SetFocus(container_);
    EXPECT_EQ(GetFocus(), inside_);
}
