#include "list/detail_view.h"

#include <algorithm>

#include "data/db_cats.h"
#include "data/field_ids.h"
#include "list/selection_memory.h"
#include "list/tap_guard.h"
#include "res/ids.h"
#include "ui/application.h"
#include "ui/resource_text.h"

namespace {

constexpr COLORREF kLineColour = 0x00FF0000;  // between header and note

struct TappedField {
    WORD control;
    WORD field;
};

constexpr TappedField kTappedFields[] = {
    {IDC_DETAIL_SUBJECT, kFieldSubject},   {IDC_DETAIL_DATE, kFieldStart},
    {IDC_DETAIL_DURATION, kFieldDuration}, {IDC_DETAIL_CATEGORIES, kFieldCategories},
    {IDC_DETAIL_CONTACTS, kFieldContacts}, {IDC_DETAIL_TYPE, kFieldEntryType},
    {IDC_DETAIL_PRIORITY, kFieldPriority}, {IDC_DETAIL_SENSITIVITY, kFieldSensitivity},
    {IDC_DETAIL_COMPANY, kFieldCompany},   {IDC_DETAIL_NOTE, kFieldBody},
};

}  // namespace

DetailView* DetailView::live_ = nullptr;

INT_PTR DetailView::Run(Window& owner, SelectionMemory& selection, const NoteMatch& match) {
    DetailView view(match);
    DialogParams params(&view, &selection);
    return view.DoModal(Application::Current()->GetInstance(), IDD_FRAME, owner.GetHandle(), Procedure, &params);
}

bool DetailView::EndToEdit() {
    if (live_ == nullptr) return false;
    live_->Finish(kEditEntry);
    return true;
}

INT_PTR CALLBACK DetailView::Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) noexcept {
    if (message == WM_INITDIALOG) return Begin(hwnd, lparam, live_);
    if (live_ == nullptr) return FALSE;
    switch (message) {
        case WM_COMMAND: return live_->OnCommand(HIWORD(wparam), LOWORD(wparam));
        case WM_CTLCOLORDLG: return reinterpret_cast<INT_PTR>(live_->GetBrush());
        case WM_SIZE: return live_->OnSize();
        case WM_SETTINGCHANGE: return live_->HandleSettingChange(wparam, lparam);
        case WM_CLOSE: return live_->OnCommand(0, IDOK);
        case DB_CEOID_CHANGED: return live_->OnChanged(static_cast<CEOID>(wparam), static_cast<CEOID>(lparam));
        case DB_CEOID_RECORD_DELETED: return live_->OnDeleted(static_cast<CEOID>(wparam), static_cast<CEOID>(lparam));
        case kBegun: return TakeLostSecondTap(), TRUE;
        case WM_NCDESTROY: DetailPanel::Unregister(); return End(live_);
        default: return IsStoreNotification(message) ? TRUE : FALSE;
    }
}

INT_PTR DetailView::OnInitDialog(void* data) {
    selection_ = static_cast<SelectionMemory*>(data);
    CreateMenuBar(true, SHCMBF_EMPTYBAR);
    HoldBrush(UniqueBrush(CreateSolidBrush(kLineColour)));
    journal_.Open(GetHandle());
    SetText(LoadText(IDS_JOURNAL_ENTRY).c_str());
    if (!MakeControls()) {
        EndDialog(GetHandle(), -1);
        return FALSE;
    }
    Load();
    Show();  // now, not when the queue is empty: presses on the disabled owner are lost, and with them a double tap
    note_.SetFocus();
    note_.SelectFirst(match_.text, match_.matchCase);
    PostMessage(kBegun);
    return FALSE;  // the focus is where it shall be
}

bool DetailView::MakeControls() {
    constexpr RECT nowhere = {};
    RECT client;
    GetClientRect(&client);
    if (!DetailPanel::Register() || !panel_.CreateIn(GetHandle(), client.right)) return false;
    if (!noteLabel_.CreateIn(GetHandle(), 0, SS_NOPREFIX, nowhere)) return false;
    noteLabel_.SetText(LoadText(IDS_NOTE_PAGE).c_str());
    return note_.CreateIn(GetHandle(), IDC_DETAIL_NOTE, nowhere);
}

void DetailView::Load() {
    fields_.RemoveAll();
    journal_.Read(selection_->Current(), &fields_);
    panel_.ShowTexts(ReadDetail(fields_, ReadCategoryNames));
    if (const DbJItem* body = FindFieldByPropID(fields_, kPropBody)) note_.Load(*body);
    PlaceNote();
}

void DetailView::PlaceNote() {
    RECT client;
    GetClientRect(&client);
    RECT panel;
    panel_.GetWindowRect(&panel);
    Window::ScreenToClient(&panel);
    client.top = panel.bottom + Px(1);
    client.bottom = std::max(client.bottom, client.top);
    note_.Place(client);
}

INT_PTR DetailView::OnSize() {
    if (!panel_.IsWindow() || !note_.IsWindow()) return FALSE;  // sized while being created
    RECT client;
    GetClientRect(&client);
    panel_.Fit(client.right);
    PlaceNote();
    return TRUE;
}

INT_PTR DetailView::OnCommand(WORD code, WORD id) {
    if (id == IDOK || id == IDCANCEL) return Finish(kClosed), TRUE;
    if (code != STN_CLICKED) return FALSE;  // the note tells of more than taps
    const auto* tapped = std::find_if(std::begin(kTappedFields), std::end(kTappedFields),
                                      [id](const TappedField& field) { return field.control == id; });
    if (tapped == std::end(kTappedFields)) return FALSE;
    note_.SetSelection(-1, -1);
    Finish(tapped->field);
    return TRUE;
}

// The window class goes with the window, at its WM_NCDESTROY: the system keeps a class that has windows.
void DetailView::Finish(INT_PTR result) {
    EndDialog(GetHandle(), result);
}

// ---- What others do to the entry ----

bool DetailView::IsShown(CEOID record, CEOID database) {
    return database == journal_.GetOid() && record != 0 && record == selection_->Current();
}

INT_PTR DetailView::OnChanged(CEOID record, CEOID database) {
    if (IsShown(record, database)) Load();
    return TRUE;
}

INT_PTR DetailView::OnDeleted(CEOID record, CEOID database) {
    if (!IsShown(record, database)) return TRUE;
    // The box has no text: kept on purpose.
    MessageBox(LoadText(IDS_ENTRY_DELETED).c_str(), LoadText(IDS_APP_TITLE).c_str(), MB_OK | MB_ICONINFORMATION);
    Finish(kClosed);
    return TRUE;
}
