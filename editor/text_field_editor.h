// Fields that are edited as a line of text: texts, and lengths of time without a list of presets.
#pragma once

#include <string>

#include "editor/field_controls.h"
#include "ui/edit.h"

class TextFieldEditor : public FieldEditor {
public:
    TextFieldEditor(DbJItem& field, const FieldEditorSite& site);
    ~TextFieldEditor() override { edit_.Destroy(); }

    void Place(const RECT& cell) override;
    void Enter() override;
    FieldEvent OnCommand(WORD code) override;
    bool Commit() override;

private:
    virtual bool CommitEntered(const std::wstring& text);

    HiddenLabel label_;
    Edit edit_;
    bool ready_ = false;  // filling the control is no change
    bool touched_ = false;
};

// The text is a duration as people type it.
class SpanFieldEditor : public TextFieldEditor {
public:
    using TextFieldEditor::TextFieldEditor;

private:
    bool CommitEntered(const std::wstring& text) override;
};
