// The clipboard while another program has it.
#include "tests/richink/rich_ink_fixture.h"
#include "tests/support/message_boxes.h"

namespace {

class RichInkClipboardTest : public RichInkTest {
protected:
    // Another window is another program to the clipboard.
    class Holder {
    public:
        Holder() { EXPECT_TRUE(OpenClipboard(window_)); }
        ~Holder() {
            CloseClipboard();
            DestroyWindow(window_);
        }

    private:
        HWND window_ = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
    };

    MessageBoxes boxes_;
};

}  // namespace

TEST_F(RichInkClipboardTest, PasteSaysSoWhenAnotherProgramHoldsTheClipboard) {
    PutOnClipboard(L"pasted");
    LoadText(L"text");
    boxes_.Expect(L"Clipboard", L"Nothing was pasted: another program is using the clipboard. Try again in a moment.");
    {
        const Holder holder;
        Send(WM_PASTE);
    }
    ASSERT_EQ(boxes_.Seen().size(), 1u);
    EXPECT_EQ(boxes_.Seen()[0].owner, Parent());
    EXPECT_EQ(Text(), L"text");
    EXPECT_FALSE(IsModified());
    Send(WM_PASTE);
    EXPECT_EQ(Text(), L"pastedtext");
}

TEST_F(RichInkClipboardTest, CutSaysSoAndLeavesTheText) {
    LoadText(L"text");
    SelectAll();
    boxes_.Expect(L"Clipboard", L"Nothing was copied: another program is using the clipboard. Try again in a moment.");
    const Holder holder;
    Send(WM_CUT);
    EXPECT_EQ(Text(), L"text");
}
