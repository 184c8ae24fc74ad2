// The two formats of an export file.
#pragma once

#include <memory>

#include "data/dbj_item.h"
#include "data/ts_list.h"

class AnsiOutput;
class FieldTexts;

enum class ExportFormat {
    kText = 0,  // a line for each field
    kCsv = 1,   // a line for each entry: "value","value"
};

// Writes the fields that carry kFieldExported, in the list's order. Both formats end lines with CR LF, neither begins
// with a byte-order mark.
class ExportWriter {
public:
    virtual ~ExportWriter() = default;

    // What stands before the first entry. `fields` need not hold values.
    virtual void WriteHeader(const TSList<DbJItem>& fields) = 0;
    virtual void WriteEntry(const TSList<DbJItem>& entry) = 0;
};

// With `labels` a CSV file begins with a line of the fields' labels, and in a text file each value stands behind its
// own. Both references must outlive the writer.
//
// CSV is written as plainly as it can be: a quote within a value is not doubled, a line break within a value is written
// as it is. An entry none of whose fields is exported leaves no trace in either format.
std::unique_ptr<ExportWriter> MakeExportWriter(ExportFormat format, bool labels, AnsiOutput& output, FieldTexts& texts);
