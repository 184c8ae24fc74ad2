// Entries of the journal on their way into a file, without any window.
#pragma once

#include <windbase.h>

#include <functional>
#include <vector>

#include "data/dbj_item.h"
#include "data/ts_list.h"
#include "export/export_writer.h"
#include "export/field_texts.h"

class DbCats;
class DbJournal;
class ExportFile;
struct FilterSettings;

class EntryExport {
public:
    // Told after every entry visited how many have been written. It may use the journal, and so may what it lets run.
    using Progress = std::function<void(int written)>;

    // `fields` are all fields in the journal's order; those with kFieldExported are written. All must outlive the
    // object. An entry that does not pass `filter` (may be null) is left out.
    EntryExport(DbJournal& journal, TSList<DbJItem>& fields, const FilterSettings* filter, ExportWriter& writer);

    // Writes the header and then the entries, in the order given; an entry that is gone by the time of its turn is left
    // out. Answers how many were written: those also count of which no field is exported. Moves the journal's current
    // position, and replaces the values in `fields`.
    int Run(const std::vector<CEOID>& entries, const Progress& progress = {});

private:
    bool Read(CEOID entry);

    DbJournal& journal_;
    TSList<DbJItem>& fields_;
    const FilterSettings* filter_;
    ExportWriter& writer_;
};

// Every entry of the journal as it is now, in its sort order. Each is exported once then, also when another program
// adds entries or changes their order meanwhile.
std::vector<CEOID> AllEntries(DbJournal& journal);

// What an export is asked for, apart from the entries.
struct ExportChoices {
    ExportFormat format = ExportFormat::kCsv;
    bool labels = true;                      // a CSV file's header, a text file's labels
    const FilterSettings* filter = nullptr;  // none: every entry passes
};

// A whole export as EntryExport does it, into a file that the caller has created and that ends there. Answers how many
// entries were written.
int ExportEntries(DbJournal& journal, TSList<DbJItem>& fields, const ExportChoices& choices,
                  const std::vector<CEOID>& entries, FieldTexts& texts, ExportFile& file,
                  const EntryExport::Progress& progress = {});

// The names in a categories database that is opened with the first question: a journal without categories needs none.
// `categories` must outlive the answer.
CategoryNames NamesOf(DbCats& categories);
