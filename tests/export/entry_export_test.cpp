// Which entries get into the file, from a real store.
#include "export/entry_export.h"

#include "data/sort_key.h"
#include "export/ansi_output.h"
#include "export/export_file.h"
#include "export/export_writer.h"
#include "export/field_texts.h"
#include "filter/filter_settings.h"
#include "tests/export/export_fixture.h"

namespace {

using testing::ElementsAre;

class EntryExportTest : public ExportTest {
protected:
    EntryExportTest() {
        journal_.Initialize(&fields_);
        Choose(fields_, {kPropSubject});
    }

    // Exports subjects; answers the count.
    int Export(const std::vector<CEOID>& entries, const FilterSettings* filter = nullptr,
               const EntryExport::Progress& progress = {}) {
        ExportFile file;
        EXPECT_TRUE(file.Create(File().c_str(), GENERIC_WRITE, FILE_SHARE_WRITE, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL));
        AnsiOutput output(file);
        FieldTexts texts({}, {});
        const auto writer = MakeExportWriter(ExportFormat::kCsv, false, output, texts);
        const int written = EntryExport(journal_, fields_, filter, *writer).Run(entries, progress);
        output.Flush();
        return written;
    }

    TSList<DbJItem> fields_;
};

}  // namespace

TEST_F(EntryExportTest, AllEntriesComeInTheJournalsOrder) {
    AddDays(3);
    EXPECT_EQ(Export(AllEntries(journal_)), 3);
    EXPECT_EQ(Bytes(File()), "\"entry 0\"\r\n\"entry 1\"\r\n\"entry 2\"\r\n");
    SORTORDERSPEC backward = SortKeyForField(kFieldStart);
    backward.dwFlags |= CEDB_SORT_DESCENDING;
    ASSERT_TRUE(journal_.SetSortOrder(&backward, 1));
    EXPECT_EQ(Export(AllEntries(journal_)), 3);
    EXPECT_EQ(Bytes(File()), "\"entry 2\"\r\n\"entry 1\"\r\n\"entry 0\"\r\n");
}

TEST_F(EntryExportTest, ChosenEntriesComeInTheOrderTheyAreGiven) {
    const std::vector<CEOID> ids = AddDays(4);
    EXPECT_EQ(Export({ids[3], ids[0], ids[2]}), 3);
    EXPECT_EQ(Bytes(File()), "\"entry 3\"\r\n\"entry 0\"\r\n\"entry 2\"\r\n");
}

TEST_F(EntryExportTest, AnEmptyJournalGivesAnEmptyFile) {
    EXPECT_EQ(Export(AllEntries(journal_)), 0);
    EXPECT_EQ(Bytes(File()), "");
}

TEST_F(EntryExportTest, OnlyEntriesThatPassTheFilterAreWrittenAndCounted) {
    AddDays(5);
    FilterSettings filter;
    filter.active = TRUE;
    filter.byRange = TRUE;
    filter.rangeStart = DateTime(SYSTEMTIME{2001, 5, 0, 8, 0, 0, 0, 0});
    filter.rangeEnd = DateTime(SYSTEMTIME{2001, 5, 0, 9, 0, 0, 0, 0});
    EXPECT_EQ(Export(AllEntries(journal_), &filter), 2);
    EXPECT_EQ(Bytes(File()), "\"entry 1\"\r\n\"entry 2\"\r\n");
}

TEST_F(EntryExportTest, TheFilterSeesTheCategoriesAlsoWhenTheyAreNotExported) {
    const CEOID garden = Category(L"Garden");
    Add({L"no category"});
    Sample sample = {L"in the garden"};
    sample.categories = {garden};
    Add(sample);
    FilterSettings filter;
    filter.active = TRUE;
    filter.AddCategory(DbCItem(kPropCategoryName, L"Garden", garden));
    EXPECT_EQ(Export(AllEntries(journal_), &filter), 1);
    EXPECT_EQ(Bytes(File()), "\"in the garden\"\r\n");
}

TEST_F(EntryExportTest, WithoutFieldsEveryEntryCountsAndNothingIsWritten) {
    AddDays(3);
    Choose(fields_, {});
    EXPECT_EQ(Export(AllEntries(journal_)), 3);
    EXPECT_EQ(Bytes(File()), "");
}

TEST_F(EntryExportTest, AValueThatAnEntryLacksIsNotTheOneBefore) {
    Choose(fields_, {kPropSubject, kPropPriority, kPropCompany, kPropContacts});
    Sample full = {L"full"};
    full.priority = 2;
    full.company = L"Talvern";
    full.contacts = {L"Ada"};
    Add(full);
    CEPROPVAL start = {};
    start.propid = kPropStart;
    start.val.filetime = DateTime(SYSTEMTIME{2002, 1, 0, 1, 0, 0, 0, 0}).ToFileTime();
    ASSERT_NE(journal_.WriteRecordProps(0, 1, &start), 0u);
    EXPECT_EQ(Export(AllEntries(journal_)), 2);
    EXPECT_EQ(Bytes(File()), "\"full\",\"High\",\"Talvern\",\"Ada\"\r\n\"\",\"\",\"\",\"\"\r\n");
}

// ---- Others at work ----

TEST_F(EntryExportTest, WhoMovesTheJournalMeanwhileChangesNothing) {
    AddDays(4);
    EXPECT_EQ(Export(AllEntries(journal_), nullptr, [&](int) { journal_.SeekFirst(); }), 4);
    EXPECT_EQ(Bytes(File()), "\"entry 0\"\r\n\"entry 1\"\r\n\"entry 2\"\r\n\"entry 3\"\r\n");
}

TEST_F(EntryExportTest, AnEntryDeletedMeanwhileIsNeitherWrittenNorCounted) {
    const std::vector<CEOID> ids = AddDays(4);
    DbJournal other;
    ASSERT_TRUE(other.Open(nullptr));
    EXPECT_EQ(Export(AllEntries(journal_), nullptr,
                     [&](int written) {
                         if (written == 1) other.DeleteRecord(ids[0]), other.DeleteRecord(ids[2]);
                     }),
              3);
    other.Close();
    EXPECT_EQ(Bytes(File()), "\"entry 0\"\r\n\"entry 1\"\r\n\"entry 3\"\r\n");
}

TEST_F(EntryExportTest, AnEntryThatMovesMeanwhileIsWrittenOnce) {
    const std::vector<CEOID> ids = AddDays(3);
    DbJournal other;
    ASSERT_TRUE(other.Open(nullptr));
    bool moved = false;
    const auto move = [&](int) {
        if (moved) return;
        moved = true;
        CEPROPVAL start = {};
        start.propid = kPropStart;
        start.val.filetime = DateTime(SYSTEMTIME{2003, 1, 0, 1, 0, 0, 0, 0}).ToFileTime();
        ASSERT_EQ(other.WriteRecordProps(ids[0], 1, &start), ids[0]);
        ASSERT_NE(Add({L"late"}), 0u);
    };
    EXPECT_EQ(Export(AllEntries(journal_), nullptr, move), 3);
    other.Close();
    EXPECT_EQ(Bytes(File()), "\"entry 0\"\r\n\"entry 1\"\r\n\"entry 2\"\r\n");
}

TEST_F(EntryExportTest, TellsAfterEveryEntryHowManyAreWritten) {
    const std::vector<CEOID> ids = AddDays(3);
    ASSERT_TRUE(journal_.DeleteRecord(ids[1]));
    std::vector<int> told;
    EXPECT_EQ(Export(ids, nullptr, [&](int written) { told.push_back(written); }), 2);
    EXPECT_THAT(told, ElementsAre(1, 1, 2));
}
