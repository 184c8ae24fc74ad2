// Fields that are typed or chosen from a list: the subject and the duration.
#pragma once

#include <string>

#include "editor/field_controls.h"
#include "ui/combo_box.h"

class ComboFieldEditor : public FieldEditor {
public:
    ~ComboFieldEditor() override { combo_.Destroy(); }

    void Place(const RECT& cell) override { PlaceInCell(combo_, cell, HeightOf(combo_)); }
    void Enter() override;
    FieldEvent OnCommand(WORD code) override;
    bool Commit() override;

protected:
    ComboFieldEditor(DbJItem& field, const FieldEditorSite& site);

    ComboBox& Combo() { return combo_; }

private:
    // Gives the field what was typed or chosen; answers whether the value is another one now.
    virtual bool CommitEntered(const std::wstring& text) = 0;
    // What it means that a text of the list was chosen. It stands in the edit already.
    virtual FieldEvent OnChosen(const std::wstring& text) = 0;

    HiddenLabel label_;
    ComboBox combo_;
    bool ready_ = false;  // filling the control is no change
    bool touched_ = false;
};

// The list offers the quick subjects.
class SubjectFieldEditor : public ComboFieldEditor {
public:
    SubjectFieldEditor(DbJItem& field, const FieldEditorSite& site);

private:
    bool CommitEntered(const std::wstring& text) override;
    FieldEvent OnChosen(const std::wstring& text) override;
};

// The list offers the presets; what is typed is parsed.
class DurationFieldEditor : public ComboFieldEditor {
public:
    DurationFieldEditor(DbJItem& field, const FieldEditorSite& site);

private:
    bool CommitEntered(const std::wstring& text) override;
    FieldEvent OnChosen(const std::wstring& text) override;
};
