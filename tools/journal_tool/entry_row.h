// One entry as a row of tab-separated values, and back.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tools/journal_tool/entry_writer.h"

enum class Column {
    kStart,
    kSubject,
    kBody,
    kCategories,
    kContacts,
    kType,
    kPriority,
    kSensitivity,
    kDuration,
    kCompany
};

// The columns' names, in the order in which rows are written.
std::wstring ColumnNames();

// Which column each field of a row is.
class RowLayout {
public:
    // Reads the row of names, without regard to letter case. Answers what is wrong with it, "" for nothing.
    std::wstring Parse(std::string_view header);
    // Reads a row. Answers what is wrong with it, "" for nothing; then `entry` is that row's.
    std::wstring ReadRow(std::string_view row, NewEntry* entry) const;

private:
    std::vector<Column> columns_;
};

// The row of an entry, with "\n" at its end: one that a RowLayout of all columns reads, whatever the entry holds. Tabs
// and line ends in other fields than the body become blanks. A start that names no date, and a value that is none of
// the journal's words, is written as the number that the store has.
std::wstring MakeRow(const NewEntry& entry);
