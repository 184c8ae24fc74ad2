// A store for the tool, and the tool run on it.
#pragma once

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "data/db_cats.h"
#include "data/db_journal.h"
#include "data/field_ids.h"
#include "data/record_buffer.h"
#include "tests/support/fresh_store.h"
#include "tests/tools/tool_run.h"

class JournalToolTest : public testing::Test {
protected:
    // Writes a file of the test's own and answers its path.
    std::wstring MakeFile(const std::string& content, const std::wstring& name = L"entries.tsv") const {
        std::ofstream file(std::filesystem::path(files_.File(name)), std::ios::binary);
        file.write(content.data(), static_cast<std::streamsize>(content.size()));
        return files_.File(name);
    }
    ToolRun Load(const std::string& content) const { return RunTool({L"load", MakeFile(content)}); }

    int CountEntries() const {
        DbJournal journal;
        EXPECT_TRUE(journal.Open(nullptr));
        return journal.GetRecordCount();
    }
    // What `list` prints, without the row of names.
    std::vector<std::string> Listed() const {
        std::vector<std::string> lines = RunTool({L"list"}).Lines();
        if (!lines.empty()) lines.erase(lines.begin());
        return lines;
    }
    // A number in a category's record; -1 when there is no such category or number.
    int NumberOf(const wchar_t* category, CEPROPID propid) const {
        DbCats categories;
        EXPECT_TRUE(categories.Open(nullptr));
        if (!categories.FindByName(category)) return -1;
        WORD count = 1;
        RecordBuffer record;
        return categories.ReadRecordProps(&count, &propid, record.Put()) && record.Has(0) ? record[0].val.iVal : -1;
    }
    int UsesOf(const wchar_t* category) const { return NumberOf(category, kPropCategoryJournalUses); }

    FreshStore store_;  // the tool finds it through the environment, as for a person who has set that
    TempFolder files_;
};
