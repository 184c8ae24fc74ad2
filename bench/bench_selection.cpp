// What selecting and scrolling cost on the real control, beside the system's own list view that is told the same.
#include <win.h>

#include <string>

#include "bench/bare_list.h"
#include "bench/bench.h"
#include "list/entry_list.h"

namespace {

// Hands the control's notifications to the list that is measured; a bare list gets ready texts.
LRESULT CALLBACK FrameProcedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_NOTIFY) {
        auto* header = reinterpret_cast<NMHDR*>(lparam);
        auto* list = reinterpret_cast<EntryList*>(GetWindowLongPtrW(hwnd, GWLP_USERDATA));
        if (list != nullptr) return list->OnNotify(header);
        if (header->code == LVN_GETDISPINFOW) {
            LVITEMW& item = reinterpret_cast<NMLVDISPINFOW*>(header)->item;
            if (item.mask & LVIF_TEXT)
                lstrcpynW(item.pszText, item.iSubItem == 0 ? L"5/7/2001" : L"Call about the delivery", item.cchTextMax);
        }
        return 0;
    }
    return DefWindowProcW(hwnd, message, wparam, lparam);
}

HWND MakeNotifiedFrame(EntryList* list) {
    const HWND frame = MakeFrame();
    SetWindowLongPtrW(frame, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(list));
    SetWindowLongPtrW(frame, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(FrameProcedure));
    return frame;
}

void SetState(HWND list, int row, UINT state, UINT mask) {
    LVITEMW item = {};
    item.state = state;
    item.stateMask = mask;
    ::SendMessageW(list, LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

// To a row and back, drawn each time.
void ScrollTo(HWND list, int row) {
    ::SendMessageW(list, LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
    UpdateWindow(list);
}

}  // namespace

void Bench::Selection() {
    constexpr UINT kBoth = LVIS_SELECTED | LVIS_FOCUSED;
    SelectionMemory selection;
    EntryList list(journal_, selection, filter_);
    const HWND parent = MakeNotifiedFrame(&list);
    const HWND bareParent = MakeNotifiedFrame(nullptr);
    Require(list.CreateIn(parent, {0, 0, 240, 294}), "making the list");
    ::ShowWindow(list.GetHandle(), SW_SHOW);
    const HWND bare = MakeBareList(bareParent, list);
    ::ShowWindow(bare, SW_SHOW);
    list.RefreshList();
    ::SendMessageW(bare, LVM_SETITEMCOUNT, entries_, 0);
    const CEOID middle = journal_.SeekFromBeginning(static_cast<DWORD>(Middle()));

    // Drawn once at the end: row by row, the control alone takes seconds.
    const auto setAll = [](HWND control, UINT state, UINT mask) {
        ::SendMessageW(control, WM_SETREDRAW, FALSE, 0);
        SetState(control, -1, state, mask);
        ::SendMessageW(control, WM_SETREDRAW, TRUE, 0);
    };
    const auto selectAll = [&](HWND control) { setAll(control, LVIS_SELECTED, LVIS_SELECTED); };
    const auto deselect = [&](HWND control) { setAll(control, 0, kBoth); };
    Add("select all",
        MeasurePair(
            kSlowRuns, [&] { selectAll(list.GetHandle()); }, [&] { selectAll(bare); },
            [&] { deselect(list.GetHandle()); }, [&] { deselect(bare); }),
        "bare list view");
    Require(selection.Ids().size() == entries_, "remembering all entries");
    Add("refresh, all selected",
        MeasurePair(
            kSlowRuns, [&] { list.RefreshList(); },
            [&] {
                ::SendMessageW(bare, LVM_DELETEALLITEMS, 0, 0);
                ::SendMessageW(bare, LVM_SETITEMCOUNT, entries_, 0);
                ::SendMessageW(bare, WM_SETREDRAW, FALSE, 0);
                for (unsigned row = 0; row < entries_; ++row)
                    SetState(bare, static_cast<int>(row), LVIS_SELECTED, LVIS_SELECTED);
                ::SendMessageW(bare, WM_SETREDRAW, TRUE, 0);
            },
            [&] { selection.SetCurrent(middle); }),
        "bare list view, as many rows selected");
    Require(list.GetSelectedCount() == static_cast<int>(entries_), "selecting all entries again");
    list.SelectEntry(0);
    Add("select entry 0",
        MeasurePair(
            kFewRuns, [&] { list.SelectEntry(0); }, [&] { deselect(bare); }, [&] { list.SelectEntry(middle); },
            [&] { SetState(bare, Middle(), kBoth, kBoth); }),
        "bare list view");
    Add("refresh, one forgotten",
        MeasurePair(
            kFewRuns, [&] { list.RefreshList(); },
            [&] {
                ::SendMessageW(bare, LVM_DELETEALLITEMS, 0, 0);
                ::SendMessageW(bare, LVM_SETITEMCOUNT, entries_, 0);
            },
            [&] { list.SelectEntry(middle), selection.SetCurrent(0); }),
        "bare list view");

    const int page = list.GetCountPerPage();
    const auto scroll = [&](const char* name) {
        int row = 0;
        int bareRow = 0;
        const auto next = [&](int& at) { return at = at + page < list.GetItemCount() ? at + page : 0; };
        list.RefreshList();
        ::SendMessageW(bare, LVM_SETITEMCOUNT, static_cast<WPARAM>(list.GetItemCount()), 0);
        Add(name,
            MeasurePair(
                kRuns, [&] { ScrollTo(list.GetHandle(), next(row)); }, [&] { ScrollTo(bare, next(bareRow)); }),
            "bare list view with ready texts");
    };
    scroll("scroll a page");
    FilterByRange();
    scroll("scroll by range");
    FilterByMonths();
    scroll("scroll by months");
    filter_.active = FALSE;
    filter_.byRange = FALSE;
    DestroyWindow(parent);
    DestroyWindow(bareParent);
}
