// What the value of a field reads as, wherever it is shown.
#include "data/field_text.h"

#include <gtest/gtest.h>

#include <vector>

#include "data/contact_blob.h"
#include "data/field_ids.h"
#include "text/date_time.h"

namespace {

DbJItem Field(CEPROPID propid, int control = kControlText) {
    return DbJItem(HIWORD(propid), propid, L"Label", control, 0, kItemValue, L"");
}

void SetBytes(DbJItem& field, std::vector<BYTE> bytes) {
    const CEBLOB blob = {static_cast<DWORD>(bytes.size()), bytes.data()};
    field.SetBlob(&blob);
}

DateTime March() {
    SYSTEMTIME time = {};
    time.wYear = 2026;
    time.wMonth = 3;
    time.wDay = 14;
    time.wHour = 15;
    return DateTime(time);
}

// Every byte of a blob is one category: 1 "Travel", any other "Work".
void ReadNames(const CEBLOB& blob, TSList<DbCItem>* list) {
    for (DWORD i = 0; i < blob.dwCount; ++i)
        list->Append(DbCItem(kPropCategoryName, blob.lpb[i] == 1 ? L"Travel" : L"Work"));
}

}  // namespace

struct CodedTextCase {
    const char* label;
    CEPROPID propid;
    short value;
    const wchar_t* text;
};

class CodedTextTest : public testing::TestWithParam<CodedTextCase> {};

TEST_P(CodedTextTest, IsItsTablesRow) {
    DbJItem field = Field(GetParam().propid, kControlList);
    field.SetShort(GetParam().value);
    EXPECT_EQ(FieldText(field), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(All, CodedTextTest,
                         testing::Values(CodedTextCase{"FirstType", kPropEntryType, 0, L"Conversation"},
                                         CodedTextCase{"LastType", kPropEntryType, 18, L"Task response"},
                                         CodedTextCase{"TypeBehindTheLast", kPropEntryType, 19, L""},
                                         CodedTextCase{"UnsetType", kPropEntryType, -1, L""},
                                         CodedTextCase{"High", kPropPriority, 2, L"High"},
                                         CodedTextCase{"Confidential", kPropSensitivity, 3, L"Confidential"},
                                         CodedTextCase{"NegativeSensitivity", kPropSensitivity, -2, L""}),
                         [](const auto& row) { return row.param.label; });

TEST(FieldTextTest, StartIsDateAndTimeUnlessADateIsAllThatIsPicked) {
    std::wstring both, date;
    March().DateAndTime(both);
    March().ShortDate(date);
    DbJItem start = Field(kPropStart, kControlDateTime);
    start.SetFileTime(March().ToFileTime());
    EXPECT_EQ(FieldText(start), both);
    DbJItem day = Field(kPropStart, kControlDate);
    day.SetFileTime(March().ToFileTime());
    EXPECT_EQ(FieldText(day), date);
}

TEST(FieldTextTest, DurationIsSpelledOut) {
    DbJItem field = Field(kPropDuration, kControlSpan);
    EXPECT_EQ(FieldText(field), L"0 minutes");
    DateTime span;
    span.AddMinutes(90);
    field.SetFileTime(span.ToFileTime());
    EXPECT_EQ(FieldText(field), L"1 hour 30 min");
}

TEST(FieldTextTest, CategoriesAreJoinedInTheirOrder) {
    DbJItem field = Field(kPropCategories);
    SetBytes(field, {2, 1});
    ReadFieldItems(field, ReadNames);
    ReadFieldItems(field, ReadNames);
    EXPECT_EQ(FieldText(field), L"Work, Travel");
}

TEST(FieldTextTest, NoBytesAskNobodyForCategories) {
    DbJItem field = Field(kPropCategories);
    field.Categories().Append(DbCItem(kPropCategoryName, L"Left from before"));
    ReadFieldItems(field, [](const CEBLOB&, TSList<DbCItem>*) { ADD_FAILURE(); });
    EXPECT_EQ(FieldText(field), L"");
}

TEST(FieldTextTest, ContactsAreJoinedByNameAlone) {
    TSList<DbAItem> contacts;
    contacts.Append(DbAItem(L"Fox, Ada", L"Talvern"));
    contacts.Append(DbAItem(L"Lund, Per", L""));
    DbJItem field = Field(kPropContacts);
    SetBytes(field, MakeContactBlob(contacts));
    ReadFieldItems(field, nullptr);
    EXPECT_EQ(FieldText(field), L"Fox, Ada; Lund, Per");
}

TEST(FieldTextTest, OtherFieldsHaveNoItemsToRead) {
    DbJItem field = Field(kPropSubject);
    field.SetStrValue(L"Lunch");
    ReadFieldItems(field, [](const CEBLOB&, TSList<DbCItem>*) { ADD_FAILURE(); });
    EXPECT_EQ(FieldText(field), L"Lunch");
}

TEST(FieldChoicesTest, AreTheTablesOfTheirFields) {
    EXPECT_EQ(FieldChoices(kPropPriority).size(), 3u);
    EXPECT_EQ(FieldChoices(kPropSensitivity).size(), 4u);
    EXPECT_EQ(FieldChoices(kPropEntryType).size(), 19u);
    EXPECT_EQ(FieldChoices(kPropDuration).size(), 19u);
    EXPECT_TRUE(FieldChoices(kPropSubject).empty());
}
