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

TEST_F(InkXTest, GivesAndTakesItsContentsAsData) {
    SetWindowTextW(inside_, L"some text");
    const auto length = static_cast<size_t>(SendMessageW(container_, IM_GETDATALEN, 0, 0));
    ASSERT_GT(length, 0u);
    std::string data(length, '#');
    EXPECT_EQ(SendMessageW(container_, IM_GETDATA, length, reinterpret_cast<LPARAM>(data.data())),
              static_cast<LRESULT>(length));
    EXPECT_TRUE(data.starts_with("{\\rtf1"));
    SendMessageW(container_, IM_CLEARALL, 0, 0);
    Forget();
    EXPECT_EQ(SendMessageW(container_, IM_SETDATA, length, reinterpret_cast<LPARAM>(data.data())),
              static_cast<LRESULT>(length));
    EXPECT_EQ(SendMessageW(container_, EM_GETMODIFY, 0, 0), 0);
    EXPECT_EQ(Count(EN_CHANGE), 0);
    wchar_t text[20] = L"";
    GetWindowTextW(inside_, text, 20);
    EXPECT_STREQ(text, L"some text");
}

TEST_F(InkXTest, DataThatFitsNotIsNotGiven) {
    SetWindowTextW(inside_, L"some text");
    const auto length = static_cast<size_t>(SendMessageW(container_, IM_GETDATALEN, 0, 0));
    std::string data(length, '#');
    EXPECT_EQ(SendMessageW(container_, IM_GETDATA, length - 1, reinterpret_cast<LPARAM>(data.data())), 0);
    EXPECT_EQ(data, std::string(length, '#'));
    EXPECT_EQ(SendMessageW(container_, IM_GETDATA, length, 0), 0);
}

TEST_F(InkXTest, DataThatIsNoRichTextIsRefused) {
    const std::string plain = "plain text";
    SetWindowTextW(inside_, L"before");
    EXPECT_EQ(SendMessageW(container_, IM_SETDATA, plain.size(), reinterpret_cast<LPARAM>(plain.data())), 0);
    EXPECT_EQ(GetWindowTextLengthW(inside_), 0);
    SetWindowTextW(inside_, L"before");
    EXPECT_EQ(SendMessageW(container_, IM_SETDATA, 0, 0), 0);
    EXPECT_EQ(GetWindowTextLengthW(inside_), 0);
}

TEST_F(InkXTest, DataSetWhileHiddenIsThereWhenAskedFor) {
    SetWindowTextW(inside_, L"some text");
    std::string data(static_cast<size_t>(SendMessageW(container_, IM_GETDATALEN, 0, 0)), '#');
    SendMessageW(container_, IM_GETDATA, data.size(), reinterpret_cast<LPARAM>(data.data()));
    ShowWindow(Parent(), SW_HIDE);
    SendMessageW(container_, IM_CLEARALL, 0, 0);
    SendMessageW(container_, IM_SETDATA, data.size(), reinterpret_cast<LPARAM>(data.data()));
    EXPECT_EQ(SendMessageW(container_, IM_GETDATALEN, 0, 0), static_cast<LRESULT>(data.size()));
    EXPECT_EQ(GetWindowTextLengthW(inside_), 9);
    SendMessageW(container_, IM_CLEARALL, 0, 0);
    EXPECT_EQ(GetWindowTextLengthW(inside_), 0);
}

TEST_F(InkXTest, TakesTheFocusForItsControl) {
    SetFocus(container_);
    EXPECT_EQ(GetFocus(), inside_);
}
