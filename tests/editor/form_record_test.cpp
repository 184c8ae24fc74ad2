#include "editor/form_record.h"

#include <gtest/gtest.h>

TEST(FormRecordTest, ARowOfTheListIsNoPocketOutlookItem) {
    const EntryRow row(17, 109);
    EXPECT_EQ(AsPimData(row), nullptr);
    ASSERT_NE(AsEntryRow(row), nullptr);
    EXPECT_EQ(AsEntryRow(row)->id, 17u);
    EXPECT_EQ(AsEntryRow(row)->field, 109);
}

TEST(FormRecordTest, APocketOutlookItemIsKnownByItsTag) {
    const PimData item;
    EXPECT_EQ(item.tag, L"PIMDATA");
    EXPECT_EQ(AsPimData(item), &item);
    EXPECT_EQ(AsEntryRow(item), nullptr);
}

TEST(FormRecordTest, APocketOutlookItemStartsEmpty) {
    const PimData item;
    EXPECT_EQ(item.itemId, 0u);
    EXPECT_TRUE(item.subject.empty());
    EXPECT_TRUE(item.company.empty());
    EXPECT_EQ(item.start, DateTime());
    EXPECT_EQ(item.second, DateTime());
}
