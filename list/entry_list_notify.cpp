// What the list answers to its control's notifications.
#include "data/db_journal.h"
#include "filter/filter_settings.h"
#include "list/entry_list.h"
#include "list/tap_guard.h"
#include "res/ids.h"
#include "ui/application.h"

LRESULT EntryList::OnNotify(NMHDR* header) {
    switch (header->code) {
        case LVN_GETDISPINFOW: OnGetDispInfo(reinterpret_cast<NMLVDISPINFOW*>(header)); return 0;
        case LVN_ODFINDITEMW: return -1;  // no search by typing
        case LVN_DELETEALLITEMS: shown_.Clear(); return 0;
        case LVN_ITEMCHANGED: OnItemChanged(*reinterpret_cast<NMLISTVIEW*>(header)); return 0;
        case LVN_ODSTATECHANGED: OnRangeChanged(*reinterpret_cast<NMLVODSTATECHANGE*>(header)); return 0;
        case LVN_ODCACHEHINT: {
            const auto& hint = *reinterpret_cast<NMLVCACHEHINT*>(header);
            shown_.Hint(hint.iFrom, hint.iTo, filter_.passed);
            return 0;
        }
        case HDN_ITEMCLICKW: OnHeaderClick(reinterpret_cast<NMHEADERW*>(header)->iItem); return 0;
        case NM_CLICK: OnTap(); return 0;
        case NM_RETURN:
            if (selection_.Current() != 0) SendCommand(IDM_OPEN_ENTRY);
            return 0;
        case NM_DBLCLK:
            if (selection_.Current() != 0) SendCommand(IDM_EDIT_ENTRY);
            return 0;
        case NM_CUSTOMDRAW: return OnCustomDraw(*reinterpret_cast<NMLVCUSTOMDRAW*>(header));
        default: return 0;
    }
}

void EntryList::SendCommand(WORD id) {
    ::SendMessageW(GetParent(), WM_COMMAND, MAKEWPARAM(id, 0), reinterpret_cast<LPARAM>(GetHandle()));
}

void EntryList::OnGetDispInfo(NMLVDISPINFOW* info) {
    LVITEMW& item = info->item;
    const ListRow& row = shown_.Row(item.iItem);
    if (item.mask & LVIF_PARAM) item.lParam = static_cast<LPARAM>(row.id);
    if ((item.mask & LVIF_TEXT) && item.pszText != nullptr && item.cchTextMax > 0) {
        const std::wstring& text = item.iSubItem == 0 ? row.date : row.subject;
        lstrcpynW(item.pszText, text.c_str(), item.cchTextMax);
    }
}

// ---- Taps ----

void EntryList::OnTap() {
    // With Shift or Ctrl a tap extends the selection and opens nothing.
    const bool extends = GetKeyState(VK_SHIFT) < 0 || GetKeyState(VK_CONTROL) < 0;
    if (selection_.Current() == 0 || extends) return;
    SwallowSecondTap([] {
        if (live_ != nullptr) ::PostMessageW(live_->GetParent(), WM_COMMAND, IDM_EDIT_ENTRY, 0);
    });
    SendCommand(IDM_OPEN_ENTRY);
}

// A click on a column title turns that sort order round. The list has no visible titles: nothing sends this today.
void EntryList::OnHeaderClick(int column) {
    SORTORDERSPEC orders[CEDB_MAXSORTORDER] = {};
    if (column < 0 || column >= CEDB_MAXSORTORDER) return;
    journal_.GetSortOrders(orders);
    orders[column].dwFlags ^= CEDB_SORT_DESCENDING;
    Application::Current()->SetBusy(true);
    journal_.SetSortOrder(orders, 2);
    RefreshList();
    Application::Current()->SetBusy(false);
}
