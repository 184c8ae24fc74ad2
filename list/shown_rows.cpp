#include "list/shown_rows.h"

#include <utility>

const ListRow& ShownRows::Row(LONG row) {
    if (IsOnScreen(row)) return screen_[static_cast<size_t>(row - top_)];
    const auto held = held_.find(row);
    if (held == held_.end()) return cache_.Fetch(row);
    ReadHeld(held->second, single_);
    return single_;
}

bool ShownRows::Show(LONG top, LONG last, LONG count) {
    count_ = count;
    const auto rows = static_cast<size_t>(last < top ? 0 : last - top + 1);
    if (!renew_ && top == top_ && rows == screen_.size()) return false;
    return Read(top, last);
}

bool ShownRows::Renew() {
    return Read(top_, top_ + static_cast<LONG>(screen_.size()) - 1);
}

bool ShownRows::Read(LONG top, LONG last) {
    renew_ = false;
    std::vector<ListRow> rows(static_cast<size_t>(last < top ? 0 : last - top + 1));
    if (source_.LeavesOut()) {
        // From the cache's two blocks, which began at different places, the screen could show an entry twice.
        source_.ReadRows(top, rows);
    } else {
        cache_.Hint(top, last, count_);
        for (LONG row = top; row <= last; ++row)
            rows[static_cast<size_t>(row - top)] = cache_.Fetch(row);
    }
    bool changed = false;
    for (LONG row = top; row <= last; ++row) {
        ListRow& now = rows[static_cast<size_t>(row - top)];
        const auto held = held_.find(row);
        if (held != held_.end() && held->second != now.id) ReadHeld(held->second, now);
        if (IsOnScreen(row) && now != screen_[static_cast<size_t>(row - top_)]) changed = true;
    }
    screen_ = std::move(rows);
    top_ = top;
    return changed;
}

void ShownRows::ReadHeld(CEOID id, ListRow& row) {
    row.Clear();
    if (id != 0 && source_.SeekEntry(id)) source_.ReadRow(row);
}

void ShownRows::Refresh(CEOID id) {
    cache_.Refresh(id);
    Renew();
}

void ShownRows::Hint(LONG from, LONG to, LONG count) {
    if (!IsOnScreen(from) || !IsOnScreen(to)) cache_.Hint(from, to, count);
}

void ShownRows::Clear() {
    cache_.Clear();
    screen_.clear();
    held_.clear();
    holders_.clear();
    renew_ = false;
}

bool ShownRows::Hold(LONG row, CEOID id) {
    const auto [held, isNew] = held_.try_emplace(row, id);
    if (!isNew) Uncount(std::exchange(held->second, id));
    ++holders_[id];
    if (!IsOnScreen(row)) return false;
    ListRow& shown = screen_[static_cast<size_t>(row - top_)];
    if (shown.id == id) return false;
    ReadHeld(id, shown);
    return true;
}

void ShownRows::Release(LONG row) {
    const auto held = held_.find(row);
    if (held == held_.end()) return;
    Uncount(held->second);
    held_.erase(held);
    renew_ = true;
}

bool ShownRows::IsHeldFor(LONG row, CEOID id) const {
    const auto held = held_.find(row);
    return held != held_.end() && held->second == id;
}

bool ShownRows::IsHeldElsewhere(LONG row, CEOID id) const {
    const auto holders = holders_.find(id);
    return holders != holders_.end() && holders->second > (IsHeldFor(row, id) ? 1 : 0);
}

void ShownRows::Uncount(CEOID id) {
    const auto holders = holders_.find(id);
    if (holders != holders_.end() && --holders->second == 0) holders_.erase(holders);
}
