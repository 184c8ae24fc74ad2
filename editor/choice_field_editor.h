// A coded field: a drop-down list of its table's texts.
#pragma once

#include "editor/field_controls.h"
#include "ui/combo_box.h"

class ChoiceFieldEditor : public FieldEditor {
public:
    ChoiceFieldEditor(DbJItem& field, const FieldEditorSite& site);
    ~ChoiceFieldEditor() override { list_.Destroy(); }

    void Place(const RECT& cell) override { PlaceInCell(list_, cell, HeightOf(list_)); }
    void Enter() override { list_.SetFocus(); }
    FieldEvent OnCommand(WORD code) override;
    bool Commit() override;

private:
    HiddenLabel label_;
    ComboBox list_;
};
