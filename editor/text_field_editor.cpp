#include "editor/text_field_editor.h"

#include "aygshell.h"
#include "editor/field_values.h"
#include "res/ids.h"

TextFieldEditor::TextFieldEditor(DbJItem& field, const FieldEditorSite& site)
    : FieldEditor(field), label_(site.form, field.GetLabel()), edit_(WC_CAPEDIT) {
    edit_.CreateIn(site.form, IDC_EDITOR_FIELD, WS_TABSTOP | WS_BORDER | ES_AUTOHSCROLL, {});
    edit_.SetText(field.GetStrValue());
    WatchEditor(edit_.GetHandle(), site);
    RaiseInOrder({label_.Handle(), edit_.GetHandle()});
    ready_ = true;
}

void TextFieldEditor::Place(const RECT& cell) {
    PlaceInCell(edit_, cell, LineHeight(edit_));
}

void TextFieldEditor::Enter() {
    edit_.SetFocus();
    SelectAllFromStart(edit_.GetHandle());
}

FieldEvent TextFieldEditor::OnCommand(WORD code) {
    if (code != EN_CHANGE || !ready_) return FieldEvent::kNone;
    touched_ = true;
    return FieldEvent::kTouched;
}

bool TextFieldEditor::Commit() {
    if (!touched_) return false;
    touched_ = false;
    std::wstring text;
    edit_.GetText(text);
    return CommitEntered(text);
}

bool TextFieldEditor::CommitEntered(const std::wstring& text) {
    return CommitText(Field(), text);
}

bool SpanFieldEditor::CommitEntered(const std::wstring& text) {
    return CommitSpan(Field(), text);
}
