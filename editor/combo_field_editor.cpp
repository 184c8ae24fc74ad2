#include "editor/combo_field_editor.h"

#include "editor/field_values.h"
#include "pickers/quick_subjects.h"
#include "px.h"
#include "res/ids.h"

namespace {
constexpr int kDropHeight = 200;  // logical pixels, the field included
constexpr int kFieldHeight = 16;
}  // namespace

ComboFieldEditor::ComboFieldEditor(DbJItem& field, const FieldEditorSite& site)
    : FieldEditor(field), label_(site.form, field.GetLabel()) {
    combo_.CreateIn(site.form, IDC_EDITOR_FIELD, WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWN | CBS_AUTOHSCROLL,
                    {0, 0, 0, Px(kDropHeight)});
    combo_.SetFieldHeight(Px(kFieldHeight));
    combo_.SetText(field.GetStrValue());
    WatchKeys(combo_.GetHandle(), *site.keys);
    if (combo_.GetEdit()) WatchKeys(combo_.GetEdit(), *site.keys);
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
        touched_ = true;
        return FieldEvent::kTouched;
    }
    if (code != CBN_SELCHANGE || combo_.GetSelection() < 0) return FieldEvent::kNone;
    // The control brings its edit up to date only after this notification.
    const std::wstring text = combo_.GetString(combo_.GetSelection());
    combo_.SetText(text.c_str());
    touched_ = true;
    return OnChosen(text);
}

bool ComboFieldEditor::Commit() {
    if (!touched_) return false;
    touched_ = false;
    std::wstring text;
    combo_.GetText(text);
    return CommitEntered(text);
}

SubjectFieldEditor::SubjectFieldEditor(DbJItem& field, const FieldEditorSite& site) : ComboFieldEditor(field, site) {
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
    for (const wchar_t* preset : DurationPresets())
        Combo().AddString(preset);
}

bool DurationFieldEditor::CommitEntered(const std::wstring& text) {
    return CommitSpan(Field(), text);
}

FieldEvent DurationFieldEditor::OnChosen(const std::wstring&) {
    return FieldEvent::kDone;
}
