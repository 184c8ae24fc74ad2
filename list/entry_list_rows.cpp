// What the list's rows stand for while it is scrolled, drawn and selected in.
#include <algorithm>

#include "filter/filter_settings.h"
#include "list/entry_list.h"

namespace {

constexpr UINT kRowMarks = LVIS_SELECTED | LVIS_FOCUSED;

}  // namespace

// Before anything is drawn: the rows on the screen are read together, and drawn together when one that is there already
// has changed, for the control itself draws only those that have come into view.
void EntryList::ShowRows() {
    const int top = GetTopIndex();
    const int last = std::min<int>(top + GetCountPerPage(), filter_.passed - 1);  // the last may be cut
    if (shown_.Show(top, last, filter_.passed)) Invalidate();
}

// What a row shows may depend on where the list is scrolled to. A row that keys go to is in view before it is asked
// what it stands for.
void EntryList::BringUp(int row) {
    if (!rows_.LeavesOut() || shown_.IsHeld(row) || shown_.IsOnScreen(row) || row >= filter_.passed) return;
    EnsureVisible(row, false);
    ShowRows();
    Update();
}

void EntryList::Hold(int row, CEOID id) {
    if (shown_.Hold(row, id)) RedrawItems(row, row);
}

bool EntryList::IsMarked(int row) const {
    return row == pressed_ || GetItemState(row, kRowMarks) != 0;
}

void EntryList::ReleaseUnmarked() {
    shown_.ReleaseUnless([this](LONG row) { return IsMarked(row); });
}

// ---- Selection tracking ----

void EntryList::OnItemChanged(const NMLISTVIEW& change) {
    if (change.iItem < 0) {
        // Every row at once.
        if (change.uOldState & LVIS_SELECTED) ClearSelection();
        ReleaseUnmarked();
        if (change.uNewState & LVIS_SELECTED) RememberRows(0, filter_.passed - 1, false);
        return;
    }
    if (((change.uOldState | change.uNewState) & kRowMarks) == 0) return;
    if (change.uNewState & kRowMarks) BringUp(change.iItem);
    const CEOID id = shown_.Row(change.iItem).id;
    if ((change.uNewState & kRowMarks) != 0 || IsMarked(change.iItem)) {
        Hold(change.iItem, id);
    } else {
        shown_.Release(change.iItem);
    }
    // The same entry may be selected in another row still.
    if ((change.uOldState & LVIS_SELECTED) && !shown_.IsHeldElsewhere(change.iItem, id)) selection_.Remove(id);
    if (change.uOldState & LVIS_FOCUSED) selection_.SetCurrent(0);
    if (change.uNewState & LVIS_FOCUSED) selection_.SetCurrent(id);
    if (change.uNewState & LVIS_SELECTED) selection_.Add(id);
}

void EntryList::OnRangeChanged(const NMLVODSTATECHANGE& change) {
    ClearSelection();
    ReleaseUnmarked();
    if ((change.uNewState & LVIS_SELECTED) == 0) return;
    // Rows that were seen keep what they showed, before those where the range ends come into view.
    HoldScreen(change.iFrom, change.iTo);
    BringUp(shown_.IsOnScreen(change.iTo) ? change.iFrom : change.iTo);
    HoldScreen(change.iFrom, change.iTo);
    RememberRows(change.iFrom, change.iTo, (change.uNewState & LVIS_FOCUSED) != 0);
}

// The rows of a range that are on the screen stand for the entries they show.
void EntryList::HoldScreen(int from, int to) {
    const int top = GetTopIndex();
    for (int row = std::max(from, top); row <= to && shown_.IsOnScreen(row); ++row)
        Hold(row, shown_.Row(row).id);
}

void EntryList::RememberRows(int from, int to, bool focused) {
    int hinted = from - 1;
    for (int row = from; row <= to; ++row) {
        if (row > hinted && !shown_.IsOnScreen(row)) {
            hinted = std::min<int>(row + RowCache::kBlockRows, filter_.passed) - 1;
            shown_.Hint(row, hinted, filter_.passed);
        }
        const CEOID id = shown_.Row(row).id;
        Hold(row, id);
        if (focused) selection_.SetCurrent(id);
        selection_.Add(id);
    }
}
