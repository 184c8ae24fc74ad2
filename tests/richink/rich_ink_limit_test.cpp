#include "tests/richink/rich_ink_fixture.h"

namespace {

class RichInkLimitTest : public RichInkTest {
protected:
    void LimitTo(int characters) { Send(EM_LIMITTEXT, static_cast<WPARAM>(characters)); }
    void PressReturn() {
        Send(WM_KEYDOWN, VK_RETURN, 1);
        Send(WM_CHAR, L'\r', 1);
    }
};

}  // namespace

TEST_F(RichInkLimitTest, IsTheDevicesToBeginWith) {
    EXPECT_EQ(Send(EM_GETLIMITTEXT), 32'767);
    LimitTo(10);
    EXPECT_EQ(Send(EM_GETLIMITTEXT), 10);
    LimitTo(0);
    EXPECT_EQ(Send(EM_GETLIMITTEXT), 32'767);
}

TEST_F(RichInkLimitTest, ACharacterTypedAtTheLimitIsRefusedAndTold) {
    LimitTo(3);
    Write(L"abc");
    EXPECT_EQ(Count(EN_MAXTEXT), 0);
    Forget();
    Write(L"d");
    EXPECT_EQ(Text(), L"abc");
    EXPECT_EQ(Count(EN_MAXTEXT), 1);
    EXPECT_EQ(Count(EN_CHANGE), 0);
}

TEST_F(RichInkLimitTest, ACharacterThatReplacesTheSelectionFits) {
    LimitTo(3);
    Write(L"abc");
    SelectAll();
    Write(L"d");
    EXPECT_EQ(Text(), L"d");
    EXPECT_EQ(Count(EN_MAXTEXT), 0);
}

TEST_F(RichInkLimitTest, DeletingAtTheLimitIsAllowed) {
    LimitTo(3);
    Write(L"abc");
    Send(WM_KEYDOWN, VK_BACK, 1);
    Send(WM_CHAR, L'\b', 1);
    EXPECT_EQ(Text(), L"ab");
    EXPECT_EQ(Count(EN_MAXTEXT), 0);
}

TEST_F(RichInkLimitTest, AReturnAtTheLimitIsRefusedAndToldOnce) {
    LimitTo(3);
    Write(L"abc");
    PressReturn();
    EXPECT_EQ(Text(), L"abc");
    EXPECT_EQ(Count(EN_MAXTEXT), 1);
}

TEST_F(RichInkLimitTest, ALineEndCountsAsOne) {
    LimitTo(3);
    Replace(L"a\r\nb");
    EXPECT_EQ(Text(), L"a\nb");
    EXPECT_EQ(Count(EN_MAXTEXT), 0);
    Write(L"c");
    EXPECT_EQ(Count(EN_MAXTEXT), 1);
}

TEST_F(RichInkLimitTest, ACharacterOfTwoUnitsIsRefusedWhole) {
    LimitTo(3);
    Write(L"ab\U0001F600");
    EXPECT_EQ(Text(), L"ab");
    EXPECT_EQ(Count(EN_MAXTEXT), 1);
    Replace(L"\U0001F600");
    EXPECT_EQ(Text(), L"ab");
}

TEST_F(RichInkLimitTest, AReplacementIsCutToWhatFits) {
    LimitTo(5);
    Replace(L"abcdefgh");
    EXPECT_EQ(Text(), L"abcde");
    EXPECT_EQ(Count(EN_MAXTEXT), 1);
    Replace(L"x");
    EXPECT_EQ(Text(), L"abcde");
    EXPECT_EQ(Count(EN_MAXTEXT), 2);
}

TEST_F(RichInkLimitTest, APasteIsCutToWhatFitsAndOneStepToUndo) {
    LimitTo(5);
    PutOnClipboard(L"12345678");
    Write(L"ab");
    Send(WM_PASTE);
    EXPECT_EQ(Text(), L"ab123");
    EXPECT_EQ(Count(EN_MAXTEXT), 1);
    EXPECT_NE(Send(EM_UNDOEVENT), 0);
    EXPECT_EQ(Text(), L"ab");
}

TEST_F(RichInkLimitTest, APasteThatFitsIsWhole) {
    LimitTo(10);
    PutOnClipboard(L"12345678");
    Send(WM_PASTE);
    EXPECT_EQ(Text(), L"12345678");
    EXPECT_EQ(Count(EN_MAXTEXT), 0);
}

TEST_F(RichInkLimitTest, AReadOnlyControlNeitherWritesNorTells) {
    LoadText(L"abc");
    LimitTo(3);
    Send(EM_SETREADONLY, TRUE);
    PutOnClipboard(L"12345678");
    Write(L"d");
    Send(WM_PASTE);
    EXPECT_EQ(Text(), L"abc");
    EXPECT_EQ(Count(EN_MAXTEXT), 0);
}

TEST_F(RichInkLimitTest, ATextLoadedBeyondTheLimitTakesNoMore) {
    LimitTo(3);
    LoadText(L"abcdef");
    EXPECT_EQ(Text(), L"abcdef");
    Write(L"x");
    EXPECT_EQ(Text(), L"abcdef");
    EXPECT_EQ(Count(EN_MAXTEXT), 1);
}
