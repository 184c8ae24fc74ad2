#include "tests/shell/shell_fixture.h"
#include "tests/support/message_boxes.h"

namespace {

class CapEditTest : public ShellTest {
protected:
    CapEditTest() {
        EXPECT_TRUE(SHInitExtraControls());
        edit_ = CreateWindowExW(0, WC_CAPEDIT, nullptr, WS_CHILD | WS_VISIBLE, 0, 0, 100, 20, Window(), nullptr,
                                nullptr, nullptr);
        EXPECT_NE(edit_, nullptr);
    }
    void Write(const wchar_t* text) {
        for (; *text; ++text)
            SendMessageW(edit_, WM_CHAR, *text, 0);
    }
    std::wstring Text() const {
        wchar_t text[64];
        return {text, static_cast<size_t>(GetWindowTextW(edit_, text, ARRAYSIZE(text)))};
    }
    HWND edit_;
};

}  // namespace

TEST_F(CapEditTest, TheFirstLetterTypedBecomesACapital) {
    Write(L"émile and bob");
    EXPECT_EQ(Text(), L"Émile and bob");
}

TEST_F(CapEditTest, EveryWordWhenAskedFor) {
    SendMessageW(edit_, CEM_UPCASEALLWORDS, TRUE, 0);
    Write(L"émile and bob");
    EXPECT_EQ(Text(), L"Émile And Bob");
}

TEST_F(CapEditTest, NothingWhenSwitchedOff) {
    SendMessageW(edit_, CEM_ENABLEUPCASE, FALSE, 0);
    Write(L"a");
    SendMessageW(edit_, CEM_ENABLEUPCASE, TRUE, 0);
    EXPECT_EQ(Text(), L"a");
    SetWindowTextW(edit_, L"");
    Write(L"b");
    EXPECT_EQ(Text(), L"B");
}

TEST_F(CapEditTest, TextSetByTheProgramStaysAsItIs) {
    SetWindowTextW(edit_, L"small");
    EXPECT_EQ(Text(), L"small");
}

TEST(ExtraControlsTest, AreRegisteredOnceAndAskedForAgain) {
    EXPECT_TRUE(SHInitExtraControls());
    EXPECT_TRUE(SHInitExtraControls());
    const HWND pref = CreateWindowExW(0, WC_SIPPREF, nullptr, WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
    EXPECT_NE(pref, nullptr);
    DestroyWindow(pref);
}

TEST(ExtraControlsTest, OutOfMemoryIsSaidInOneFixedBox) {
    MessageBoxes boxes;
    boxes.Expect(L"Out of Memory", L"There is not enough memory to complete this operation.");
    EXPECT_EQ(SHShowOutOfMemory(nullptr, 0), IDOK);
    ASSERT_EQ(boxes.Seen().size(), 1u);
    EXPECT_EQ(boxes.Seen()[0].icon, static_cast<UINT>(MB_ICONSTOP));
}
