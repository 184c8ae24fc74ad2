#include "editor/combo_field_editor.h"

#include "editor/field_values.h"
#include "pickers/quick_subjects.h"
#include "px.h"
#include "res/ids.h"
#include "ui/resource_text.h"

namespace {
constexpr int kDropHeight = 200;  // logical pixels, the field included
}  // namespace

ComboFieldEditor::ComboFieldEditor(DbJItem& field, const FieldEditorSite& site)
    : FieldEditor(field), label_(site.form, field.GetLabel()) {
    combo_.CreateIn(site.form, IDC_EDITOR_FIELD, WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWN | CBS_AUTOHSCROLL,
                    {0, 0, 0, Px(kDropHeight)});
    combo_.FitFieldToFont();
    text_ = field.GetStrValue();
    combo_.SetText(text_.c_str());
    WatchEditor(combo_.GetHandle(), site);
    if (combo_.GetEdit()) WatchEditor(combo_.GetEdit(), site);
    RaiseInOrder({label_.Handle(), combo_.GetHandle()});
    ready_ = true;
}

void ComboFieldEditor::Enter() {
    combo_.SetFocus();
    SelectAllFromStart(combo_.GetEdit());
}

FieldEvent ComboFieldEditor::OnCommand(WORD code) {
    if (!ready_) return FieldEvent::kNone;
    if (code == CBN_EDITCHANGE) {
        combo_.GetText(text_);
        touched_ = true;
        return FieldEvent::kTouched;
    }
    const int line = combo_.GetSelection();
    if (line < 0) return FieldEvent::kNone;
    if (IsCommandLine(line)) {
        NotifyCommandLine(code);
        return FieldEvent::kNone;
    }
    if (code != CBN_SELCHANGE) return FieldEvent::kNone;
    // The control brings its edit up to date only after this notification.
    text_ = combo_.GetString(line);
    combo_.SetText(text_.c_str());
    touched_ = true;
    return OnChosen(text_);
}

// A tap and the Enter key choose; the arrow keys in an open list only pass over the line, and where the list is closed
// they open it, so that the lines below can be reached.
void ComboFieldEditor::NotifyCommandLine(WORD code) {
    const bool byArrow = GetKeyState(VK_DOWN) < 0 || GetKeyState(VK_UP) < 0;
    switch (code) {
        case CBN_SELENDOK:
            if (combo_.IsDroppedDown()) OnCommandLine(true);
            break;
        case CBN_SELCHANGE:
            if (combo_.IsDroppedDown()) break;
            if (byArrow) {
                combo_.DropDown(true);
            } else {
                OnCommandLine(true);
            }
            break;
        case CBN_CLOSEUP: OnCommandLine(false); break;
        default: break;
    }
}

void ComboFieldEditor::Refill() {
    ready_ = false;
    combo_.Clear();
    Fill();
    combo_.SetText(text_.c_str());
    ready_ = true;
}

bool ComboFieldEditor::Commit() {
    if (!touched_) return false;
    touched_ = false;
    return CommitEntered(text_);
}

SubjectFieldEditor::SubjectFieldEditor(DbJItem& field, const FieldEditorSite& site)
    : ComboFieldEditor(field, site), editSubjects_(site.editSubjects) {
    SubjectFieldEditor::Fill();
}

void SubjectFieldEditor::Renew() {
    Refill();
    if (GetFocus() != Combo().GetHandle() && GetFocus() != Combo().GetEdit()) return;
    Enter();
}

void SubjectFieldEditor::Fill() {
    Combo().AddString(LoadText(IDS_EDIT_QUICK_SUBJECTS).c_str());
    for (const std::wstring& subject : QuickSubjects())
        Combo().AddString(subject.c_str());
}

bool SubjectFieldEditor::CommitEntered(const std::wstring& text) {
    return CommitText(Field(), text);
}

FieldEvent SubjectFieldEditor::OnChosen(const std::wstring&) {
    return FieldEvent::kTouched;
}

DurationFieldEditor::DurationFieldEditor(DbJItem& field, const FieldEditorSite& site) : ComboFieldEditor(field, site) {
    DurationFieldEditor::Fill();
}

void DurationFieldEditor::Fill() {
    for (const wchar_t* preset : DurationPresets())
        Combo().AddString(preset);
}

bool DurationFieldEditor::CommitEntered(const std::wstring& text) {
    return CommitSpan(Field(), text);
}

FieldEvent DurationFieldEditor::OnChosen(const std::wstring&) {
    return FieldEvent::kDone;
}
