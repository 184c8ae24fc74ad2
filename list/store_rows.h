// The journal store as a source of list rows, in the store's sort order.
#pragma once

#include <optional>

#include "list/passing_order.h"
#include "list/row_source.h"

class DbJournal;
struct FilterSettings;

// Rows are counted in one of two ways while a filter is active:
// - in the store's own positions, of which the first are shown, as many as there are entries that pass;
// - where the setting "fWhole" is not 0, among the entries that pass: row i is the i-th of them.
// Everything that turns a row into an entry or an entry into a row is here; nobody else knows of the two ways. Which of
// them holds is decided by Count, and stays until the next one.
//
// Seeks move the store's current entry; whoever needs it elsewhere seeks again. A row costs one read of three
// properties.
class StoreRows : public RowSource {
public:
    // Both must outlive the object.
    StoreRows(DbJournal& journal, const FilterSettings& filter) : journal_(journal), filter_(filter) {}

    bool SeekPosition(LONG position) override;
    bool SeekEntry(CEOID id) override;
    bool ReadRow(ListRow& row) override;
    // Where rows are counted among the entries that pass, one that cannot be shown any more leaves its row empty: those
    // behind it stay where they are.
    LONG ReadRows(LONG position, std::span<ListRow> rows) override;
    bool LeavesOut() const override;

    // How many rows the list has. One question to the store; a pass over every entry while a filter is active. The
    // current entry stays. Nothing when the store cannot tell, which is not reported; the way of counting stays then.
    std::optional<LONG> Count();
    // The row of an entry; -1 when it has none. Moves the current entry to it.
    LONG RowOf(CEOID id);
    // Whether the entry is there and may be shown. Moves the current entry to it.
    bool IsShown(CEOID id);

private:
    bool CountsPassing() const;
    std::optional<LONG> CountAll();
    std::optional<LONG> CountPassing();
    std::optional<LONG> CollectPassing();
    LONG ReadPassing(LONG row, std::span<ListRow> rows);
    bool Fill(ListRow& row, CEOID id, const CEPROPVAL* props) const;
    bool Passes(const CEPROPVAL* props) const;

    DbJournal& journal_;
    const FilterSettings& filter_;
    std::optional<PassingOrder> passing_;  // while rows are counted among the entries that pass
};
