#include "tests/support/message_boxes.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

TEST(MessageBoxesTest, ReadsAndAnswersAnExpectedBox) {
    MessageBoxes boxes;
    boxes.Expect(L"Confirm", L"Delete\nrecord?", IDYES);
    EXPECT_EQ(MessageBoxW(nullptr, L"Delete\nrecord?", L"Confirm", MB_YESNO | MB_ICONEXCLAMATION), IDYES);
    ASSERT_EQ(boxes.Seen().size(), 1u);
    EXPECT_EQ(boxes.Seen()[0].icon, static_cast<UINT>(MB_ICONEXCLAMATION));
    EXPECT_EQ(boxes.Seen()[0].buttons, static_cast<UINT>(MB_YESNO));
}

TEST(MessageBoxesTest, ABoxNobodyExpectedFailsTheTest) {
    EXPECT_NONFATAL_FAILURE(
        {
            MessageBoxes boxes;
            MessageBoxW(nullptr, L"Surprise", L"Title", MB_OK);
        },
        "nobody expected");
}

TEST(MessageBoxesTest, AnExpectedBoxThatNeverComesFailsTheTest) {
    EXPECT_NONFATAL_FAILURE(
        {
            MessageBoxes boxes;
            boxes.Expect(L"Title", L"Text");
        },
        "never came");
}
