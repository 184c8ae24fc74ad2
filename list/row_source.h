// Where the list gets its rows from: the entries in list order, one current entry at a time or some in a piece.
#pragma once

#include <span>

#include "list/list_row.h"

class RowSource {
public:
    virtual ~RowSource() = default;

    // Makes the entry at `position` (0 is the first) current. False when there is none; no entry is current then.
    virtual bool SeekPosition(LONG position) = 0;
    // The same for the entry with this id.
    virtual bool SeekEntry(CEOID id) = 0;
    // Reads the current entry into `row`, reusing its strings. False when the entry cannot be read or is not to be
    // shown; the row is empty then. The current entry stays.
    virtual bool ReadRow(ListRow& row) = 0;
    // Reads the entries from `position` on into rows, reusing their strings and leaving out what is not to be shown,
    // until all are filled or there are no more entries. Answers how many are filled. The current entry stays.
    virtual LONG ReadRows(LONG position, std::span<ListRow> rows) = 0;
    // Whether ReadRows may leave entries out, so that what a row shows depends on where the reading began.
    virtual bool LeavesOut() const { return false; }
};
