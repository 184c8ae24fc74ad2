#include "find/find_dialog.h"

#include <px.h>

#include <string>
#include <vector>

#include "find/find_history.h"
#include "ui/application.h"
#include "ui/resource_text.h"

namespace {

constexpr wchar_t kSearchBy[] = L"SearchBy";
constexpr wchar_t kSearchFrom[] = L"SearchFrom";
constexpr wchar_t kMatchCase[] = L"MatchCase";

}  // namespace

FindDialog* FindDialog::live_ = nullptr;

INT_PTR FindDialog::Run(Window& owner, FindRequest& request) {
    FindDialog dialog(request);
    DialogParams params(&dialog);
    return dialog.DoModal(GetModuleHandleW(nullptr), IDD_FIND, owner.GetHandle(), Procedure, &params);
}

INT_PTR CALLBACK FindDialog::Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) noexcept {
    if (message == WM_INITDIALOG) return Begin(hwnd, lparam, live_);
    if (live_ == nullptr) return FALSE;
    switch (message) {
        case WM_COMMAND: return live_->OnCommand(LOWORD(wparam));
        case WM_SIZE: return live_->LayOut(), TRUE;
        case WM_SETTINGCHANGE: return live_->OnSettingChange(wparam, lparam);
        case WM_NCDESTROY: return End(live_);
        default: return FALSE;
    }
}

// ---- Start ----

INT_PTR FindDialog::OnInitDialog(void*) {
    SHSetCloseCommand(GetHandle(), IDCANCEL);
    AttachControls();
    if (!MakeTextBox()) {
        EndDialog(GetHandle(), -1);
        return FALSE;
    }
    LayOut();
    if (request_.date.Ticks() == 0) request_.date.SetNow();
    request_.date.ToPicker(date_.GetHandle());
    ShowSettings();
    ShowHistory();
    // Not a radio button: one that gets the focus is chosen.
    if (byDate_.IsChecked()) {
        date_.SetFocus();
    } else {
        text_.SetFocus();
    }
    return FALSE;
}

void FindDialog::AttachControls() {
    const HWND dialog = GetHandle();
    byDate_.AttachItem(dialog, IDC_FIND_BY_DATE);
    bySubject_.AttachItem(dialog, IDC_FIND_BY_SUBJECT);
    byEntry_.AttachItem(dialog, IDC_FIND_BY_ENTRY);
    fromTop_.AttachItem(dialog, IDC_FIND_FROM_TOP);
    fromCurrent_.AttachItem(dialog, IDC_FIND_FROM_CURRENT);
    matchCase_.AttachItem(dialog, IDC_FIND_MATCH_CASE);
    date_.AttachItem(dialog, IDC_FIND_DATE);
}

// What is typed can be read back from the history: it is no longer than a text of the settings.
bool FindDialog::MakeTextBox() {
    constexpr DWORD kStyle = CBS_DROPDOWN | CBS_AUTOHSCROLL | CBS_NOINTEGRALHEIGHT | WS_VSCROLL | WS_TABSTOP;
    RECT place;
    ScreenToClient(IDC_FIND_DATE, &place);
    if (!text_.CreateIn(GetHandle(), IDC_FIND_TEXT, kStyle, place)) return false;
    text_.SetLimit(RegistryKey::kMaxText - 1);
    return true;
}

// Clicked, so that the handlers set what depends on them.
void FindDialog::ShowSettings() {
    const RegistryKey& settings = *Application::Current();
    const std::wstring options = LoadText(IDS_OPTIONS);
    switch (settings.ReadInt(options, kSearchBy, IDC_FIND_BY_DATE)) {
        case IDC_FIND_BY_DATE: byDate_.Click(); break;
        case IDC_FIND_BY_SUBJECT: bySubject_.Click(); break;
        default: byEntry_.Click(); break;
    }
    matchCase_.SetChecked(settings.ReadInt(options, kMatchCase, TRUE) != 0);
    OnMatchCase();
    const bool top = settings.ReadInt(options, kSearchFrom, IDC_FIND_FROM_TOP) == IDC_FIND_FROM_TOP;
    (top ? fromTop_ : fromCurrent_).Click();
}

void FindDialog::ShowHistory() {
    const RegistryKey& settings = *Application::Current();
    text_.Clear();
    for (const std::wstring& text : ReadFindHistory(settings))
        text_.AddString(text.c_str());
    const std::wstring last = ReadLastFound(settings);
    if (!last.empty()) text_.SetSelection(text_.FindExact(last.c_str()));
    if (!request_.text.empty()) text_.SetText(request_.text.c_str());
    text_.SelectEdit(0, -1);
}

// ---- Messages ----

INT_PTR FindDialog::OnCommand(WORD id) {
    switch (id) {
        case IDOK: OnOk(); return TRUE;
        case IDCANCEL: EndDialog(GetHandle(), IDCANCEL); return TRUE;
        case IDC_FIND_BY_DATE:
        case IDC_FIND_BY_SUBJECT:
        case IDC_FIND_BY_ENTRY: OnSearchBy(); return TRUE;
        case IDC_FIND_MATCH_CASE: OnMatchCase(); return TRUE;
        default: return FALSE;
    }
}

INT_PTR FindDialog::OnSettingChange(WPARAM wparam, LPARAM lparam) {
    LayOut();
    return HandleSettingChange(wparam, lparam);
}

// ---- Choices ----

SearchBy FindDialog::ChosenBy() const {
    if (byDate_.IsChecked()) return SearchBy::kDate;
    return bySubject_.IsChecked() ? SearchBy::kSubject : SearchBy::kEntry;
}

void FindDialog::OnSearchBy() {
    const bool byDate = ChosenBy() == SearchBy::kDate;
    date_.Show(byDate ? SW_SHOW : SW_HIDE);
    text_.Show(byDate ? SW_HIDE : SW_SHOW);
}

void FindDialog::OnMatchCase() {
    request_.matchCase = matchCase_.IsChecked();
}

void FindDialog::OnOk() {
    RegistryKey& settings = *Application::Current();
    const std::wstring options = LoadText(IDS_OPTIONS);
    request_.searchBy = ChosenBy();
    request_.searchFrom = fromTop_.IsChecked() ? SearchFrom::kTop : SearchFrom::kCurrent;
    settings.WriteInt(options, kSearchBy, static_cast<int32_t>(request_.searchBy));
    settings.WriteInt(options, kSearchFrom, static_cast<int32_t>(request_.searchFrom));
    settings.WriteInt(options, kMatchCase, request_.matchCase);
    if (request_.searchBy == SearchBy::kDate) {
        request_.date.SetFromPicker(date_.GetHandle());
    } else {
        TakeText();
    }
    EndDialog(GetHandle(), IDOK);
}

void FindDialog::TakeText() {
    text_.GetText(request_.text);
    if (request_.text.empty()) return;
    std::vector<std::wstring> before;
    for (int row = 0; row < text_.GetCount(); ++row)
        before.push_back(text_.GetString(row));
    WriteFindHistory(*Application::Current(), request_.text, before);
}
