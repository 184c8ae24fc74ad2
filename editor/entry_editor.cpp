#include "editor/entry_editor.h"

#include "aygshell.h"
#include "data/category_blob.h"
#include "data/category_uses.h"
#include "data/field_ids.h"
#include "editor/unsaved_entries.h"
#include "list/selection_memory.h"
#include "res/ids.h"
#include "ui/application.h"

EntryEditor* EntryEditor::live_ = nullptr;

INT_PTR EntryEditor::Run(Window& owner, DbJournal& journal, SelectionMemory& selection, unsigned short editField) {
    const EntryRow row(selection.Current(), editField);
    EntryEditor editor(journal);
    const INT_PTR result = editor.RunModal(owner, row);
    if (result == -1) return result;
    if (editor.modified_) {
        selection.SelectOnly(editor.Id());
    } else {
        selection.SetCurrent(editor.Id());
    }
    return result;
}

INT_PTR EntryEditor::Run(Window& owner, DbJournal& journal, const PimData& item, CEOID& id) {
    EntryEditor editor(journal);
    const INT_PTR result = editor.RunModal(owner, item);
    id = editor.Id();
    return result;
}

INT_PTR EntryEditor::RunModal(Window& owner, const FormRecord& record) {
    DialogParams params(this, const_cast<FormRecord*>(&record));
    return DoModal(Application::Current()->GetInstance(), IDD_FRAME, owner.GetHandle(), Procedure, &params);
}

INT_PTR CALLBACK EntryEditor::Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) noexcept {
    if (message == WM_INITDIALOG) return Begin(hwnd, lparam, live_);
    if (!live_) return FALSE;
    switch (message) {
        case WM_COMMAND: return live_->OnCommand(HIWORD(wparam), LOWORD(wparam));
        case WM_NOTIFY: return live_->OnNotify(*reinterpret_cast<const NMHDR*>(lparam));
        case WM_DRAWITEM: return live_->OnDrawItem(*reinterpret_cast<const DRAWITEMSTRUCT*>(lparam));
        case WM_MEASUREITEM: return live_->list_.Measure(*reinterpret_cast<MEASUREITEMSTRUCT*>(lparam)), TRUE;
        case WM_MOUSEWHEEL: return live_->OnMouseWheel(wparam, lparam);
        case WM_INITMENUPOPUP: return live_->OnInitMenuPopup(reinterpret_cast<HMENU>(wparam));
        case WM_SIZE: return live_->OnSize();
        case WM_SETTINGCHANGE: return live_->HandleSettingChange(wparam, lparam);
        case WM_CLOSE: return live_->OnOk();
        case WM_ENDSESSION:  // the user logs off: nothing comes after this
            if (wparam) FinishOpen();
            return TRUE;
        case kEnterEditor: return live_->EnterEditor(), TRUE;
        case kGoToPage: return live_->GoToPage(static_cast<Page>(wparam)), TRUE;
        case kOpenPicker: return live_->OpenPicker(static_cast<CEPROPID>(wparam)), TRUE;
        case kTypeOn: return live_->TypeOn(wparam), TRUE;
        case kEditSubjects: return live_->EditSubjects(wparam != 0), TRUE;
        case WM_NCDESTROY: return End(live_);
        default: return FALSE;
    }
}

INT_PTR EntryEditor::OnInitDialog(void* record) {
    UseMenuBar(IDR_EDITOR_ENTRY_BAR);
    if (!Build(*static_cast<const FormRecord*>(record))) {
        EndDialog(GetHandle(), -1);
        return FALSE;
    }
    for (const HWND control : {tabs_.GetHandle(), list_.GetHandle(), body_.GetHandle()})
        WatchKeys(control, *this);
    list_.SetFocus();
    list_.Select(StartRow());
    // A picker does not open over a form that nobody has seen yet.
    if (!editor_ || editor_->IsInPlace() || editor_->Field().GetPropID() == kPropBody) PostMessage(kEnterEditor);
    return FALSE;  // the focus is where it shall be
}

INT_PTR EntryEditor::OnCommand(WORD code, WORD id) {
    switch (id) {
        case IDOK:
        case IDCANCEL: return OnOk();
        case IDM_ZOOM_75:
        case IDM_ZOOM_100:
        case IDM_ZOOM_150:
        case IDM_ZOOM_200:
        case IDM_ZOOM_300:
            if (page_ == kNotePage) OnZoom(id - IDM_ZOOM_75);
            return TRUE;
        case IDC_EDITOR_FIELD: return OnFieldEvent(editor_ ? editor_->OnCommand(code) : FieldEvent::kNone), TRUE;
        case IDC_EDITOR_BODY: return OnBodyNotification(code);
        default: return page_ == kNotePage ? OnBodyCommand(id) : FALSE;
    }
}

INT_PTR EntryEditor::OnBodyCommand(int id) {
    switch (id) {
        case IDM_TIME_STAMP: body_.InsertStamp(TimeStamp()); break;
        case IDM_DATE_STAMP: body_.InsertStamp(DateTimeStamp()); break;
        case IDM_VIEW_MODE: OnViewMode(); break;
        default:
            if (!body_.RunCommand(id)) return FALSE;
            break;
    }
    body_.SetFocus();
    return TRUE;
}

INT_PTR EntryEditor::OnBodyNotification(WORD code) {
    switch (code) {
        case EN_CHANGE: bodyChanged_ = true; return TRUE;
        case EN_MAXTEXT: return ShowLimitReached(), TRUE;
        default: return FALSE;
    }
}

INT_PTR EntryEditor::OnNotify(const NMHDR& header) {
    switch (header.idFrom) {
        case IDC_EDITOR_FIELDS: return OnListNotify(header);
        case IDC_EDITOR_TABS:
            if (header.code == TCN_SELCHANGE) OnTabChosen();
            return FALSE;
        case IDC_EDITOR_FIELD:
        case IDC_EDITOR_FIELD_TIME:
            if (editor_) OnFieldEvent(editor_->OnNotify(header));
            return FALSE;
        default: return FALSE;
    }
}

INT_PTR EntryEditor::OnListNotify(const NMHDR& header) {
    switch (header.code) {
        case LVN_ITEMCHANGED: OnRowChanged(reinterpret_cast<const NMLISTVIEW&>(header)); break;
        case LVN_ENDSCROLL: PlaceEditor(); break;
        case NM_CLICK: PostMessage(kEnterEditor); break;
        case NM_CHAR: TypeIntoRow(reinterpret_cast<const NMCHAR&>(header).ch); break;
        case NM_SETFOCUS:
        case NM_KILLFOCUS: list_.Invalidate(nullptr, false); break;
        default: break;
    }
    return FALSE;
}

INT_PTR EntryEditor::OnDrawItem(const DRAWITEMSTRUCT& draw) {
    if (draw.CtlID == IDC_EDITOR_TABS) {
        tabs_.Draw(draw);
    } else {
        list_.Draw(draw);
    }
    return TRUE;
}

// Over an open editor the wheel scrolls the rows, too.
INT_PTR EntryEditor::OnMouseWheel(WPARAM wparam, LPARAM lparam) {
    if (page_ != kEntryPage || wheeling_) return FALSE;
    wheeling_ = true;
    list_.SendMessage(WM_MOUSEWHEEL, wparam, lparam);
    wheeling_ = false;
    return TRUE;
}

INT_PTR EntryEditor::OnSize() {
    Layout();
    // The input panel takes half of the page: the row that is typed into stays in view.
    if (editor_) list_.EnsureVisible(editor_->Field().GetLoc(), false);
    PlaceEditor();
    return TRUE;
}

INT_PTR EntryEditor::OnInitMenuPopup(HMENU menu) {
    for (const int command : {IDM_UNDO, IDM_REDO, IDM_CUT, IDM_COPY, IDM_PASTE, IDM_SELECT_ALL}) {
        EnableMenuItem(menu, static_cast<UINT>(command), body_.CanRun(command) ? MF_ENABLED : MF_GRAYED);
    }
    return FALSE;
}

void EntryEditor::WriteEntry() {
    if (!IsStored()) id_ = 0;
    const std::vector<CEOID> before = ReadEntryCategories(journal_, id_);
    id_ = journal_.Write(id_, &fields_);
    if (!id_) KeepUnsaved(fields_);
    if (unsaved_) ForgetUnsaved();
    if (!id_) return;
    journal_.SetFlags(id_, kRecordFlagsWritten);
    UpdateCategoryUses(before, ReadCategoryBlob(*FindFieldByPropID(fields_, kPropCategories)->GetBlob()));
}

INT_PTR EntryEditor::OnOk() {
    // A failed write shows a box without an owner: OK can be tapped once more behind it.
    if (closing_) return TRUE;
    LeaveEditor();
    if (page_ == kNotePage && !StoreBody()) return TRUE;
    Finish();
    return TRUE;
}

void EntryEditor::FinishOpen() {
    if (!live_) return;
    live_->LeaveEditor();
    if (live_->page_ == kNotePage) live_->StoreBody();
    live_->Finish();
}

// Writes what is to be written and ends the dialog. The body has been taken over.
void EntryEditor::Finish() {
    if (closing_) return;
    closing_ = true;
    TakePicked();
    TakeEntered();
    modified_ = modified_ || HasOtherValues();
    if (modified_) WriteEntry();
    editor_.reset();
    EndDialog(GetHandle(), IDOK);
}
