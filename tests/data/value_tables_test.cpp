#include "data/value_tables.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace {

std::vector<std::wstring> Rows(ValueTable table) {
    return {table.begin(), table.end()};
}

TEST(ValueTablesTest, RowsAreTheStoredValues) {
    EXPECT_EQ(Rows(Priorities()), (std::vector<std::wstring>{L"Low", L"Normal", L"High"}));
    EXPECT_EQ(Rows(Sensitivities()), (std::vector<std::wstring>{L"Normal", L"Personal", L"Private", L"Confidential"}));
    EXPECT_EQ(
        Rows(EntryTypes()),
        (std::vector<std::wstring>{
            L"Conversation", L"Document", L"E-mail message", L"Fax", L"Letter", L"Meeting", L"Meeting cancellation",
            L"Meeting request", L"Meeting response", L"Microsoft Access", L"Microsoft Excel", L"Microsoft PowerPoint",
            L"Microsoft Word", L"Note", L"Phone call", L"Remote session", L"Task", L"Task request", L"Task response"}));
    EXPECT_EQ(
        Rows(DurationPresets()),
        (std::vector<std::wstring>{L"0 minutes", L"5 minutes", L"10 minutes", L"15 minutes", L"30 minutes", L"1 hour",
                                   L"2 hours", L"3 hours", L"4 hours", L"5 hours", L"6 hours", L"7 hours", L"8 hours",
                                   L"9 hours", L"10 hours", L"11 hours", L".5 days", L"1 day", L"2 days"}));
}

TEST(ValueTablesTest, EveryCallAnswersTheOneSharedCopy) {
    EXPECT_EQ(EntryTypes().data(), EntryTypes().data());
    EXPECT_EQ(EntryTypes()[13], ValueText(EntryTypes(), 13));
}

TEST(ValueTablesTest, ValueThatIsNoRowHasNoText) {
    EXPECT_STREQ(ValueText(Priorities(), -1), L"");
    EXPECT_STREQ(ValueText(Priorities(), 3), L"");
    EXPECT_STREQ(ValueText(EntryTypes(), 32767), L"");
    EXPECT_STREQ(ValueText(EntryTypes(), -32768), L"");
}

TEST(ValueTablesTest, TextIsFoundByItsExactSpelling) {
    EXPECT_EQ(ValueOfText(EntryTypes(), L"Note"), 13);
    EXPECT_EQ(ValueOfText(EntryTypes(), L"note"), -1);
    EXPECT_EQ(ValueOfText(Sensitivities(), L""), -1);
}

}  // namespace
