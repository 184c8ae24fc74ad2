#include "tools/journal_tool/entry_row.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <random>

#include "tools/journal_tool/console.h"

namespace {

using testing::ElementsAre;

// What is wrong with a row under that row of names; `entry` receives what is right.
std::wstring Read(std::string_view header, std::string_view row, NewEntry* entry) {
    RowLayout layout;
    EXPECT_EQ(layout.Parse(header), L"");
    return layout.ReadRow(row, entry);
}

std::wstring Problem(std::string_view header, std::string_view row) {
    NewEntry entry;
    return Read(header, row, &entry);
}

SYSTEMTIME StartOf(std::string_view text) {
    NewEntry entry;
    EXPECT_EQ(Read("start", text, &entry), L"");
    SYSTEMTIME time{};
    FileTimeToSystemTime(&entry.start, &time);
    return time;
}

TEST(EntryRowTest, StartIsADateWithOrWithoutATime) {
    for (const char* text : {"2004-05-07 14:30:05", "2004-05-07T14:30:05", " 2004-05-07 14:30:05 "}) {
        SCOPED_TRACE(text);
        const SYSTEMTIME time = StartOf(text);
        EXPECT_EQ(time.wYear, 2004);
        EXPECT_EQ(time.wMonth, 5);
        EXPECT_EQ(time.wDay, 7);
        EXPECT_EQ(time.wHour, 14);
        EXPECT_EQ(time.wMinute, 30);
        EXPECT_EQ(time.wSecond, 5);
    }
    EXPECT_EQ(StartOf("2004-05-07 14:30").wSecond, 0);
    EXPECT_EQ(StartOf("2004-05-07").wHour, 0);
    EXPECT_EQ(StartOf("2004-02-29").wDay, 29);
    EXPECT_EQ(StartOf("1601-01-01 00:01").wYear, 1601);
}

TEST(EntryRowTest, StartThatIsNoDateIsRefused) {
    for (const char* text : {"",
                             " ",
                             "2004",
                             "2004-05",
                             "2004-5-7",
                             "04-05-07",
                             "07.05.2004",
                             "2004-13-01",
                             "2004-00-01",
                             "2003-02-29",
                             "2004-05-32",
                             "2004-05-07 24:00",
                             "2004-05-07 12:60",
                             "2004-05-07 12",
                             "2004-05-07 12:3",
                             "2004-05-07 12:30:",
                             "2004-05-07 12:30:61",
                             "2004-05-07 12:30:00Z",
                             "2004-05-07x",
                             "2004-05-0a",
                             "1600-12-31",
                             "-2004-05-07",
                             "2004-05-07  12:30"}) {
        SCOPED_TRACE(text);
        EXPECT_NE(Problem("start", text), L"");
    }
}

TEST(EntryRowTest, EveryValueThatMakesNoSenseIsNamed) {
    struct Case {
        const char* header;
        const char* row;
        const wchar_t* problem;
    };
    const Case cases[] = {
        {"start\ttype", "2004-05-07\tparty", L"there is no entry type \"party\""},
        {"start\tpriority", "2004-05-07\turgent", L"there is no priority \"urgent\""},
        {"start\tsensitivity", "2004-05-07\t3", L"there is no sensitivity \"3\""},
        {"start\tduration", "2004-05-07\t-5", L"the duration \"-5\" is no number of minutes"},
        {"start\tduration", "2004-05-07\t1.5", L"the duration \"1.5\" is no number of minutes"},
        {"start\tduration", "2004-05-07\t30744573457", L"the duration \"30744573457\" is no number of minutes"},
        {"start\tduration", "2004-05-07\t99999999999999999999",
         L"the duration \"99999999999999999999\" is no number of minutes"},
        {"start\tsubject", "2004-05-07\tone\ttwo", L"it has 3 values for 2 columns"},
        {"subject\tstart", "one", L"it has no start"},
        {"start", "\xC3\x28", L"it is not UTF-8"},
        {"start\tsubject", "2004-05-07\t\xED\xA0\x80", L"it is not UTF-8"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.row);
        EXPECT_EQ(Problem(c.header, c.row), c.problem);
    }
    EXPECT_EQ(Problem("start\tsubject", std::string_view("2004-05-07\ta\0b", 14)), L"it holds a NUL");
    for (const char* type : {"#", "#-", "#1-", "#x", "#32768", "#-32769", "#99999999999999999999"})
        EXPECT_NE(Problem("start\ttype", std::string("2004-05-07\t") + type), L"") << type;
    for (const char* start : {"#", "#-1", "#18446744073709551616", "# 5", "#5 0"})
        EXPECT_NE(Problem("start", start), L"") << start;
}

TEST(EntryRowTest, ValuesLeftOutAtTheEndOrEmptyAreThoseOfANewEntry) {
    for (const char* row : {"2004-05-07", "2004-05-07\t\t\t\t\t"}) {
        SCOPED_TRACE(row);
        NewEntry entry;
        ASSERT_EQ(Read("start\ttype\tpriority\tsensitivity\tduration\tsubject", row, &entry), L"");
        EXPECT_EQ(entry.type, kDefaultEntryType);
        EXPECT_EQ(entry.priority, kDefaultPriority);
        EXPECT_EQ(entry.sensitivity, kDefaultSensitivity);
        EXPECT_EQ(entry.minutes, 0u);
        EXPECT_EQ(entry.subject, L"");
    }
}

TEST(EntryRowTest, OneRowLeavesNothingForTheNext) {
    NewEntry entry;
    ASSERT_EQ(Read("start\tcontacts\tcategories\tsubject", "2004-05-07\tAnn\tBoats\tone", &entry), L"");
    ASSERT_EQ(Read("start\tcontacts\tcategories\tsubject", "2004-05-08", &entry), L"");
    EXPECT_TRUE(entry.contacts.IsEmpty());
    EXPECT_TRUE(entry.categories.empty());
    EXPECT_EQ(entry.subject, L"");
}

TEST(EntryRowTest, BodysEscapesAreReadAndWritten) {
    struct Case {
        const char* escaped;
        const wchar_t* plain;
    };
    for (const Case& c : {Case{"a\\nb", L"a\nb"}, Case{"a\\tb", L"a\tb"}, Case{"a\\\\nb", L"a\\nb"}}) {
        SCOPED_TRACE(c.escaped);
        NewEntry entry;
        ASSERT_EQ(Read("start\tbody", std::string("2004-05-07\t") + c.escaped, &entry), L"");
        EXPECT_EQ(entry.body, c.plain);
        EXPECT_TRUE(ToUtf8(MakeRow(entry)).ends_with(std::string("\t") + c.escaped + "\n"));
    }
    NewEntry entry;
    ASSERT_EQ(Read("start\tbody", "2004-05-07\tC:\\dir\\", &entry), L"");
    EXPECT_EQ(entry.body, L"C:\\dir\\");  // no escapes of ours
}

TEST(EntryRowTest, NamesStandBetweenBars) {
    NewEntry entry;
    ASSERT_EQ(Read("start\tcategories\tcontacts", "2004-05-07\t One |Two||\t|Lee, Ann|", &entry), L"");
    EXPECT_THAT(entry.categories, ElementsAre(L"One", L"Two"));
    ASSERT_EQ(entry.contacts.GetCount(), 1);
    EXPECT_STREQ(entry.contacts.First()->GetStrValue(), L"Lee, Ann");
}

TEST(EntryRowTest, ValuesWithoutAWordAreTheStoresNumbers) {
    NewEntry entry;
    ASSERT_EQ(Read("start\ttype\tpriority\tsensitivity\tduration",
                   "#18446744073709551615\t#-32768\t#32767\t#3\t30744573456", &entry),
              L"");
    EXPECT_EQ(entry.start.dwLowDateTime & entry.start.dwHighDateTime, 0xFFFFFFFF);
    EXPECT_EQ(entry.type, -32768);
    EXPECT_EQ(entry.priority, 32767);
    EXPECT_EQ(entry.sensitivity, 3);
    EXPECT_EQ(entry.minutes, 30'744'573'456u);
    const std::wstring row = MakeRow(entry);
    EXPECT_TRUE(row.starts_with(L"#18446744073709551615\t30744573456\t#-32768\t#32767\tConfidential\t")) << row;
    EXPECT_EQ(StartOf("30827-12-31 23:59").wYear, 30827);
}

// Whatever an entry holds, its row is read, and the entry read has the same row.
TEST(EntryRowTest, EveryRowThatIsWrittenIsRead) {
    std::mt19937 random(20040507);
    const auto upTo = [&](unsigned most) { return static_cast<unsigned>(random() % (most + 1)); };
    const auto text = [&] {
        static constexpr wchar_t kOdd[] =
            L"\x0001\t\n\r\v\\|#\" nt\x007F\x00A0\x0085\x2028\xFEFF\xFFFE\xFFFF\xD800\xDC00\x00E9\x4E2D";
        std::wstring made;
        for (unsigned left = upTo(12); left > 0; --left)
            made += upTo(3) ? kOdd[upTo(static_cast<unsigned>(std::size(kOdd)) - 2)]
                            : static_cast<wchar_t>(1 + upTo(0xFFFE));
        return made;
    };
    const auto number = [&] { return static_cast<short>(upTo(1) ? upTo(25) : upTo(0xFFFF)); };
    RowLayout layout;
    ASSERT_EQ(layout.Parse(ToUtf8(ColumnNames().substr(0, ColumnNames().size() - 1))), L"");
    for (int round = 0; round < 20'000; ++round) {
        NewEntry entry;
        entry.start = {static_cast<DWORD>(random()), static_cast<DWORD>(random() >> upTo(31))};
        entry.minutes = (ULONGLONG{random()} << 32 | random()) / 600'000'000 >> upTo(40);
        entry.subject = text();
        entry.company = text();
        entry.body = text();
        for (unsigned left = upTo(3); left > 0; --left) {
            entry.categories.push_back(text());
            entry.contacts.Append(DbAItem(text().c_str(), text().c_str()));
        }
        entry.type = number();
        entry.priority = number();
        entry.sensitivity = number();
        const std::string row = ToUtf8(MakeRow(entry));
        ASSERT_EQ(row.find('\n'), row.size() - 1);
        const std::string line = row.substr(0, row.size() - 1);
        NewEntry again;
        ASSERT_EQ(layout.ReadRow(line, &again), L"") << "round " << round << ": " << line;
        ASSERT_EQ(ToUtf8(MakeRow(again)), row) << "round " << round;
    }
}

TEST(EntryRowTest, WrittenRowStaysOneRowWithItsColumns) {
    NewEntry entry;
    entry.subject = L"a\tb\r\nc";
    entry.contacts.Append(DbAItem(L"Ann|Lee", L""));
    const std::wstring row = MakeRow(entry);
    EXPECT_EQ(std::count(row.begin(), row.end(), L'\n'), 1);
    EXPECT_EQ(std::count(row.begin(), row.end(), L'\t'), 9);
    EXPECT_NE(row.find(L"Ann Lee"), std::wstring::npos);
}

}  // namespace
