#include "list/row_cache.h"

#include <algorithm>

const ListRow& RowCache::Fetch(LONG index) {
    if (near_.Holds(index)) return near_.At(index);
    if (end_.Holds(index)) return end_.At(index);
    single_.Clear();
    if (index >= 0 && source_.SeekPosition(index)) source_.ReadRow(single_);
    return single_;
}

void RowCache::Hint(LONG from, LONG to, LONG visibleCount) {
    if (from < 0 || to < from) return;
    const LONG rows = to - from + 1;
    if (to == visibleCount - 1 && rows < kBlockRows) {
        if (!end_.Holds(from)) Fill(end_, from, rows);
        return;
    }
    // The list asks for one row more than it shows as often as not; that row alone is not worth a new block.
    const bool holdsTo = to >= near_.first && to <= near_.first + near_.count;
    if (!near_.Holds(from) || !holdsTo) Fill(near_, from, rows);
}

void RowCache::Remove(LONG index) {
    if (!RemoveFrom(near_, index)) RemoveFrom(end_, index);
}

void RowCache::Refresh(CEOID id) {
    if (id == 0) return Clear();  // an empty row holds nobody
    const bool inNear = RefreshIn(near_, id);
    const bool inEnd = RefreshIn(end_, id);
    if (!inNear && !inEnd) Clear();
}

void RowCache::Clear() {
    near_.count = 0;
    end_.count = 0;
}

void RowCache::Fill(Block& block, LONG first, LONG rows) {
    block.first = first;
    block.count = source_.ReadRows(first, std::span(block.rows).first(static_cast<size_t>(std::min(rows, kBlockRows))));
}

bool RowCache::RemoveFrom(Block& block, LONG index) {
    if (!block.Holds(index)) return false;
    const auto begin = block.rows.begin();
    std::rotate(begin + (index - block.first), begin + (index - block.first) + 1, begin + block.count);
    block.rows[static_cast<size_t>(--block.count)].Clear();
    return true;
}

bool RowCache::RefreshIn(Block& block, CEOID id) {
    bool found = false;
    for (LONG i = 0; i < block.count; ++i) {
        ListRow& row = block.rows[static_cast<size_t>(i)];
        if (row.id != id) continue;
        found = true;
        if (source_.SeekEntry(id)) {
            source_.ReadRow(row);
        } else {
            row.Clear();
        }
    }
    return found;
}
