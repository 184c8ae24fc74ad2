#include <algorithm>
#include <map>

#include "tests/tools/journal_tool_fixture.h"

namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

TEST_F(JournalToolTest, HelpNamesEveryCommandAndEndsWithZero) {
    for (const wchar_t* option : {L"--help", L"-h"}) {
        const ToolRun run = RunTool({option});
        EXPECT_EQ(run.exitCode, 0);
        for (const char* word : {"seed N", "load FILE", "list [N]", "import FILE...", "contacts", "link contact",
                                 "export --csv|--text FILE", "backup FILE", "restore FILE", "check", "--store FILE"})
            EXPECT_THAT(run.output, HasSubstr(word));
        EXPECT_THAT(run.complaints, IsEmpty());
    }
}

TEST_F(JournalToolTest, HelpBehindACommandTellsOfThatOneAndDoesNothing) {
    struct Case {
        std::vector<std::wstring> arguments;
        const char* usage;
        const char* about;
    };
    const Case cases[] = {
        {{L"seed", L"--help"}, "seed N\n", "made-up entries"},
        {{L"load", L"-h"}, "load FILE\n", "names the columns"},
        {{L"list", L"--help"}, "list [N]\n", "the first N entries"},
        {{L"import", L"people.vcf", L"--help"}, "import FILE...\n", "vCard"},
        {{L"contacts", L"--help"}, "contacts\n", "people"},
        {{L"appointments", L"--help"}, "appointments\n", "appointments"},
        {{L"tasks", L"--help"}, "tasks\n", "tasks"},
        {{L"link", L"--help"}, "link contact|appointment|task NUMBER\n", "begin an entry"},
        {{L"export", L"--csv", L"--help"}, "export --csv|--text FILE", "code\npage"},
        {{L"backup", L"--help"}, "backup FILE\n", "whole store"},
        {{L"restore", L"--help"}, "restore FILE\n", "copy of that backup"},
        {{L"check", L"--help"}, "check\n", "is sound"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.usage);
        const ToolRun run = RunTool(c.arguments);
        EXPECT_EQ(run.exitCode, 0);
        EXPECT_THAT(run.output, StartsWith(std::string("usage: journal-tool [--store FILE] ") + c.usage));
        EXPECT_THAT(run.output, HasSubstr(c.about));
        EXPECT_THAT(run.complaints, IsEmpty());
    }
    EXPECT_FALSE(std::filesystem::exists(store_.File()));
    EXPECT_FALSE(std::filesystem::exists(L"--help"));
}

TEST_F(JournalToolTest, VersionIsTheJournals) {
    const ToolRun run = RunTool({L"--version"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.output, "Quillon Journal 3.1\n");
}

TEST_F(JournalToolTest, WrongCommandLinesAreToldAndEndWithTwo) {
    struct Case {
        std::vector<std::wstring> arguments;
        const char* complaint;
    };
    const Case cases[] = {
        {{}, "a command is missing"},
        {{L"dance"}, "there is no command dance"},
        {{L"--loud", L"check"}, "there is no option --loud"},
        {{L"--store"}, "--store needs the name of a file"},
        {{L"--store", L"", L"check"}, "--store needs the name of a file"},
        {{L"--store", L"x.db"}, "a command is missing"},
        {{L"seed"}, "seed needs a number"},
        {{L"seed", L"0"}, "seed needs a number"},
        {{L"seed", L"-1"}, "seed needs a number"},
        {{L"seed", L"65536"}, "seed needs a number"},
        {{L"seed", L"4294967297"}, "seed needs a number"},
        {{L"seed", L"12x"}, "seed needs a number"},
        {{L"seed", L""}, "seed needs a number"},
        {{L"seed", L"1", L"2"}, "seed needs a number"},
        {{L"load"}, "load needs the name of one file"},
        {{L"load", L"a", L"b"}, "load needs the name of one file"},
        {{L"list", L"many"}, "list takes one number"},
        {{L"list", L"1", L"2"}, "list takes one number"},
        {{L"check", L"twice"}, "check takes nothing more"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.complaint);
        const ToolRun run = RunTool(c.arguments);
        EXPECT_EQ(run.exitCode, 2);
        EXPECT_THAT(run.complaints, StartsWith("journal-tool: "));
        EXPECT_THAT(run.complaints, HasSubstr(c.complaint));
        EXPECT_THAT(run.output, IsEmpty());
    }
    EXPECT_FALSE(std::filesystem::exists(store_.File()));
}

TEST_F(JournalToolTest, SeedAddsThatManyEntries) {
    const ToolRun run = RunTool({L"seed", L"120"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.output, "120 entries added\n");
    EXPECT_EQ(CountEntries(), 120);
    EXPECT_EQ(RunTool({L"seed", L"5"}).exitCode, 0);
    EXPECT_EQ(CountEntries(), 125);
}

TEST_F(JournalToolTest, SeedAddsTheSameEntriesEveryTime) {
    RunTool({L"seed", L"40"});
    const std::vector<std::string> first = Listed();
    ASSERT_EQ(first.size(), 40u);
    const std::wstring other = files_.File(L"other.db");
    RunTool({L"--store", other, L"seed", L"40"});
    std::vector<std::string> second = RunTool({L"--store", other, L"list"}).Lines();
    second.erase(second.begin());
    EXPECT_EQ(first, second);
}

TEST_F(JournalToolTest, SeedKeepsTheCategoriesUsageCountsTrue) {
    RunTool({L"seed", L"300"});
    RunTool({L"seed", L"50"});
    std::map<std::wstring, int> uses;
    DbJournal journal;
    DbCats categories;
    ASSERT_TRUE(journal.Open(nullptr));
    ASSERT_TRUE(categories.Open(nullptr));
    TSList<DbJItem> fields;
    for (CEOID oid = journal.SeekFirst(); oid; oid = journal.SeekNext()) {
        ASSERT_EQ(journal.Read(oid, &fields), oid);
        TSList<DbCItem> items;
        categories.ReadBlob(*FindFieldByPropID(fields, kPropCategories)->GetBlob(), &items);
        for (const DbCItem& item : items)
            ++uses[item.GetStrValue()];
    }
    EXPECT_EQ(uses.size(), 12u);
    for (const auto& [name, count] : uses)
        EXPECT_EQ(UsesOf(name.c_str()), count);
}

TEST_F(JournalToolTest, StoreOptionWorksOnThatFileAlone) {
    const std::wstring other = files_.File(L"K\x00E4se \x4E2D.db");
    EXPECT_EQ(RunTool({L"--store", other, L"seed", L"3"}).exitCode, 0);
    EXPECT_TRUE(std::filesystem::exists(other));
    EXPECT_EQ(CountEntries(), 0);
}

TEST_F(JournalToolTest, ListPrintsNamesOfColumnsThenEntriesInTheJournalsOrder) {
    RunTool({L"seed", L"30"});
    const std::vector<std::string> lines = RunTool({L"list"}).Lines();
    ASSERT_EQ(lines.size(), 31u);
    EXPECT_EQ(lines[0], "start\tduration\ttype\tpriority\tsensitivity\tsubject\tcompany\tcontacts\tcategories\tbody");
    const auto byStart = [](const std::string& a, const std::string& b) { return a.substr(0, 16) < b.substr(0, 16); };
    EXPECT_TRUE(std::is_sorted(lines.begin() + 1, lines.end(), byStart));
    const std::vector<std::string> two = RunTool({L"list", L"2"}).Lines();
    ASSERT_EQ(two.size(), 3u);
    EXPECT_EQ(two[2], lines[2]);
}

TEST_F(JournalToolTest, ListOfAnEmptyJournalPrintsOnlyTheNames) {
    EXPECT_EQ(CountEntries(), 0);
    const ToolRun run = RunTool({L"list"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.Lines().size(), 1u);
}

TEST_F(JournalToolTest, WhatListPrintsLoadReads) {
    RunTool({L"seed", L"60"});
    const std::string listed = RunTool({L"list"}).output;
    const std::wstring other = files_.File(L"other.db");
    EXPECT_EQ(RunTool({L"--store", other, L"load", MakeFile(listed)}).exitCode, 0);
    const std::string again = RunTool({L"--store", other, L"list"}).output;
    EXPECT_EQ(again, listed);
}

TEST_F(JournalToolTest, CheckAnswersZeroForASoundStore) {
    RunTool({L"seed", L"25"});
    const ToolRun run = RunTool({L"check"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.output, "the store is sound; the journal holds 25 entries\n");
}

TEST_F(JournalToolTest, CheckMendsCountsOfUsesOnceAndSaysWhich) {
    ASSERT_EQ(Load("start\tcategories\n2004-05-07\tChess|Go\n2004-05-08\tChess\n").exitCode, 0);
    {
        DbCats categories;
        ASSERT_TRUE(categories.Open(nullptr));
        ASSERT_TRUE(categories.ReleaseUse(categories.FindByName(L"Chess")));
        ASSERT_TRUE(categories.AddUse(categories.FindByName(L"Business")));
    }
    const ToolRun run = RunTool({L"check"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_THAT(run.Lines(),
                testing::UnorderedElementsAre("mended: the category \"Chess\" counted 1 entry, 2 have it",
                                              "mended: the category \"Business\" counted 1 entry, 0 have it",
                                              "the store is sound; the journal holds 2 entries"));
    EXPECT_EQ(UsesOf(L"Chess"), 2);
    EXPECT_EQ(UsesOf(L"Go"), 1);
    EXPECT_EQ(UsesOf(L"Business"), 0);
    EXPECT_EQ(RunTool({L"check"}).output, "the store is sound; the journal holds 2 entries\n");
}

TEST_F(JournalToolTest, CheckWithoutCategoriesSaysSo) {
    RunTool({L"seed", L"3"});
    {
        CeDbase base;
        ASSERT_TRUE(base.Open(kCategoriesDatabase, 0, 0, nullptr));
        ASSERT_TRUE(base.DeleteDatabase(0));
    }
    const ToolRun run = RunTool({L"check"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_THAT(run.complaints, Not(IsEmpty()));
}

TEST_F(JournalToolTest, CheckAnswersOneForADamagedStore) {
    RunTool({L"seed", L"200"});
    // In the midst of the records, so that the file still opens.
    std::fstream file(std::filesystem::path(store_.File()), std::ios::binary | std::ios::in | std::ios::out);
    file.seekg(0, std::ios::end);
    file.seekp(file.tellg() / 2 / 4096 * 4096);
    file << std::string(8192, '\xFF');
    file.close();
    const ToolRun run = RunTool({L"check"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_THAT(run.output, Not(IsEmpty()));
    EXPECT_THAT(run.complaints, HasSubstr("the store is not sound"));
}

TEST_F(JournalToolTest, FileThatIsNoStoreIsToldAndLeftAlone) {
    const std::string garbage(30000, 'x');
    const std::wstring file = MakeFile(garbage, L"letter.txt");
    const std::vector<std::wstring> commands[] = {{L"check"}, {L"list"}, {L"seed", L"3"}};
    for (const std::vector<std::wstring>& command : commands) {
        SCOPED_TRACE(testing::PrintToString(command));
        std::vector<std::wstring> arguments = {L"--store", file};
        arguments.insert(arguments.end(), command.begin(), command.end());
        const ToolRun run = RunTool(arguments);
        EXPECT_EQ(run.exitCode, 1);
        EXPECT_THAT(run.complaints, HasSubstr("1392"));
    }
    std::ifstream left(std::filesystem::path(file), std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(left), {}), garbage);
}

TEST_F(JournalToolTest, StoreThatIsNotThereIsOnlyMadeByWhatWrites) {
    const std::wstring nowhere = files_.File(L"nowhere.db");
    const std::wstring file = files_.File(L"out");
    const std::vector<std::wstring> commands[] = {{L"check"},        {L"list"},  {L"contacts"},
                                                  {L"appointments"}, {L"tasks"}, {L"export", L"--csv", file},
                                                  {L"backup", file}};
    for (std::vector<std::wstring> command : commands) {
        SCOPED_TRACE(testing::PrintToString(command));
        ToolRun run = RunTool(command);  // the environment names one that is not there
        EXPECT_EQ(run.exitCode, 1);
        EXPECT_THAT(run.complaints, HasSubstr("there is no store"));
        command.insert(command.begin(), {L"--store", nowhere});
        run = RunTool(command);
        EXPECT_EQ(run.exitCode, 1);
        EXPECT_THAT(run.complaints, HasSubstr("there is no store"));
        EXPECT_THAT(run.complaints, HasSubstr("nowhere.db"));
    }
    EXPECT_FALSE(std::filesystem::exists(nowhere));
    EXPECT_FALSE(std::filesystem::exists(store_.File()));
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(JournalToolTest, JournalThatIsFullTakesNoMoreAndKeepsWhatItHas) {
    ASSERT_EQ(RunTool({L"seed", L"65534"}).exitCode, 0);
    const ToolRun run = Load("start\tsubject\n2004-05-07\tfits\n2004-05-07\ttoo many\n2004-05-07\tnot tried\n");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_THAT(run.complaints, HasSubstr("112"));
    EXPECT_THAT(run.complaints, HasSubstr("row 3"));
    EXPECT_THAT(run.complaints, Not(HasSubstr("row 4")));
    EXPECT_EQ(run.output, "1 entry added, 0 rows left out\n");
    EXPECT_EQ(CountEntries(), 65535);
}

}  // namespace
