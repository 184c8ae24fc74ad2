#include "editor/choice_field_editor.h"

#include "data/field_text.h"
#include "editor/field_values.h"
#include "px.h"
#include "res/ids.h"

namespace {
constexpr int kDropHeight = 200;  // logical pixels, the field included
}  // namespace

ChoiceFieldEditor::ChoiceFieldEditor(DbJItem& field, const FieldEditorSite& site)
    : FieldEditor(field), label_(site.form, field.GetLabel()) {
    list_.CreateIn(site.form, IDC_EDITOR_FIELD, WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST, {0, 0, 0, Px(kDropHeight)});
    list_.FitFieldToFont();
    for (const wchar_t* text : FieldChoices(field.GetPropID()))
        list_.AddString(text);
    list_.SetSelection(field.GetShort());
    WatchEditor(list_.GetHandle(), site);
    RaiseInOrder({label_.Handle(), list_.GetHandle()});
}

FieldEvent ChoiceFieldEditor::OnCommand(WORD code) {
    // A list that closes without a choice has put its old selection back, which is then taken again.
    return code == CBN_SELCHANGE || code == CBN_CLOSEUP ? FieldEvent::kDone : FieldEvent::kNone;
}

bool ChoiceFieldEditor::Commit() {
    return CommitChoice(Field(), list_.GetSelection());
}
