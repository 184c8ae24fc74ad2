// Entries of the journal on their way into a file, without any window.
#pragma once

#include <windbase.h>

#include <functional>
#include <vector>

#include "data/dbj_item.h"
#include "data/ts_list.h"

class DbJournal;
class EntryWriter;
struct FilterSettings;

class EntryExport {
public:
    // Told after every entry visited how many have been written. It may use the journal, and so may what it lets run.
    using Progress = std::function<void(int written)>;

    // `fields` are all fields in the journal's order; those with kFieldExported are written. All must outlive the
    // object. An entry that does not pass `filter` (may be null) is left out.
    EntryExport(DbJournal& journal, TSList<DbJItem>& fields, const FilterSettings* filter, EntryWriter& writer);

    // Writes the header and then the entries, in the order given; an entry that is gone by the time of its turn is left
    // out. Answers how many were written: those also count of which no field is exported. Moves the journal's current
    // position, and replaces the values in `fields`.
    int Run(const std::vector<CEOID>& entries, const Progress& progress = {});

private:
    bool Read(CEOID entry);

    DbJournal& journal_;
    TSList<DbJItem>& fields_;
    const FilterSettings* filter_;
    EntryWriter& writer_;
};

// Every entry of the journal as it is now, in its sort order. Each is exported once then, also when another program
// adds entries or changes their order meanwhile.
std::vector<CEOID> AllEntries(DbJournal& journal);
