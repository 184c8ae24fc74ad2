// What the rows of the form show, and what is stored when something is entered; without any window.
#include "editor/field_values.h"

#include <gtest/gtest.h>

#include <vector>

#include "data/contact_blob.h"
#include "data/field_ids.h"

namespace {

DateTime At(WORD year, WORD month, WORD day, WORD hour, WORD minute) {
    SYSTEMTIME time = {};
    time.wYear = year;
    time.wMonth = month;
    time.wDay = day;
    time.wHour = hour;
    time.wMinute = minute;
    return DateTime(time);
}

DateTime Minutes(int count) {
    DateTime span;
    span.AddMinutes(count);
    return span;
}

DbJItem Field(WORD id, CEPROPID propid, int control, int itemType = kItemValue) {
    return DbJItem(id, propid, L"Label", control, 0, static_cast<unsigned long>(itemType), L"");
}

void SetBytes(DbJItem& field, std::vector<BYTE> bytes) {
    const CEBLOB blob = {static_cast<DWORD>(bytes.size()), bytes.data()};
    field.SetBlob(&blob);
}

FieldSources Now() {
    FieldSources sources;
    sources.now = At(2026, 3, 14, 15, 9);
    return sources;
}

std::wstring Prepared(DbJItem& field, const FieldSources& sources = Now()) {
    PrepareField(field, sources);
    return field.GetStrValue();
}

std::wstring DateAndTimeOf(const DateTime& time) {
    std::wstring text;
    time.DateAndTime(text);
    return text;
}

}  // namespace

struct CodedCase {
    const char* label;
    WORD id;
    CEPROPID propid;
    short stored;
    short expected;
    const wchar_t* text;
};

class CodedFieldTest : public testing::TestWithParam<CodedCase> {};

TEST_P(CodedFieldTest, ShowsItsTablesText) {
    const CodedCase& row = GetParam();
    DbJItem field = Field(row.id, row.propid, kControlList);
    field.SetShort(row.stored);
    EXPECT_EQ(Prepared(field), row.text);
    EXPECT_EQ(field.GetShort(), row.expected);
}

INSTANTIATE_TEST_SUITE_P(
    All, CodedFieldTest,
    testing::Values(CodedCase{"UnsetType", kFieldEntryType, kPropEntryType, -1, 13, L"Note"},
                    CodedCase{"FirstType", kFieldEntryType, kPropEntryType, 0, 0, L"Conversation"},
                    CodedCase{"LastType", kFieldEntryType, kPropEntryType, 18, 18, L"Task response"},
                    CodedCase{"NoSuchType", kFieldEntryType, kPropEntryType, 19, 19, L""},
                    CodedCase{"UnsetPriority", kFieldPriority, kPropPriority, -1, 1, L"Normal"},
                    CodedCase{"Low", kFieldPriority, kPropPriority, 0, 0, L"Low"},
                    CodedCase{"High", kFieldPriority, kPropPriority, 2, 2, L"High"},
                    CodedCase{"UnsetSensitivity", kFieldSensitivity, kPropSensitivity, -1, 0, L"Normal"},
                    CodedCase{"Confidential", kFieldSensitivity, kPropSensitivity, 3, 3, L"Confidential"},
                    CodedCase{"NegativeButSet", kFieldSensitivity, kPropSensitivity, -2, -2, L""}),
    [](const auto& row) { return row.param.label; });

TEST(StartFieldTest, ShowsDateAndTime) {
    DbJItem field = Field(kFieldStart, kPropStart, kControlDateTime);
    const DateTime start = At(2025, 11, 2, 8, 30);
    field.SetFileTime(start.ToFileTime());
    EXPECT_EQ(Prepared(field), DateAndTimeOf(start));
}

TEST(StartFieldTest, WithADatePickerAloneShowsNoTimeOfDay) {
    DbJItem field = Field(kFieldStart, kPropStart, kControlDate);
    const DateTime start = At(2025, 11, 2, 8, 30);
    field.SetFileTime(start.ToFileTime());
    std::wstring date;
    start.ShortDate(date);
    EXPECT_EQ(Prepared(field), date);
}

TEST(StartFieldTest, AZeroTimeBecomesNow) {
    DbJItem field = Field(kFieldStart, kPropStart, kControlDateTime);
    EXPECT_EQ(Prepared(field), DateAndTimeOf(Now().now));
    EXPECT_EQ(DateTime(field.GetFileTime()), Now().now);
}

TEST(StartFieldTest, TakesThePocketOutlookItemsTime) {
    PimData item;
    item.start = At(2026, 7, 1, 9, 0);
    FieldSources sources = Now();
    sources.pim = &item;
    DbJItem field = Field(kFieldStart, kPropStart, kControlDateTime);
    EXPECT_EQ(Prepared(field, sources), DateAndTimeOf(item.start));
    EXPECT_EQ(DateTime(field.GetFileTime()), item.start);
}

TEST(StartFieldTest, APocketOutlookItemWithoutATimeStartsNow) {
    const PimData item;
    FieldSources sources = Now();
    sources.pim = &item;
    DbJItem field = Field(kFieldStart, kPropStart, kControlDateTime);
    Prepared(field, sources);
    EXPECT_EQ(DateTime(field.GetFileTime()), Now().now);
}

TEST(DurationFieldTest, ShowsTheLength) {
    DbJItem field = Field(kFieldDuration, kPropDuration, kControlList);
    EXPECT_EQ(Prepared(field), L"0 minutes");
    field.SetFileTime(Minutes(90).ToFileTime());
    EXPECT_EQ(Prepared(field), L"1 hour 30 min");
}

TEST(TextFieldTest, ShowsItsValue) {
    DbJItem field = Field(kFieldSubject, kPropSubject, kControlList);
    field.SetStrValue(L"Lunch & more");
    EXPECT_EQ(Prepared(field), L"Lunch & more");
}

TEST(TextFieldTest, TakesThePocketOutlookItemsTexts) {
    PimData item;
    item.subject = L"Review";
    item.company = L"Talvern";
    FieldSources sources = Now();
    sources.pim = &item;
    DbJItem subject = Field(kFieldSubject, kPropSubject, kControlList);
    DbJItem company = Field(kFieldCompany, kPropCompany, kControlText);
    EXPECT_EQ(Prepared(subject, sources), L"Review");
    EXPECT_EQ(Prepared(company, sources), L"Talvern");
}

TEST(FieldTest, OfItemTypeZeroGetsNoValue) {
    DbJItem field = Field(kFieldPriority, kPropPriority, kControlList, kItemLabelOnly);
    EXPECT_EQ(Prepared(field), L"");
    EXPECT_EQ(field.GetShort(), -1);
}

class CategoriesFieldTest : public testing::Test {
protected:
    CategoriesFieldTest() {
        sources_ = Now();
        sources_.readCategories = [this](const CEBLOB& blob, TSList<DbCItem>* list) {
            ++calls_;
            for (DWORD i = 0; i < blob.dwCount; ++i) {
                list->Append(DbCItem(kPropCategoryName, blob.lpb[i] == 1 ? L"Travel" : L"Work"));
            }
        };
    }

    DbJItem field_ = Field(kFieldCategories, kPropCategories, kControlLauncher);
    FieldSources sources_;
    int calls_ = 0;
};

TEST_F(CategoriesFieldTest, EmptyBytesShowNothingAndAskNobody) {
    EXPECT_EQ(Prepared(field_, sources_), L"");
    EXPECT_EQ(calls_, 0);
}

TEST_F(CategoriesFieldTest, OneNameShowsWithoutSeparator) {
    SetBytes(field_, {2});
    EXPECT_EQ(Prepared(field_, sources_), L"Work");
}

TEST_F(CategoriesFieldTest, TwoNamesAreJoinedInTheirOrder) {
    SetBytes(field_, {2, 1});
    EXPECT_EQ(Prepared(field_, sources_), L"Work, Travel");
    EXPECT_EQ(field_.Categories().GetCount(), 2);
    EXPECT_EQ(field_.Categories().begin()->GetPropID(), kPropCategoryName);
}

TEST_F(CategoriesFieldTest, PreparedAgainHoldsThemOnce) {
    SetBytes(field_, {1});
    Prepared(field_, sources_);
    EXPECT_EQ(Prepared(field_, sources_), L"Travel");
}

TEST(ContactsFieldTest, NamesAreJoinedWithSemicolons) {
    TSList<DbAItem> contacts;
    contacts.Append(DbAItem(L"Fox, Ada", L"Talvern"));
    contacts.Append(DbAItem(L"Lund, Per", L""));
    DbJItem field = Field(kFieldContacts, kPropContacts, kControlLauncher);
    SetBytes(field, MakeContactBlob(contacts));
    EXPECT_EQ(Prepared(field), L"Fox, Ada; Lund, Per");
    EXPECT_EQ(field.Contacts().GetCount(), 2);
}

TEST(ContactsFieldTest, EmptyBytesShowNothing) {
    DbJItem field = Field(kFieldContacts, kPropContacts, kControlLauncher);
    EXPECT_EQ(Prepared(field), L"");
}

TEST(ContactsFieldTest, BytesCutAtAnyLengthAreReadAsFarAsTheyGo) {
    TSList<DbAItem> contacts;
    contacts.Append(DbAItem(L"Ada", L"Talvern"));
    const std::vector<BYTE> whole = MakeContactBlob(contacts);
    for (size_t length = 0; length <= whole.size(); ++length) {
        DbJItem field = Field(kFieldContacts, kPropContacts, kControlLauncher);
        SetBytes(field, std::vector<BYTE>(whole.begin(), whole.begin() + static_cast<ptrdiff_t>(length)));
        const std::wstring text = Prepared(field);
        EXPECT_TRUE(text.empty() || text == L"Ada") << length;
    }
}

// ---- Committing ----

TEST(CommitTest, TextReplacesTheValue) {
    DbJItem field = Field(kFieldCompany, kPropCompany, kControlText);
    EXPECT_TRUE(CommitText(field, L"Talvern"));
    EXPECT_EQ(std::wstring(field.GetStrValue()), L"Talvern");
    EXPECT_FALSE(CommitText(field, L"Talvern"));
    EXPECT_TRUE(CommitText(field, L""));
    EXPECT_EQ(std::wstring(field.GetStrValue()), L"");
}

TEST(CommitTest, AChoiceIsStoredAsItsRow) {
    DbJItem field = Field(kFieldPriority, kPropPriority, kControlList);
    EXPECT_TRUE(CommitChoice(field, 2));
    EXPECT_EQ(field.GetShort(), 2);
    EXPECT_EQ(std::wstring(field.GetStrValue()), L"High");
    EXPECT_FALSE(CommitChoice(field, 2));
}

TEST(CommitTest, NothingChosenChangesNothing) {
    DbJItem field = Field(kFieldPriority, kPropPriority, kControlList);
    field.SetShort(99);
    EXPECT_FALSE(CommitChoice(field, -1));
    EXPECT_EQ(field.GetShort(), 99);
}

TEST(CommitTest, ATimeIsStoredAndShown) {
    DbJItem field = Field(kFieldStart, kPropStart, kControlDateTime);
    const DateTime time = At(2026, 2, 3, 4, 5);
    EXPECT_TRUE(CommitTime(field, time));
    EXPECT_EQ(DateTime(field.GetFileTime()), time);
    EXPECT_EQ(std::wstring(field.GetStrValue()), DateAndTimeOf(time));
    EXPECT_FALSE(CommitTime(field, time));
}

struct SpanCase {
    const char* label;
    const wchar_t* typed;
    int minutes;  // stored afterwards; 45 were there before
    const wchar_t* shown;
};

class SpanTest : public testing::TestWithParam<SpanCase> {};

TEST_P(SpanTest, IsParsedAndShown) {
    DbJItem field = Field(kFieldDuration, kPropDuration, kControlList);
    field.SetFileTime(Minutes(45).ToFileTime());
    field.SetStrValue(L"45 minutes");
    EXPECT_EQ(CommitSpan(field, GetParam().typed), GetParam().minutes != 45);
    EXPECT_EQ(DateTime(field.GetFileTime()), Minutes(GetParam().minutes));
    EXPECT_EQ(std::wstring(field.GetStrValue()), GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(All, SpanTest,
                         testing::Values(SpanCase{"HoursWithFraction", L"1.5h", 90, L"1 hour 30 min"},
                                         SpanCase{"DaysAndHours", L"2d 3h", 51 * 60, L"2 days 3 hrs"},
                                         SpanCase{"Preset", L".5 days", 720, L"12 hours"},
                                         SpanCase{"Zero", L"0", 0, L"0 minutes"},
                                         SpanCase{"Same", L"45", 45, L"45 minutes"},
                                         SpanCase{"NoNumber", L"abc", 45, L"45 minutes"},
                                         SpanCase{"Empty", L"", 45, L"45 minutes"}),
                         [](const auto& row) { return row.param.label; });

TEST(ChoicesTest, EveryPresetIsADuration) {
    for (const wchar_t* preset : FieldChoices(kPropDuration)) {
        DbJItem field = Field(kFieldDuration, kPropDuration, kControlList);
        field.SetFileTime(Minutes(7).ToFileTime());
        EXPECT_TRUE(CommitSpan(field, preset)) << testing::PrintToString(preset);
    }
}
