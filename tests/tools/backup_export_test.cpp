// backup, restore and export, by the real journal-tool.exe.
#include <storebackup.h>

#include "tests/tools/journal_tool_fixture.h"
#include "text/date_time.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr char kRows[] =
    "start\tsubject\tbody\tcategories\tcontacts\ttype\tpriority\tsensitivity\tduration\tcompany\n"
    "2004-05-07 14:30\tTwo \"herons\"\tat the weir\\nand caf\xC3\xA9 \xD0\x96\tGarden|River\tAda|Ben\tPhone call\tHigh"
    "\tPrivate\t135\tTalvern\n"
    "2004-05-08 09:05\tEmpty\t\t\t\tNote\tNormal\tNormal\t0\t\n";

class BackupExportTest : public JournalToolTest {
protected:
    static std::string Bytes(const std::wstring& path) {
        std::ifstream file(std::filesystem::path(path), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }
    static std::string Ansi(const std::wstring& text) {
        std::string bytes(text.size() * 4, '\0');
        const int size = WideCharToMultiByte(CP_ACP, 0, text.data(), static_cast<int>(text.size()), bytes.data(),
                                             static_cast<int>(bytes.size()), nullptr, nullptr);
        bytes.resize(static_cast<size_t>(size));
        return bytes;
    }
    static std::string StartAt(WORD day, WORD hour, WORD minute) {
        std::wstring text;
        DateTime(SYSTEMTIME{2004, 5, 0, day, hour, minute, 0, 0}).DateAndTime(text);
        return Ansi(text);
    }
};

// ---- Export ----

TEST_F(BackupExportTest, CsvIsWrittenAsTheJournalWritesIt) {
    Load(kRows);
    const std::wstring file = files_.File(L"out.csv");
    const ToolRun run = RunTool({L"export", L"--csv", file});
    EXPECT_EQ(run.exitCode, 0) << run.complaints;
    EXPECT_THAT(run.output, HasSubstr("2 entries exported to "));
    EXPECT_EQ(Bytes(file),
              "\"Subject\",\"Entry Type\",\"Start\",\"Duration\",\"Priority\",\"Sensitivity\",\"Company\",\"Contacts\","
              "\"Categories\",\"Note\"\r\n\"Two \"herons\"\",\"Phone call\",\"" +
                  StartAt(7, 14, 30) +
                  "\",\"2 hrs 15 min\",\"High\",\"Private\",\"Talvern\",\"Ada; Ben\",\"Garden, River\",\"at the "
                  "weir\r\nand " +
                  Ansi(L"caf\u00e9 \u0416") + "\"\r\n\"Empty\",\"Note\",\"" + StartAt(8, 9, 5) +
                  "\",\"0 minutes\",\"Normal\",\"Normal\",\"\",\"\",\"\",\"\"\r\n");
}

TEST_F(BackupExportTest, TextOfSomeFieldsReplacesALongerFile) {
    Load(kRows);
    const std::wstring file = MakeFile(std::string(5000, 'x'), L"out.txt");
    EXPECT_EQ(RunTool({L"export", L"--text", file, L"--fields", L"note,Subject"}).exitCode, 0);
    EXPECT_EQ(Bytes(file), "Subject: Two \"herons\"\r\nNote:\r\nat the weir\r\nand " + Ansi(L"caf\u00e9 \u0416") +
                               "\r\nSubject: Empty\r\nNote:\r\n\r\n");
    EXPECT_EQ(RunTool({L"export", L"--no-labels", L"--fields", L"Priority", L"--text", file}).exitCode, 0);
    EXPECT_EQ(Bytes(file), "High\r\nNormal\r\n");
    EXPECT_EQ(RunTool({L"export", L"--no-labels", L"--fields", L"Subject", L"--csv", file}).exitCode, 0);
    EXPECT_EQ(Bytes(file), "\"Two \"herons\"\"\r\n\"Empty\"\r\n");
}

TEST_F(BackupExportTest, AFileThatCannotBeWrittenIsTold) {
    Load(kRows);
    for (const std::wstring& file : {files_.Path().wstring(), files_.File(L"missing\\out.csv")}) {
        const ToolRun run = RunTool({L"export", L"--csv", file});
        EXPECT_EQ(run.exitCode, 1);
        EXPECT_THAT(run.complaints, HasSubstr("cannot be written"));
        EXPECT_THAT(run.output, IsEmpty());
    }
}

TEST_F(BackupExportTest, WrongExportsAreToldAndWriteNothing) {
    const std::wstring file = files_.File(L"out");
    const std::vector<std::vector<std::wstring>> wrong = {
        {L"export"},
        {L"export", file},
        {L"export", L"--csv"},
        {L"export", L"--csv", L"--text", file},
        {L"export", L"--csv", file, file},
        {L"export", L"--csv", file, L"--fields"},
        {L"export", L"--csv", file, L"--fields", L"Subject,Colour"},
        {L"export", L"--csv", file, L"--fields", L"Subject,"},
        {L"export", L"--csv", file, L"--loud"},
        {L"backup"},
        {L"backup", L"a", L"b"},
        {L"backup", L""},
        {L"restore"},
        {L"restore", L"a", L"b"},
    };
    for (const auto& words : wrong) {
        const ToolRun run = RunTool(words);
        EXPECT_EQ(run.exitCode, 2) << testing::PrintToString(words);
        EXPECT_THAT(run.complaints, HasSubstr("journal-tool: "));
    }
    EXPECT_FALSE(std::filesystem::exists(file));
    EXPECT_FALSE(std::filesystem::exists(store_.File()));
}

// ---- Backup and restore ----

TEST_F(BackupExportTest, ABackupBringsBackWhatWasDeletedSince) {
    RunTool({L"seed", L"50"});
    const std::vector<std::string> before = Listed();
    const std::wstring file = files_.File(L"journal.backup");
    const ToolRun backup = RunTool({L"backup", file});
    EXPECT_EQ(backup.exitCode, 0) << backup.complaints;
    RunTool({L"seed", L"20"});
    const ToolRun restore = RunTool({L"restore", file});
    EXPECT_EQ(restore.exitCode, 0) << restore.complaints;
    EXPECT_EQ(Listed(), before);
    EXPECT_EQ(RunTool({L"check"}).exitCode, 0);

    // The other store is where the tool says.
    const std::string line = restore.Lines()[1];
    const std::string kept = line.substr(line.find("kept as ") + 8);
    const ToolRun list = RunTool({L"--store", std::wstring(kept.begin(), kept.end()), L"list"});
    EXPECT_EQ(list.Lines().size(), 71u);
}

TEST_F(BackupExportTest, ABackupIsMadeWhileTheJournalIsOpen) {
    RunTool({L"seed", L"10"});
    const std::wstring file = files_.File(L"journal.backup");
    DbJournal journal;
    ASSERT_TRUE(journal.Open(nullptr));
    EXPECT_EQ(RunTool({L"backup", file}).exitCode, 0);
    const ToolRun restore = RunTool({L"restore", file});
    EXPECT_EQ(restore.exitCode, 1);
    EXPECT_THAT(restore.complaints, HasSubstr("close the journal"));
    EXPECT_EQ(journal.GetRecordCount(), 10);
}

TEST_F(BackupExportTest, OnAnotherMachineTheBackupIsTheFirstStore) {
    RunTool({L"seed", L"10"});
    const std::wstring file = files_.File(L"journal.backup");
    RunTool({L"backup", file});
    const std::wstring other = files_.File(L"new folder\\other.db");
    std::filesystem::create_directories(files_.Path() / L"new folder");
    const ToolRun run = RunTool({L"--store", other, L"restore", file});
    EXPECT_EQ(run.exitCode, 0) << run.complaints;
    EXPECT_EQ(run.Lines().size(), 1u);
    EXPECT_EQ(RunTool({L"--store", other, L"list"}).Lines().size(), 11u);
}

TEST_F(BackupExportTest, WhatIsNoBackupIsRefusedAndTold) {
    RunTool({L"seed", L"10"});
    const std::wstring letter = MakeFile("Dear Ada", L"letter.txt");
    ToolRun run = RunTool({L"restore", letter});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_THAT(run.complaints, HasSubstr("damaged, or no backup"));
    run = RunTool({L"backup", letter});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_THAT(run.complaints, HasSubstr("is not overwritten"));
    EXPECT_EQ(Bytes(letter), "Dear Ada");
    const std::wstring file = files_.File(L"journal.backup");
    RunTool({L"backup", file});
    const std::string whole = Bytes(file);
    for (const size_t length : {size_t{0}, size_t{100}, whole.size() / 2, whole.size() - 4096, whole.size() - 1}) {
        run = RunTool({L"restore", MakeFile(whole.substr(0, length), L"cut")});
        EXPECT_EQ(run.exitCode, 1) << length;
        EXPECT_THAT(run.complaints, HasSubstr("damaged, or no backup")) << length;
    }
    run = RunTool({L"restore", files_.File(L"missing")});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_THAT(run.complaints, HasSubstr("error 2"));
    EXPECT_EQ(CountEntries(), 10);
}

}  // namespace
