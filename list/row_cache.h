// The rows that the list is about to draw, fetched in two blocks: one around what is visible, one kept for the end of
// the list, so that jumping there and back reads nothing twice.
//
// Knows no window and no store. Invariants:
// 1. A block holds rows first .. first + count - 1, 0 <= count <= kBlockRows; count 0 is an empty block.
// 2. The strings of a row outside its block's count are kept for reuse and never handed out.
#pragma once

#include <array>

#include "list/row_source.h"

class RowCache {
public:
    static constexpr LONG kBlockRows = 30;

    // The source is used by every call below but Clear and Remove, and must outlive the cache.
    explicit RowCache(RowSource& source) : source_(source) {}
    RowCache(const RowCache&) = delete;
    RowCache& operator=(const RowCache&) = delete;

    // Row `index`, from a block or else read alone. Never fails: a row that cannot be had is empty. The reference is
    // good until the next call.
    const ListRow& Fetch(LONG index);

    // Rows `from` to `to` (inclusive) of a list of `visibleCount` rows will be asked for next. More rows than fit into
    // a block are fetched one by one as they are asked for.
    void Hint(LONG from, LONG to, LONG visibleCount);

    // Row `index` is gone: the rows behind it in its block move up by one.
    void Remove(LONG index);

    // The entry has changed: its cached rows are read anew. When no row holds it, everything cached is dropped, for
    // the entry may now belong among the cached ones.
    void Refresh(CEOID id);

    void Clear();

private:
    struct Block {
        std::array<ListRow, kBlockRows> rows;
        LONG first = 0;
        LONG count = 0;

        bool Holds(LONG index) const { return index >= first && index < first + count; }
        ListRow& At(LONG index) { return rows[static_cast<size_t>(index - first)]; }
    };

    void Fill(Block& block, LONG first, LONG rows);
    static bool RemoveFrom(Block& block, LONG index);
    bool RefreshIn(Block& block, CEOID id);

    RowSource& source_;
    Block near_;
    Block end_;
    ListRow single_;  // the last row that was in neither block
};
