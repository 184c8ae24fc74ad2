#include "list/entry_list.h"

#include <algorithm>

#include <aygshell.h>
#include <px.h>

#include "data/db_journal.h"
#include "filter/filter_settings.h"
#include "res/ids.h"
#include "ui/resource_text.h"

namespace {

constexpr int kDateColumn = 0;
constexpr int kEntryColumn = 1;
constexpr int kDateWidth = 60;
constexpr int kEntryWidth = 180;
constexpr int kRowHeight = 18;  // a stylus hits it

// Wide enough for any short date of the user's locale, and never narrower than the column is meant to be.
int DateColumnWidth(HWND list) {
    const SYSTEMTIME wide = {2000, 12, 0, 28, 0, 0, 0, 0};
    wchar_t date[60] = L"";
    GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &wide, nullptr, date, static_cast<int>(std::size(date)));
    const LRESULT text = ::SendMessageW(list, LVM_GETSTRINGWIDTHW, 0, reinterpret_cast<LPARAM>(date));
    return std::max(Px(kDateWidth), static_cast<int>(text) + Px(12));
}

// Stops a visible list from drawing, until the end of the block: each of thousands of selected rows would be shown.
class DrawingPause {
public:
    explicit DrawingPause(const ListView& list) : list_(list), paused_(list.IsVisible()) {
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
    InsertColumn(kDateColumn, LoadText(IDS_COLUMN_DATE).c_str(), Px(kDateWidth));
    InsertColumn(kEntryColumn, LoadText(IDS_COLUMN_ENTRY).c_str(), Px(kEntryWidth));
    FitColumns();
    live_ = this;
    return Subclass(Procedure);
}

void EntryList::RefreshList() {
    // Emptying the list and counting may send changes of state, and re-selecting the first entry does: what is to be
    // selected is taken down before.
    const std::vector<CEOID> selected = selection_.Ids();
    const CEOID current = selection_.Current();

    DeleteAllItems();
    filter_.RefreshCategories();
    filter_.passed = rows_.Count();
    SetItemCount(filter_.passed);
    FitColumns();
    if (!selected.empty()) {  // letting the control draw again costs more than the rest of a rebuild
        const DrawingPause pause(*this);
        for (const CEOID id : selected)
            SelectEntry(id);
    }
    SelectEntry(current);
}

void EntryList::SelectEntry(CEOID id) {
    const int row = MarkEntry(id);
    if (row < 0) return;
    EnsureVisible(row, false);
    Update();
}

int EntryList::MarkEntry(CEOID id) {
    constexpr UINT kBoth = LVIS_SELECTED | LVIS_FOCUSED;
    const int row = id == 0 ? -1 : journal_.SeekToOidIndex(id);
    const bool found = row >= 0 && IsWindow();
    if (row >= 0) {
        SetItemState(row, found ? kBoth : 0, kBoth);
    } else {
        DeselectAll();
    }
    selection_.SetCurrent(found ? id : 0);
    hasCurrent_ = found;
    return found ? row : -1;
}

// No row stays selected or focused. To be told so about all rows, the control visits each of them: with nothing to
// take back, as after most rebuilds, it is not asked.
void EntryList::DeselectAll() {
    constexpr UINT kBoth = LVIS_SELECTED | LVIS_FOCUSED;
    if (GetSelectedCount() > 0 || GetNextItem(-1, LVNI_FOCUSED) >= 0) SetItemState(-1, 0, kBoth);
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
    SetColumnWidth(kDateColumn, DateColumnWidth(GetHandle()));
    FitLastColumn();
}

// ---- Stylus: a hold opens the context menu of what lies under it ----

LRESULT CALLBACK EntryList::Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) noexcept {
    EntryList* list = live_;
    if (list == nullptr || list->GetHandle() != hwnd) return DefWindowProcW(hwnd, message, wparam, lparam);
    switch (message) {
        case WM_LBUTTONDOWN:
            if (list->OnStylusDown({static_cast<short>(LOWORD(lparam)), static_cast<short>(HIWORD(lparam))})) return 0;
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
