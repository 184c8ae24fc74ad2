#include "pickers/list_panel.h"

#include <algorithm>

#include "res/ids.h"
#include "ui/application.h"

ListPanel* ListPanel::live_ = nullptr;

bool ListPanel::CreateIn(HWND parent, UINT templateId, int id) {
    DialogParams params(this);
    if (!CreateModeless(Application::Current()->GetInstance(), templateId, parent, Procedure, &params)) return false;
    SetWindowLong(GWLP_ID, id);
    return true;
}

INT_PTR CALLBACK ListPanel::Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) noexcept {
    if (message == WM_INITDIALOG) return BeginPanel(hwnd, lparam, live_);
    if (!live_) return FALSE;
    switch (message) {
        case WM_COMMAND: return live_->OnCommand(HIWORD(wparam), LOWORD(wparam));
        case WM_NCDESTROY: return End(live_);
        default: return FALSE;
    }
}

INT_PTR ListPanel::OnInitDialog(void*) {
    text_.AttachItem(GetHandle(), IDC_PANEL_TEXT);
    list_.AttachItem(GetHandle(), IDC_PANEL_LIST);
    text_.SetLimit(limit_);
    WatchKeys(text_.GetHandle(), *this);
    WatchKeys(list_.GetHandle(), *this);
    EnableButtons();
    return FALSE;
}

// The distances between the controls are those of the template.
void ListPanel::Place(const RECT& place) {
    RECT text = {};
    RECT list = {};
    RECT button = {};
    ScreenToClient(IDC_PANEL_TEXT, &text);
    ScreenToClient(IDC_PANEL_LIST, &list);
    ScreenToClient(IDC_PANEL_ADD, &button);
    const int width = place.right - place.left;
    const int height = place.bottom - place.top;
    const int gap = button.left - list.right;
    const int left = width - (button.right - button.left);
    MoveWindow(place.left, place.top, width, height);
    text_.MoveWindow(0, text.top, width, text.bottom - text.top);
    list_.MoveWindow(0, list.top, std::max(left - gap, 0), std::max<int>(height - list.top, 0));
    for (const int id : {IDC_PANEL_ADD, IDC_PANEL_MODIFY, IDC_PANEL_DELETE}) {
        ScreenToClient(id, &button);
        ::SetWindowPos(GetDlgItem(id), nullptr, left, button.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
}

void ListPanel::Reset() {
    list_.SendMessage(WM_SETREDRAW, FALSE);
    list_.Clear();
    Fill();
    list_.SendMessage(WM_SETREDRAW, TRUE);
    list_.Invalidate();
    text_.SetText(L"");
    text_.SetFocus();  // before its button is disabled
    EnableButtons();
}

INT_PTR ListPanel::OnCommand(WORD code, WORD id) {
    const int row = list_.GetSelection();
    bool done = false;
    switch (id) {
        case IDC_PANEL_TEXT:
            if (code == EN_CHANGE) EnableButtons();
            return TRUE;
        case IDC_PANEL_LIST:
            if (code == LBN_SELCHANGE) CopySelected();
            return TRUE;
        case IDC_PANEL_ADD: done = IsAllowed(Text()) && Add(Text()); break;
        case IDC_PANEL_MODIFY: done = row >= 0 && IsAllowed(Text()) && Modify(row, Text()); break;
        case IDC_PANEL_DELETE: done = row >= 0 && Delete(row); break;
        default: return FALSE;
    }
    if (done) Reset();
    return TRUE;
}

void ListPanel::CopySelected() {
    const int row = list_.GetSelection();
    if (row >= 0) text_.SetText(list_.GetString(row).c_str());
    EnableButtons();
}

void ListPanel::EnableButtons() {
    const bool allowed = IsAllowed(Text());
    const bool selected = list_.GetSelection() >= 0;
    EnableItem(IDC_PANEL_ADD, allowed);
    EnableItem(IDC_PANEL_MODIFY, allowed && selected);
    EnableItem(IDC_PANEL_DELETE, selected);
}

bool ListPanel::WantsKey(HWND control, UINT key) const {
    if (control == list_.GetHandle()) return key == VK_DELETE && list_.GetSelection() >= 0;
    return key == VK_RETURN && text_.IsModified() && IsAllowed(Text()) && !Text().empty();
}

void ListPanel::OnKey(HWND, UINT key) {
    if (key == VK_DELETE) {
        OnCommand(BN_CLICKED, IDC_PANEL_DELETE);
    } else {
        OnCommand(BN_CLICKED, list_.GetSelection() >= 0 ? IDC_PANEL_MODIFY : IDC_PANEL_ADD);
    }
}

std::wstring ListPanel::Text() const {
    std::wstring text;
    text_.GetText(text);
    return text;
}
