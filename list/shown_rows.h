// What each row of the list stands for: the one place that drawing, texts, taps and keys ask.
//
// Rows on the screen are read in one piece and kept until they are read anew. A row that was selected or focused stands
// for the entry it was marked for as long as it is marked, wherever the list is scrolled and whatever the store's order
// has come to mean meanwhile. All other rows come through the row cache.
//
// Knows no window. Invariants:
// 1. A row on the screen answers what it was drawn with, until Show or Renew has said that it is to be drawn again.
// 2. A held row on the screen shows its entry, or nothing when that entry cannot be shown any more.
#pragma once

#include <unordered_map>
#include <vector>

#include "list/row_cache.h"

class ShownRows {
public:
    // Must outlive the object.
    explicit ShownRows(RowSource& source) : source_(source), cache_(source) {}

    // Never fails: a row that cannot be had is empty. The reference is good until the next call.
    const ListRow& Row(LONG row);
    // Whether the row is one of those on the screen.
    bool IsOnScreen(LONG row) const { return row >= top_ && row < top_ + static_cast<LONG>(screen_.size()); }

    // Rows `top` to `last` (inclusive; none when it is less) of a list of `count` rows are on the screen now. True when
    // a row that was there before has another content: then all of them are to be drawn again.
    bool Show(LONG top, LONG last, LONG count);
    // Reads the rows on the screen anew. True as above.
    bool Renew();
    // The entry has changed: its rows are read anew.
    void Refresh(CEOID id);
    // Rows that will be asked for next, of a list of `count` rows.
    void Hint(LONG from, LONG to, LONG count);
    // Forgets every row, the held ones too: the list is empty.
    void Clear();

    // ---- Marked rows ----

    // The row stands for this entry (0: for none) from now on. True when it is on the screen and showed another one.
    bool Hold(LONG row, CEOID id);
    void Release(LONG row);
    // Releases every row for which `isMarked` answers false.
    template <typename IsMarked>
    void ReleaseUnless(IsMarked isMarked) {
        std::erase_if(held_, [&](const auto& held) {
            if (isMarked(held.first)) return false;
            Uncount(held.second);
            return true;
        });
        renew_ = true;
    }
    // Whether the row is held, and for which entry.
    bool IsHeld(LONG row) const { return held_.contains(row); }
    bool IsHeldFor(LONG row, CEOID id) const;
    // Whether a row other than `row` is held for the entry.
    bool IsHeldElsewhere(LONG row, CEOID id) const;

private:
    bool Read(LONG top, LONG last);
    void ReadHeld(CEOID id, ListRow& row);
    void Uncount(CEOID id);

    RowSource& source_;
    RowCache cache_;
    std::vector<ListRow> screen_;  // from top_ on
    LONG top_ = 0;
    LONG count_ = 0;
    bool renew_ = false;                      // a row on the screen was released: it may show another entry
    ListRow single_;                          // a held row outside the screen
    std::unordered_map<LONG, CEOID> held_;    // by row
    std::unordered_map<CEOID, int> holders_;  // how many rows are held for an entry
};
