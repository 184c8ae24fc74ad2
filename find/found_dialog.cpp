#include "find/found_dialog.h"

#include <iterator>

#include "find/entry_search.h"
#include "list/detail_view.h"
#include "list/open_keys.h"
#include "list/selection_memory.h"
#include "ui/busy_scope.h"
#include "ui/paint_windows.h"
#include "ui/resource_text.h"

namespace {

constexpr DWORD kPaintEvery = 40;  // milliseconds

}  // namespace

FoundDialog* FoundDialog::live_ = nullptr;

FoundDialog::FoundDialog(DbJournal& journal, SelectionMemory& selection, FindRequest& request)
    : journal_(journal), selection_(selection), request_(request), start_(selection.Current()) {}

INT_PTR FoundDialog::Run(Window& owner, DbJournal& journal, SelectionMemory& selection, FindRequest& request) {
    FoundDialog dialog(journal, selection, request);
    DialogParams params(&dialog);
    return dialog.DoModal(GetModuleHandleW(nullptr), IDD_FOUND, owner.GetHandle(), Procedure, &params);
}

INT_PTR CALLBACK FoundDialog::Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) noexcept {
    if (message == WM_INITDIALOG) return Begin(hwnd, lparam, live_);
    if (live_ == nullptr) return FALSE;
    switch (message) {
        case WM_COMMAND: return live_->OnCommand(LOWORD(wparam));
        case WM_NOTIFY: return live_->OnNotify(*reinterpret_cast<NMHDR*>(lparam));
        case WM_SIZE: return live_->LayOut(), TRUE;
        case WM_SETTINGCHANGE: return live_->OnSettingChange(wparam, lparam);
        case kSecondTap: return DetailView::EndToEdit(), TRUE;
        case WM_NCDESTROY: return End(live_);
        default: return FALSE;
    }
}

// ---- Messages ----

INT_PTR FoundDialog::OnInitDialog(void*) {
    count_.AttachItem(GetHandle(), IDC_FOUND_COUNT);
    list_.AttachItem(GetHandle(), IDC_FOUND_LIST);
    notes_.emplace(GetHandle(), IDC_FOUND_NOTE);
    MakeList();
    if (Search()) list_.SetFocus();
    return FALSE;
}

INT_PTR FoundDialog::OnCommand(WORD id) {
    if (id != IDOK && id != IDCANCEL) return FALSE;
    Finish();
    return TRUE;
}

INT_PTR FoundDialog::OnNotify(NMHDR& header) {
    if (header.idFrom != IDC_FOUND_LIST) return FALSE;
    switch (header.code) {
        case LVN_GETDISPINFOW: OnGetDispInfo(reinterpret_cast<NMLVDISPINFOW&>(header).item); return TRUE;
        case LVN_ODFINDITEMW: return Answer(-1);  // no search by typing
        case NM_CLICK: OnTap(reinterpret_cast<const NMITEMACTIVATE&>(header).iItem); return TRUE;
        default: return FALSE;
    }
}

INT_PTR FoundDialog::OnSettingChange(WPARAM wparam, LPARAM lparam) {
    LayOut();
    return HandleSettingChange(wparam, lparam);
}

bool FoundDialog::WantsKey(HWND, UINT key) const {
    return IsOpenKey(key) || key == VK_F3;
}

void FoundDialog::OnKey(HWND, UINT key) {
    if (searching_) return;
    if (key == VK_F3) return OpenNext();
    const int row = list_.GetNextItem(-1, LVNI_FOCUSED);
    if (row >= 0 && row < std::ssize(rows_)) OpenEntry(rows_[static_cast<size_t>(row)].entry);
}

// What a notification gets for an answer.
INT_PTR FoundDialog::Answer(LRESULT result) {
    SetWindowLong(DWLP_MSGRESULT, result);
    return TRUE;
}

void FoundDialog::Finish() {
    over_ = true;
    EndDialog(GetHandle(), IDOK);
}

// ---- Searching ----

// Fills the list anew; false when nothing was found, which is said and ends the screen, or when the screen has ended.
bool FoundDialog::Search() {
    int found = 0;
    {
        const BusyScope busy;
        EntrySearch search(
            journal_, [this](const CEBLOB& note, std::wstring& text) { notes_->Read(note.lpb, note.dwCount, text); });
        painted_ = GetTickCount();
        searching_ = true;
        found = search.Run(request_, start_, [this, &search] { return GoOn(&search); });
        if (!IsOver() && found > 0) ShowResults();
        searching_ = false;
    }
    if (IsOver()) return false;
    if (found > 0) return true;
    MessageBox(LoadText(IDS_FOUND_NONE).c_str(), LoadText(IDS_APP_TITLE).c_str(), MB_OK);
    if (!IsOver()) Finish();
    return false;
}

// Now and then shows how far the search has come, and hears whether the user has left. Other programs' messages may
// come in between, and close the screen or all of the journal.
bool FoundDialog::GoOn(const EntrySearch* search) {
    if (over_) return false;
    const DWORD now = GetTickCount();
    if (now - painted_ < kPaintEvery) return true;
    if (search) ShowCount(search->FoundSoFar());
    if (!IsVisible()) Show();
    TakeInput();
    if (!IsOver()) PaintWindows();
    painted_ = GetTickCount();
    return !IsOver();
}

void FoundDialog::ShowCount(int found) {
    wchar_t text[40];
    wsprintfW(text, LoadText(IDS_FOUND_COUNT).c_str(), found);
    count_.SetText(text);
}

// Keys and taps on this screen, which is the only one that can have any, and what comes of them.
void FoundDialog::TakeInput() {
    const HWND screen = GetHandle();
    MSG message;
    while (!IsOver() && PeekMessageW(&message, screen, 0, 0, PM_REMOVE)) {
        if (IsDialogMessageW(screen, &message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}
