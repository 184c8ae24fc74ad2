#include "ui/resource_text.h"

#include <gtest/gtest.h>

#include "res/ids.h"

namespace {

TEST(ResourceTextTest, LoadsStringsOfTheProgram) {
    EXPECT_EQ(LoadText(IDS_OPTIONS), L"Options");
    EXPECT_EQ(LoadText(IDS_OPTION_CONFIRM_DELETES), L"Confirm Deletes");
    EXPECT_EQ(LoadText(IDS_APP_CLASS), L"JCLASS");
    EXPECT_EQ(LoadText(IDS_APP_TITLE), L"Quillon Journal");
}

TEST(ResourceTextTest, IsEmptyForAnUnknownId) {
    EXPECT_EQ(LoadText(65000), L"");
}

}  // namespace
