#include "list/entry_list.h"

#include <algorithm>
#include <iterator>

#include <aygshell.h>
#include <px.h>

#include "data/db_journal.h"
#include "filter/filter_settings.h"
#include "list/date_column.h"
#include "res/ids.h"
#include "ui/resource_text.h"

namespace {

constexpr int kDateColumn = 0;
constexpr int kEntryColumn = 1;
constexpr int kEntryWidth = 180;
constexpr int kRowHeight = 18;  // a stylus hits it

POINT PointIn(LPARAM lparam) {
    return {static_cast<short>(LOWORD(lparam)), static_cast<short>(HIWORD(lparam))};
}

// Above this number of rows to select or deselect, showing each costs more than having the whole list drawn again.
constexpr int kManyRows = 1000;

// Stops a visible list from drawing, if wanted, until the end of the block.
class DrawingPause {
public:
    DrawingPause(const ListView& list, bool wanted) : list_(list), paused_(wanted && list.IsVisible()) {
        if (paused_) list_.SendMessage(WM_SETREDRAW, FALSE);
    }
    ~DrawingPause() {
        if (paused_) list_.SendMessage(WM_SETREDRAW, TRUE);
    }
    DrawingPause(const DrawingPause&) = delete;
    DrawingPause& operator=(const DrawingPause&) = delete;

private:
    const ListView& list_;
    const bool paused_;
};

}  // namespace

EntryList* EntryList::live_ = nullptr;

EntryList::EntryList(DbJournal& journal, SelectionMemory& selection, FilterSettings& filter)
    : journal_(journal), selection_(selection), filter_(filter), rows_(journal, filter), cache_(rows_) {}

bool EntryList::CreateIn(HWND parent, const RECT& place) {
    constexpr DWORD kStyle = LVS_REPORT | LVS_OWNERDATA | LVS_NOCOLUMNHEADER | LVS_SHAREIMAGELISTS;
    if (!ListView::CreateIn(parent, IDC_ENTRY_LIST, kStyle, place)) return false;
    SetExtendedStyle(LVS_EX_FULLROWSELECT);
    SetRowHeight(Px(kRowHeight));
    InsertColumn(kDateColumn, LoadText(IDS_COLUMN_DATE).c_str(), DateColumnWidth(*this));
    InsertColumn(kEntryColumn, LoadText(IDS_COLUMN_ENTRY).c_str(), Px(kEntryWidth));
    FitColumns();
    live_ = this;
    return Subclass(Procedure);
}

void EntryList::RefreshList() {
    // Emptying the list and counting may send changes of state: what is to be selected is taken down before.
    const std::vector<CEOID> selected = selection_.Ids();
    const CEOID current = selection_.Current();
    const int top = GetTopIndex();

    DeleteAllItems();
    filter_.RefreshCategories();
    filter_.passed = rows_.Count();
    SetItemCount(filter_.passed);
    FitColumns();
    if (top > 0) EnsureVisible(std::min<int>(top + GetCountPerPage(), filter_.passed) - 1, false);
    Reselect(selected, current);
}

// What SelectEntry of each entry, and of the current one at the end, comes to. The focus is given to the current entry
// alone: moving it from row to row takes the control milliseconds for each.
void EntryList::Reselect(const std::vector<CEOID>& selected, CEOID current) {
    std::vector<MarkedRow> found;
    for (const CEOID id : selected) {
        const int row = RowOf(id);
        if (row < 0) {
            found.clear();  // an entry without a row takes back what was selected so far
        } else {
            found.push_back({row, id});
        }
    }
    selection_.Clear();
    // Without a current entry nothing stays selected, and just now nothing is.
    if (RowOf(current) >= 0) {
        const DrawingPause pause(*this, std::ssize(found) > kManyRows);
        for (const MarkedRow& row : found) {
            selection_.Add(row.id);
            if (row.id != current) Mark(row, LVIS_SELECTED);
        }
    }
    SelectEntry(current);
}

void EntryList::SelectEntry(CEOID id) {
    constexpr UINT kBoth = LVIS_SELECTED | LVIS_FOCUSED;
    const int row = RowOf(id);
    const bool found = row >= 0 && IsWindow();
    if (found) {
        Mark({row, id}, kBoth);
    } else if (row >= 0) {
        SetItemState(row, 0, kBoth);
    } else {
        DeselectAll();
    }
    selection_.SetCurrent(found ? id : 0);
    hasCurrent_ = found;
    if (!found) return;
    EnsureVisible(row, false);
    Update();
}

// An entry's place in the store's order; -1 when it has none.
int EntryList::RowOf(CEOID id) {
    return id == 0 ? -1 : journal_.SeekToOidIndex(id);
}

// Sets a row's states; what the control tells of the row meanwhile is about that entry.
void EntryList::Mark(const MarkedRow& row, UINT states) {
    marked_ = row;
    SetItemState(row.row, states, states);
    marked_ = {};
}

// No row stays selected or focused. To be told so about all rows, the control visits each of them, and shows those that
// were selected: with nothing to take back it is not asked.
void EntryList::DeselectAll() {
    constexpr UINT kBoth = LVIS_SELECTED | LVIS_FOCUSED;
    const int selected = GetSelectedCount();
    if (selected == 0 && GetNextItem(-1, LVNI_FOCUSED) < 0) return;
    const DrawingPause pause(*this, selected > kManyRows);
    SetItemState(-1, 0, kBoth);
}

void EntryList::ShowTop() {
    EnsureVisible(0, false);
}

void EntryList::ClearSelection() {
    selection_.Clear();
    hasCurrent_ = false;
}

int EntryList::GetFocusedEntry(CEOID* id) {
    const int row = GetNextItem(-1, LVNI_FOCUSED | LVNI_SELECTED);
    *id = row < 0 ? 0 : cache_.Fetch(row).id;
    return row;
}

void EntryList::RefreshRow(CEOID id) {
    cache_.Refresh(id);
    Invalidate();
}

void EntryList::Place(const RECT& place) {
    MoveWindow(place.left, place.top, place.right - place.left, place.bottom - place.top);
    FitColumns();
    const int focused = GetNextItem(-1, LVNI_FOCUSED);
    if (focused >= 0) EnsureVisible(focused, false);
}

void EntryList::FitColumns() {
    SetColumnWidth(kDateColumn, DateColumnWidth(*this));
    FitLastColumn();
}

// ---- Stylus: a hold opens the context menu of what lies under it ----

LRESULT CALLBACK EntryList::Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) noexcept {
    EntryList* list = live_;
    if (list == nullptr || list->GetHandle() != hwnd) return DefWindowProcW(hwnd, message, wparam, lparam);
    switch (message) {
        case WM_RBUTTONDOWN: list->TakeShownEntry(PointIn(lparam)); break;
        case WM_LBUTTONDOWN:
            list->TakeShownEntry(PointIn(lparam));
            if (list->OnStylusDown(PointIn(lparam))) return 0;
            break;
        case WM_NCDESTROY: {
            const LRESULT result = list->CallReplaced(message, wparam, lparam);
            list->Detach();
            live_ = nullptr;
            return result;
        }
        default: break;
    }
    return list->CallReplaced(message, wparam, lparam);
}

// While a filter hides some of the entries, the row at an entry's place in the store may show another one. What is
// pressed there is the entry that is seen, not the one that the row was selected for.
void EntryList::TakeShownEntry(POINT point) {
    const int row = HitTest(point);
    if (row < 0 || GetItemState(row, LVIS_SELECTED) == 0) return;
    const CEOID shown = cache_.Fetch(row).id;
    if (shown != 0 && !selection_.Contains(shown)) SelectRow(row);
}

bool EntryList::OnStylusDown(POINT point) {
    SHRGINFO gesture = {sizeof(SHRGINFO), GetHandle(), point, SHRG_RETURNCMD};
    if (SHRecognizeGesture(&gesture) != GN_CONTEXTMENU) return false;
    // The press never reaches the list, so what it would have selected is selected here.
    const int row = HitTest(point);
    if (row >= 0 && GetItemState(row, LVIS_SELECTED) == 0) SelectRow(row);
    NMRGINFO menu = {};
    menu.hdr = {GetHandle(), static_cast<UINT_PTR>(GetId()), GN_CONTEXTMENU};
    menu.ptAction = point;
    ::ClientToScreen(GetHandle(), &menu.ptAction);
    ::SendMessageW(GetParent(), WM_NOTIFY, menu.hdr.idFrom, reinterpret_cast<LPARAM>(&menu));
    return true;
}

void EntryList::SelectRow(int row) {
    constexpr UINT kBoth = LVIS_SELECTED | LVIS_FOCUSED;
    SetFocus();
    SetItemState(-1, 0, LVIS_SELECTED);
    SetItemState(row, kBoth, kBoth);
}
