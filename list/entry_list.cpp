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
constexpr UINT kRowMarks = LVIS_SELECTED | LVIS_FOCUSED;
constexpr UINT_PTR kCountTimer =
    20101;                         // comes while the entries could not be counted; the control has its own, low ones
constexpr UINT kCountPause = 500;  // milliseconds

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
    : journal_(journal), selection_(selection), filter_(filter), rows_(journal, filter), shown_(rows_) {}

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
    if (!IsWindow()) return;  // closed meanwhile, with the journal
    if (journal_.GetHandle() == nullptr) journal_.Open(GetParent());
    if (Rebuild()) return;
    ::SetTimer(GetHandle(), kCountTimer, kCountPause, nullptr);
    if (GetItemCount() == 0) Invalidate();  // says so
}

// Tries once more without a word, and again later if need be.
void EntryList::RetryCount() {
    if (!Rebuild()) ::SetTimer(GetHandle(), kCountTimer, kCountPause, nullptr);
}

// False, with the list as it was, when the entries cannot be counted.
bool EntryList::Rebuild() {
    ::KillTimer(GetHandle(), kCountTimer);
    // Emptying the list may send changes of state: what is to be selected is taken down before.
    const std::vector<CEOID> selected = selection_.Ids();
    const CEOID current = selection_.Current();
    const int top = GetTopIndex();

    filter_.RefreshCategories();
    const std::optional<LONG> count = rows_.Count();
    isCounted_ = count.has_value();
    if (!isCounted_) return false;
    DeleteAllItems();
    filter_.passed = *count;
    SetItemCount(filter_.passed);
    FitColumns();
    if (top > 0) EnsureVisible(std::min<int>(top + GetCountPerPage(), filter_.passed) - 1, false);
    Reselect(selected, current);
    return true;
}

// What SelectEntry of each entry, and of the current one at the end, comes to. The focus is given to the current entry
// alone: moving it from row to row takes the control milliseconds for each.
void EntryList::Reselect(const std::vector<CEOID>& selected, CEOID current) {
    std::vector<EntryRow> found;
    for (const CEOID id : selected) {
        const int row = rows_.RowOf(id);
        if (IsRowOf(row, id)) {
            found.push_back({row, id});
        } else if (!rows_.SeekEntry(id)) {
            found.clear();  // an entry that is gone takes back what was selected so far
        }
    }
    selection_.Clear();
    // Without a current entry nothing stays selected, and just now nothing is.
    if (IsRowOf(rows_.RowOf(current), current)) {
        const DrawingPause pause(*this, std::ssize(found) > kManyRows);
        for (const EntryRow& row : found) {
            selection_.Add(row.id);
            if (row.id != current) Mark(row, LVIS_SELECTED);
        }
    }
    SelectEntry(current);
}

void EntryList::SelectEntry(CEOID id) {
    const int row = rows_.RowOf(id);
    const bool found = IsRowOf(row, id) && IsWindow();
    if (found) {
        Mark({row, id}, kRowMarks);
    } else {
        DeselectAll();
    }
    selection_.SetCurrent(found ? id : 0);
    hasCurrent_ = found;
    if (!found) return;
    EnsureVisible(row, false);
    Update();
}

// Whether the row, an entry's place, is there and may show it.
bool EntryList::IsRowOf(int row, CEOID id) {
    return row >= 0 && row < filter_.passed && rows_.IsShown(id);
}

// Sets a row's states; the row stands for that entry from now on.
void EntryList::Mark(const EntryRow& row, UINT states) {
    // Marked for another entry already, it would not tell that it is marked for this one.
    if (shown_.IsHeld(row.row) && !shown_.IsHeldFor(row.row, row.id)) SetItemState(row.row, 0, kRowMarks);
    Hold(row.row, row.id);
    SetItemState(row.row, states, states);
}

// No row stays selected or focused. To be told so about all rows, the control visits each of them, and shows those that
// were selected: with nothing to take back it is not asked.
void EntryList::DeselectAll() {
    const int selected = GetSelectedCount();
    if (selected == 0 && GetNextItem(-1, LVNI_FOCUSED) < 0) return;
    const DrawingPause pause(*this, selected > kManyRows);
    SetItemState(-1, 0, kRowMarks);
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
    *id = row < 0 ? 0 : shown_.Row(row).id;
    return row;
}

void EntryList::RefreshRow(CEOID id) {
    shown_.Refresh(id);
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
        case WM_PAINT:
        case WM_PRINTCLIENT: list->ShowRows(); break;
        case WM_RBUTTONDOWN: return list->OnPress(message, wparam, lparam);
        case WM_LBUTTONDOWN:
            if (list->OnStylusDown(PointIn(lparam))) return 0;
            return list->OnPress(message, wparam, lparam);
        case WM_TIMER:
            if (wparam != kCountTimer) break;
            list->RetryCount();
            return 0;
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

// A row that is pressed stands for the entry that is seen in it, also when the control brings it whole into view first.
LRESULT EntryList::OnPress(UINT message, WPARAM wparam, LPARAM lparam) {
    const int row = HitTest(PointIn(lparam));
    if (row >= 0) Hold(row, shown_.Row(row).id);
    pressed_ = row;
    const LRESULT result = CallReplaced(message, wparam, lparam);
    if (live_ != this) return result;  // closed together with the screen that the tap has opened
    pressed_ = -1;
    if (row >= 0 && !IsMarked(row)) shown_.Release(row);
    return result;
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
    SetFocus();
    SetItemState(-1, 0, LVIS_SELECTED);
    SetItemState(row, kRowMarks, kRowMarks);
}
