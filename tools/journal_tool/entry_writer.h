// Adds entries to the journal, many at a time.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "data/dba_item.h"
#include "tools/journal_tool/category_book.h"
#include "tools/journal_tool/store_access.h"

// An entry to be added. Coded fields hold what the editor would give a new entry.
struct NewEntry {
    FILETIME start{};
    ULONGLONG minutes = 0;
    std::wstring subject;
    std::wstring company;
    std::wstring body;  // plain text, \n between lines
    std::vector<std::wstring> categories;
    TSList<DbAItem> contacts;
    short type = kDefaultEntryType;
    short priority = kDefaultPriority;
    short sensitivity = kDefaultSensitivity;
};

// Entries become permanent every few thousand, and with Finish.
class EntryWriter {
public:
    EntryWriter() = default;
    ~EntryWriter();
    EntryWriter(const EntryWriter&) = delete;
    EntryWriter& operator=(const EntryWriter&) = delete;

    // False when the store can't be opened; that was said.
    bool Open();
    // False when the store refuses the entry, which was said; earlier entries are not affected.
    bool Add(const NewEntry& entry);
    // Makes permanent what was added since the last time, with the categories' usage counts. False when that fails:
    // it was said, and those entries are lost.
    bool Finish();

    // How many entries are permanent.
    int GetSaved() const { return saved_; }

private:
    bool Begin();
    bool Write();

    ConsoleJournal journal_;
    CategoryBook categories_;
    TSList<DbJItem> fields_;
    bool batch_ = false;
    int pending_ = 0;
    int saved_ = 0;
};
