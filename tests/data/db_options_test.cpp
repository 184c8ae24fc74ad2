#include "data/db_options.h"

#include <gtest/gtest.h>

#include "data/field_ids.h"

namespace {

TEST(DbOptionsTest, ConfirmDeletesOffersYesAndNo) {
    DbOptions options;
    ASSERT_TRUE(options.Open(nullptr));
    TSList<DbOptItem> choices;
    EXPECT_EQ(options.Read(0x02D10002, &choices), 0x02D10002u);
    ASSERT_EQ(choices.GetCount(), 2);
    const DbOptItem* choice = choices.First();
    EXPECT_STREQ(choice->GetStrValue(), L"Yes");
    EXPECT_EQ(choice->GetShort(), 0);
    choice = choices.Next();
    EXPECT_STREQ(choice->GetStrValue(), L"No");
    EXPECT_EQ(choice->GetShort(), 1);
    EXPECT_EQ(choice->GetPropID(), kPropConfirmDeletes);
}

TEST(DbOptionsTest, UnknownOptionOffersNothing) {
    DbOptions options;
    TSList<DbOptItem> choices;
    EXPECT_EQ(options.Read(0, &choices), 0u);
    EXPECT_EQ(options.Read(0x02D10003, &choices), 0u);
    EXPECT_TRUE(choices.IsEmpty());
}

}  // namespace
