#include "export/entry_export.h"

#include "data/db_cats.h"
#include "data/db_journal.h"
#include "data/field_ids.h"
#include "export/ansi_output.h"
#include "export/export_file.h"
#include "filter/filter_settings.h"

EntryExport::EntryExport(DbJournal& journal, TSList<DbJItem>& fields, const FilterSettings* filter,
                         ExportWriter& writer)
    : journal_(journal), fields_(fields), filter_(filter), writer_(writer) {}

int EntryExport::Run(const std::vector<CEOID>& entries, const Progress& progress) {
    writer_.WriteHeader(fields_);
    int written = 0;
    for (const CEOID entry : entries) {
        if (Read(entry)) {
            writer_.WriteEntry(fields_);
            ++written;
        }
        if (progress) progress(written);
    }
    return written;
}

bool EntryExport::Read(CEOID entry) {
    if (journal_.ReadValues(entry, &fields_) != entry) return false;
    if (!filter_) return true;
    return filter_->Match(FindFieldByPropID(fields_, kPropStart)->GetFileTime(),
                          *FindFieldByPropID(fields_, kPropCategories)->GetBlob());
}

std::vector<CEOID> AllEntries(DbJournal& journal) {
    std::vector<CEOID> entries;
    entries.reserve(journal.GetRecordCount());
    for (CEOID entry = journal.SeekFirst(); entry != 0; entry = journal.SeekNext())
        entries.push_back(entry);
    return entries;
}

int ExportEntries(DbJournal& journal, TSList<DbJItem>& fields, const ExportChoices& choices,
                  const std::vector<CEOID>& entries, FieldTexts& texts, ExportFile& file,
                  const EntryExport::Progress& progress) {
    AnsiOutput output(file);
    const auto writer = MakeExportWriter(choices.format, choices.labels, output, texts);
    const int written = EntryExport(journal, fields, choices.filter, *writer).Run(entries, progress);
    output.Flush();
    file.SetEnd();
    return written;
}

CategoryNames NamesOf(DbCats& categories) {
    return [&categories, opened = false](CEOID category) mutable {
        if (!opened) categories.Open(nullptr);
        opened = true;
        return categories.GetName(category);
    };
}
