#include <algorithm>
#include <functional>
#include <random>
#include <set>

#include "tests/tools/journal_tool_fixture.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class JournalToolLoadTest : public JournalToolTest {};

TEST_F(JournalToolLoadTest, ReadsEveryColumnInAnyOrder) {
    const ToolRun run = Load(
        "body\tcompany\tStart\tcontacts\tduration\tcategories\tSENSITIVITY\tsubject\tpriority\ttype\n"
        "one\\ntwo\\\\ {braces}\tTalvern\t2004-05-07 14:30\tLee, Ann | M\xC3\xBCller\t90\tHoliday|Boats\tprivate\t"
        "Caf\xC3\xA9 \xF0\x9F\x98\x80\thigh\tphone call\n");
    EXPECT_EQ(run.exitCode, 0) << run.complaints;
    EXPECT_EQ(run.output, "1 entry added, 0 rows left out\n");
    EXPECT_THAT(Listed(),
                ElementsAre("2004-05-07 14:30\t90\tPhone call\tHigh\tPrivate\tCaf\xC3\xA9 \xF0\x9F\x98\x80\tTalvern\t"
                            "Lee, Ann|M\xC3\xBCller\tHoliday|Boats\tone\\ntwo\\\\ {braces}"));
}

TEST_F(JournalToolLoadTest, StoresWhatTheEditorWouldHaveStored) {
    Load("start\tsubject\tduration\n2004-05-07 14:30\tplain\t5\n");
    DbJournal journal;
    ASSERT_TRUE(journal.Open(nullptr));
    const CEOID oid = journal.SeekFirst();
    TSList<DbJItem> fields;
    ASSERT_EQ(journal.Read(oid, &fields), oid);
    EXPECT_EQ(FindFieldByPropID(fields, kPropEntryType)->GetShort(), kDefaultEntryType);
    EXPECT_EQ(FindFieldByPropID(fields, kPropPriority)->GetShort(), kDefaultPriority);
    EXPECT_EQ(FindFieldByPropID(fields, kPropSensitivity)->GetShort(), kDefaultSensitivity);
    EXPECT_EQ(FindFieldByPropID(fields, kPropBody)->GetBlob()->dwCount, 0u);
    const FILETIME duration = FindFieldByPropID(fields, kPropDuration)->GetFileTime();
    EXPECT_EQ(duration.dwLowDateTime, 3'000'000'000u);  // 5 minutes in 100-ns ticks
    EXPECT_EQ(duration.dwHighDateTime, 0u);
    journal.SeekToOid(oid);
    CEPROPID ids[] = {kPropRecordFlags};
    WORD count = 1;
    RecordBuffer record;
    ASSERT_EQ(journal.ReadRecordProps(&count, ids, record.Put()), oid);
    EXPECT_EQ(record[0].val.ulVal, 3u);
}

TEST_F(JournalToolLoadTest, TakesEveryKindOfLineEndAndByteOrderMark) {
    const std::string forms[] = {
        "start\tsubject\n2004-05-07\tone\n",
        "start\tsubject\r\n2004-05-07\tone\r\n",
        "\xEF\xBB\xBFstart\tsubject\r\n2004-05-07\tone\r\n",
        "start\tsubject\n2004-05-07\tone",
        "start\tsubject\n\n2004-05-07\tone\r\n\r\n\n",
    };
    for (const std::string& form : forms) {
        SCOPED_TRACE(form);
        const ToolRun run = Load(form);
        EXPECT_EQ(run.exitCode, 0) << run.complaints;
        EXPECT_EQ(run.output, "1 entry added, 0 rows left out\n");
    }
    for (const std::string& line : Listed())
        EXPECT_THAT(line, HasSubstr("\tone\t"));
}

TEST_F(JournalToolLoadTest, BadRowsAreToldByNumberAndTheOthersLoaded) {
    const ToolRun run = Load(
        "start\tsubject\tduration\n"
        "2004-05-07\tfirst\t5\n"
        "yesterday\tsecond\t5\n"
        "2004-05-08\tthird\t5\n"
        "\n"
        "2004-05-09\tfourth\tlong\n");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.output, "2 entries added, 2 rows left out\n");
    EXPECT_THAT(run.complaints, HasSubstr("row 3 is left out: the start \"yesterday\" is no date and time\n"));
    EXPECT_THAT(run.complaints, HasSubstr("row 6 is left out: the duration \"long\" is no number of minutes\n"));
    EXPECT_EQ(CountEntries(), 2);
}

TEST_F(JournalToolLoadTest, FileThatCannotBeUnderstoodIsToldAndAddsNothing) {
    struct Case {
        std::string content;
        const char* complaint;
    };
    const Case cases[] = {
        {"", "it is empty"},
        {std::string("\xFF\xFEs\0t\0", 6), "it is UTF-16"},
        {"subject\n2004-05-07\n", "the column \"start\" is missing"},
        {"start\tstart\n", "stands twice"},
        {"start\tcolour\n", "there is no column \"colour\""},
        {"start\t\n", "there is no column \"\""},
        {"start\t\xFF\xFF\n", "is not UTF-8"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.complaint);
        const ToolRun run = Load(c.content);
        EXPECT_EQ(run.exitCode, 1);
        EXPECT_THAT(run.complaints, HasSubstr(c.complaint));
        EXPECT_THAT(run.output, IsEmpty());
    }
    EXPECT_EQ(CountEntries(), 0);
}

TEST_F(JournalToolLoadTest, FileThatIsNotThereOrNoFileIsTold) {
    const ToolRun missing = RunTool({L"load", files_.File(L"nothing.tsv")});
    EXPECT_EQ(missing.exitCode, 1);
    EXPECT_THAT(missing.complaints, HasSubstr("is not there"));
    const ToolRun folder = RunTool({L"load", files_.Path().wstring()});
    EXPECT_EQ(folder.exitCode, 1);
    EXPECT_THAT(folder.complaints, HasSubstr("cannot be read"));
}

TEST_F(JournalToolLoadTest, AHyphenIsTheStandardInput) {
    const ToolRun run = RunTool({L"load", L"-"}, "start\tsubject\n2004-05-07\tone\r\n2004-05-08\ttwo\n2004\tthree\n");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.output, "2 entries added, 1 row left out\n");
    EXPECT_THAT(run.complaints, HasSubstr("the standard input, row 4 is left out"));
    EXPECT_EQ(CountEntries(), 2);
    EXPECT_THAT(RunTool({L"load", L"-"}).complaints, HasSubstr("the standard input cannot be loaded: it is empty"));
}

// What other programs may have left in a store, and what is at the ends of what can be stored.
TEST_F(JournalToolLoadTest, WhatListPrintsOfOddEntriesIsLoadedAndListedTheSame) {
    {
        DbJournal journal;
        DbCats categories;
        ASSERT_TRUE(journal.Open(nullptr));
        ASSERT_TRUE(categories.Open(nullptr));
        const auto add = [&](CEPROPID id, const std::function<void(CEPROPVAL&)>& set) {
            CEPROPVAL value{};
            value.propid = id;
            set(value);
            EXPECT_NE(journal.WriteRecordProps(0, 1, &value), 0u);
        };
        const auto blob = [](std::string& bytes) {
            return [&bytes](CEPROPVAL& value) {
                value.val.blob = {static_cast<DWORD>(bytes.size()), reinterpret_cast<BYTE*>(bytes.data())};
            };
        };
        for (const ULONGLONG ticks : {0ull, 599'999'999ull, 1ull << 62, (1ull << 63) - 1, 1ull << 63, ~0ull}) {
            const FILETIME time = {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
            add(kPropStart, [&](CEPROPVAL& value) { value.val.filetime = time; });
            add(kPropDuration, [&](CEPROPVAL& value) { value.val.filetime = time; });
        }
        for (const CEPROPID id : {kPropEntryType, kPropPriority, kPropSensitivity})
            for (const short number : {-32768, -1, 0, 2, 18, 19, 32767})
                add(id, [&](CEPROPVAL& value) { value.val.iVal = number; });
        for (const wchar_t* text :
             {L"", L"  ", L" a ", L"a\tb\r\nc", L"\\n\\", L"\xFEFF", L"\xD800x", L"x\xDC00", L"#5"}) {
            add(kPropSubject, [&](CEPROPVAL& value) { value.val.lpwstr = const_cast<wchar_t*>(text); });
            add(kPropCompany, [&](CEPROPVAL& value) { value.val.lpwstr = const_cast<wchar_t*>(text); });
        }
        for (std::string note :
             {"{\\rtf1 a\\u0?b\\u1?c}", "{\\rtf1 \\u-10240?}", "{\\rtf1 a\\line b\\page c}", "no note",
              "{\\rtf1 \\'0d\\'0a\\'09\\'7f}", "{\\rtf1 a\\par\\par\\par}", "{\\rtf1", "\\"})
            add(kPropBody, blob(note));
        std::vector<CEOID> ids;
        for (const std::wstring& name : {std::wstring(150, L'x'), std::wstring(L" a|b "), std::wstring(L"|")}) {
            CEPROPVAL values[2] = {};
            values[0].propid = kPropCategoryName;
            values[0].val.lpwstr = const_cast<wchar_t*>(name.c_str());
            values[1].propid = kPropCategoryVisible;
            values[1].val.iVal = 1;
            ids.push_back(categories.WriteRecordProps(0, 2, values));
        }
        ids.insert(ids.end(), {ids[0], 0xFFFFFF});
        std::string held(reinterpret_cast<const char*>(ids.data()), ids.size() * sizeof(CEOID));
        add(kPropCategories, blob(held));
        held.resize(held.size() - 3);
        add(kPropCategories, blob(held));
        const std::wstring people = std::wstring(L" Ann|Lee \0Talvern\0\0Acme\0Ben\0\0|\0\0cut", 35);
        std::string contacts(reinterpret_cast<const char*>(people.data()), people.size() * sizeof(wchar_t));
        add(kPropContacts, blob(contacts));
    }
    const ToolRun listed = RunTool({L"list"});
    EXPECT_EQ(listed.exitCode, 0) << listed.complaints;
    const std::wstring other = files_.File(L"other.db");
    const ToolRun load = RunTool({L"--store", other, L"load", L"-"}, listed.output);
    EXPECT_EQ(load.exitCode, 0) << load.complaints;
    std::vector<std::string> before = listed.Lines();
    std::vector<std::string> after = RunTool({L"--store", other, L"list"}).Lines();
    EXPECT_EQ(before.size(), 1u + 12 + 21 + 18 + 8 + 3);
    std::sort(before.begin(), before.end());  // equal starts have no order among themselves
    std::sort(after.begin(), after.end());
    EXPECT_EQ(after, before);
}

TEST_F(JournalToolLoadTest, RowOfNamesAloneAddsNothingAndIsFine) {
    const ToolRun run = Load("start\tsubject\n");
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.output, "0 entries added, 0 rows left out\n");
}

TEST_F(JournalToolLoadTest, NewCategoriesAreAddedAndAllAreCounted) {
    Load("start\tcategories\n2004-05-07\tBoats| Holiday\n2004-05-08\tBoats|Boats||\n2004-05-09\t\n");
    EXPECT_EQ(UsesOf(L"Boats"), 2);  // twice in one entry is once
    EXPECT_EQ(UsesOf(L"Holiday"), 1);
    Load("start\tcategories\n2004-05-07\tBoats\n");
    EXPECT_EQ(UsesOf(L"Boats"), 3);
}

TEST_F(JournalToolLoadTest, NewCategoryIsAWholeRecordWithTheLowestFreeOrdinal) {
    Load("start\tcategories\n2004-05-07\tBoats|Zebra\n");
    DbCats categories;
    ASSERT_TRUE(categories.Open(nullptr));
    std::multiset<int> ordinals;
    for (CEOID oid = categories.SeekFirst(); oid; oid = categories.SeekNext()) {
        CEPROPID ids[] = {kPropCategoryOrdinal, kPropCategoryVisible, kPropCategoryUsesA, kPropCategoryUsesB,
                          kPropCategoryUsesC};
        WORD count = 5;
        RecordBuffer record;
        ASSERT_EQ(categories.ReadRecordProps(&count, ids, record.Put()), oid);
        for (size_t i = 0; i < 5; ++i)
            EXPECT_TRUE(record.Has(i));
        ordinals.insert(record[0].val.iVal);
        EXPECT_EQ(record[1].val.iVal, 1);
    }
    int expected = 0;
    for (const int ordinal : ordinals)
        EXPECT_EQ(ordinal, expected++);
    EXPECT_GT(expected, 2);
}

TEST_F(JournalToolLoadTest, HiddenCategoryIsShownAgain) {
    Load("start\tcategories\n2004-05-07\tBoats\n");
    {
        DbCats categories;
        ASSERT_TRUE(categories.Open(nullptr));
        CEPROPVAL hidden{};
        hidden.propid = kPropCategoryVisible;
        ASSERT_NE(categories.WriteRecordProps(categories.FindByName(L"Boats"), 1, &hidden), 0u);
    }
    EXPECT_EQ(NumberOf(L"Boats", kPropCategoryVisible), 0);
    Load("start\tcategories\n2004-05-07\tBoats\n");
    EXPECT_EQ(NumberOf(L"Boats", kPropCategoryVisible), 1);
    EXPECT_EQ(UsesOf(L"Boats"), 2);
}

TEST_F(JournalToolLoadTest, RowsOverSeveralBatchesAreAllThere) {
    std::string content = "start\tsubject\tcategories\n";
    for (int i = 0; i < 4500; ++i)
        content += "2004-05-07 14:30\trow " + std::to_string(i) + "\tBoats\n";
    const ToolRun run = Load(content);
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.output, "4500 entries added, 0 rows left out\n");
    EXPECT_EQ(CountEntries(), 4500);
    EXPECT_EQ(UsesOf(L"Boats"), 4500);
    EXPECT_EQ(RunTool({L"check"}).exitCode, 0);
}

TEST_F(JournalToolLoadTest, RowThatIsTooLongIsLeftOutAndTheNextLoaded) {
    std::string content = "start\tsubject\tbody\n2004-05-07\tbig\t";
    content.append(40u << 20, 'x');
    content += "\n2004-05-08\tbody beyond what a note holds\t";
    content.append(4'000'001, 'x');
    content += "\n2004-05-09\tsmall\tx\n";
    const ToolRun run = Load(content);
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.output, "1 entry added, 2 rows left out\n");
    EXPECT_THAT(run.complaints, HasSubstr("row 2 is left out: it is too long"));
    EXPECT_THAT(run.complaints, HasSubstr("row 3 is left out: the body has more than 4000000 characters"));
}

TEST_F(JournalToolLoadTest, LargestBodyIsStored) {
    std::string content = "start\tbody\n2004-05-07\t";
    for (int i = 0; i < 4'000'000; ++i)
        content += "\xE4\xB8\xAD";
    EXPECT_EQ(Load(content).output, "1 entry added, 0 rows left out\n");
}

TEST_F(JournalToolLoadTest, GarbageIsRefusedWithoutHarm) {
    std::mt19937 random(20010507);
    std::string garbage(3u << 20, '\0');
    for (char& byte : garbage)
        byte = static_cast<char>(random());
    EXPECT_EQ(Load(garbage).exitCode, 1);
    const ToolRun run = Load("start\tsubject\n" + garbage);
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_THAT(run.output, testing::StartsWith("0 entries added"));
    EXPECT_EQ(CountEntries(), 0);
}

}  // namespace
