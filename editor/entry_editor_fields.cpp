// The entry editor's rows: which editor is open, when its value is taken, and the keys that move between rows.
#include "data/category_blob.h"
#include "data/contact_blob.h"
#include "data/field_ids.h"
#include "data/field_text.h"
#include "editor/entry_editor.h"
#include "pickers/category_picker.h"
#include "pickers/contact_picker.h"
#include "pickers/quick_subjects_screen.h"
#include "res/ids.h"

namespace {

bool IsKeyDown(int key) {
    return GetKeyState(key) < 0;
}

// A line of text, where up and down mean nothing.
bool IsPlainEdit(HWND control, HWND form) {
    return GetParent(control) == form && (SendMessageW(control, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL) != 0;
}

// The categories or contacts that a field holds now, as they are stored.
std::vector<BYTE> ItemBytes(const DbJItem& field) {
    if (field.GetPropID() == kPropContacts) return MakeContactBlob(field.Contacts());
    std::vector<CEOID> ids;
    for (const DbCItem& category : field.Categories())
        ids.push_back(category.GetOid());
    return MakeCategoryBlob(ids);
}

}  // namespace

void EntryEditor::OnRowChanged(const NMLISTVIEW& change) {
    if (((change.uNewState ^ change.uOldState) & LVIS_SELECTED) == 0) return;
    if ((change.uNewState & LVIS_SELECTED) == 0) {
        CloseEditor();
        return;
    }
    OpenEditor(change.iItem);
    if (IsKeyDown(VK_LBUTTON)) PostMessage(kEnterEditor);
}

void EntryEditor::OpenEditor(int row) {
    CloseEditor();
    DbJItem* field = FieldOfRow(row);
    if (!field) return;
    FieldEditorSite site;
    site.form = GetHandle();
    site.keys = this;
    site.launch = [this](DbJItem& launched) {
        if (launched.GetPropID() == kPropBody) {
            PostMessage(kGoToPage, kNotePage);
        } else {
            PostMessage(kOpenPicker, launched.GetPropID());
        }
    };
    site.editSubjects = [this](bool open) { PostMessage(kEditSubjects, open); };
    editor_ = MakeFieldEditor(*field, site);
    PlaceEditor();
}

void EntryEditor::CloseEditor() {
    if (!editor_) return;
    LeaveEditor();
    TakeEntered();
    editor_.reset();
}

// A picker counts what is typed into it only when the user has left it; a tap on the bar does not take the focus.
void EntryEditor::LeaveEditor() {
    if (IsEditorControl(::GetFocus())) list_.SetFocus();
}

void EntryEditor::PlaceEditor() {
    if (!editor_) return;
    RECT cell = {};
    RECT list = {};
    list_.GetClientRect(&list);
    if (!list_.GetValueRect(editor_->Field().GetLoc(), &cell) || cell.top < 0 || cell.bottom > list.bottom) cell = {};
    if (IsRectEmpty(&cell)) LeaveEditor();  // a hidden control would keep the keys to itself
    editor_->Place(cell);
}

void EntryEditor::EnterEditor() {
    if (page_ != kEntryPage) return;
    if (!editor_) OpenEditor(list_.Selected());
    if (!editor_) return;
    list_.EnsureVisible(editor_->Field().GetLoc(), false);
    PlaceEditor();
    editor_->Enter();
}

// What is typed while a row is highlighted is meant for the row: its editor takes it, or the page or picker that opens.
void EntryEditor::TypeIntoRow(UINT character) {
    if (character < L' ') return;  // of a key like Return or Ctrl+C
    EnterEditor();
    PostMessage(kTypeOn, character);
}

void EntryEditor::TypeOn(WPARAM character) {
    const HWND focus = ::GetFocus();
    if (focus && focus != list_.GetHandle()) ::SendMessageW(focus, WM_CHAR, character, 1);
}

void EntryEditor::OnFieldEvent(FieldEvent event) {
    if (event == FieldEvent::kDone) TakeEntered();
}

void EntryEditor::TakeEntered() {
    if (editor_ && editor_->Commit()) ShowField(editor_->Field());
}

void EntryEditor::OpenPicker(CEPROPID propid) {
    DbJItem* field = FindFieldByPropID(fields_, propid);
    if (!field || picking_ || closing_) return;  // a double tap asks twice
    picking_ = field;
    pickedBefore_ = ItemBytes(*field);
    if (propid == kPropCategories) {
        CategoryPicker::Run(GetHandle(), field->Categories());
    } else if (propid == kPropContacts) {
        ContactPicker::Run(GetHandle(), field->GetLabel(), field->Contacts(), OfferedContacts());
    }
    TakePicked();
}

// The field's bytes stay what they were unless something else was picked: they may say more than can be shown.
void EntryEditor::TakePicked() {
    if (!picking_) return;
    DbJItem& field = *picking_;
    picking_ = nullptr;
    std::vector<BYTE> bytes = ItemBytes(field);
    if (bytes != pickedBefore_) {
        const CEBLOB blob = {static_cast<DWORD>(bytes.size()), bytes.data()};
        field.SetBlob(&blob);
    }
    field.SetStrValue(FieldText(field).c_str());  // categories may have been renamed
    ShowField(field);
}

void EntryEditor::EditSubjects(bool open) {
    if (editingSubjects_ || closing_) return;  // a tap on the list asks more than once
    editingSubjects_ = true;
    if (open) QuickSubjectsScreen::Run(GetHandle());
    editingSubjects_ = false;
    if (editor_) editor_->Renew();
}

void EntryEditor::MoveRow(int step) {
    const int row = list_.Selected() + step;
    if (!FieldOfRow(row)) return;
    list_.Select(row);
    if (editor_ && editor_->IsInPlace()) {
        EnterEditor();
    } else {
        list_.SetFocus();
    }
}

bool EntryEditor::IsEditorControl(HWND control) const {
    if (!control || control == list_.GetHandle() || control == body_.GetHandle() || control == tabs_.GetHandle()) {
        return false;
    }
    return IsChild(GetHandle(), control) &&
           (GetDlgCtrlID(control) == IDC_EDITOR_FIELD || GetDlgCtrlID(control) == IDC_EDITOR_FIELD_TIME ||
            GetDlgCtrlID(::GetParent(control)) == IDC_EDITOR_FIELD);
}

bool EntryEditor::WantsKey(HWND control, UINT key) const {
    if (key == VK_TAB || key == VK_NEXT || key == VK_PRIOR) return IsKeyDown(VK_CONTROL);
    if (control == list_.GetHandle()) return key == VK_RETURN || key == VK_F2;
    if (!IsEditorControl(control)) return false;
    // An editor whose list hangs open wants its keys for itself.
    if (key == VK_RETURN) return !IsDroppedDown(control, GetHandle());
    return (key == VK_UP || key == VK_DOWN) && IsPlainEdit(control, GetHandle());
}

void EntryEditor::OnKey(HWND control, UINT key) {
    switch (key) {
        case VK_TAB: GoToPage(page_ == kEntryPage ? kNotePage : kEntryPage); break;
        case VK_PRIOR: GoToPage(kEntryPage); break;
        case VK_NEXT: GoToPage(kNotePage); break;
        case VK_UP: MoveRow(-1); break;
        case VK_DOWN: MoveRow(1); break;
        default:
            if (control == list_.GetHandle()) {
                EnterEditor();
            } else {
                CloseEditor();
            }
            break;
    }
}
