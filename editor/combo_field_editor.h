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
    // Empties the list, fills it anew, and puts the text back that the user typed or chose last.
    void Refill();

private:
    // Gives the field what was typed or chosen; answers whether the value is another one now.
    virtual bool CommitEntered(const std::wstring& text) = 0;
    // Puts the lines into the empty list.
    virtual void Fill() = 0;
    // Whether that line of the list is no text but a command.
    virtual bool IsCommandLine(int) const { return false; }
    // A command line was chosen, or the list was closed over it. The control shows its text by now or a little later.
    virtual void OnCommandLine(bool /*chosen*/) {}
    // What it means that a text of the list was chosen. It stands in the edit already.
    virtual FieldEvent OnChosen(const std::wstring& text) = 0;

    void NotifyCommandLine(WORD code);

    HiddenLabel label_;
    ComboBox combo_;
    std::wstring text_;   // what was typed or chosen last
    bool ready_ = false;  // filling the control is no change
    bool touched_ = false;
};

// The list offers to edit the quick subjects and, below, the quick subjects.
class SubjectFieldEditor : public ComboFieldEditor {
public:
    SubjectFieldEditor(DbJItem& field, const FieldEditorSite& site);

    void Renew() override;

private:
    void Fill() override;
    bool IsCommandLine(int line) const override { return line == 0; }
    void OnCommandLine(bool chosen) override { editSubjects_(chosen); }
    bool CommitEntered(const std::wstring& text) override;
    FieldEvent OnChosen(const std::wstring& text) override;

    std::function<void(bool)> editSubjects_;
};

// The list offers the presets; what is typed is parsed.
class DurationFieldEditor : public ComboFieldEditor {
public:
    DurationFieldEditor(DbJItem& field, const FieldEditorSite& site);

private:
    void Fill() override;
    bool CommitEntered(const std::wstring& text) override;
    FieldEvent OnChosen(const std::wstring& text) override;
};
