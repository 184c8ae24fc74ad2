// The journal store as a source of list rows, in the store's sort order.
#pragma once

#include "list/row_source.h"

class DbJournal;
struct FilterSettings;

// Seeks move the store's current entry; whoever needs it elsewhere seeks again. A row costs one read of three
// properties.
class StoreRows : public RowSource {
public:
    // Both must outlive the object.
    StoreRows(DbJournal& journal, const FilterSettings& filter) : journal_(journal), filter_(filter) {}

    // Positions are the store's own, also while a filter hides some of the entries.
    bool SeekPosition(LONG position) override;
    bool SeekEntry(CEOID id) override;
    bool ReadRow(ListRow& row) override;
    LONG ReadRows(LONG position, std::span<ListRow> rows) override;

    // How many entries the list shows. One question to the store; a pass over every entry, in whatever order is
    // quickest, while a filter is active. The current entry stays.
    LONG Count();

private:
    bool Fill(ListRow& row, CEOID id, const CEPROPVAL* props) const;
    bool Passes(const CEPROPVAL* props) const;

    DbJournal& journal_;
    const FilterSettings& filter_;
};
