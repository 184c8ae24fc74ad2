// A field that is edited elsewhere: on another page, in a picker.
#pragma once

#include <functional>
#include <utility>

#include "editor/field_editor.h"

class LauncherFieldEditor : public FieldEditor {
public:
    LauncherFieldEditor(DbJItem& field, const FieldEditorSite& site) : FieldEditor(field), launch_(site.launch) {}

    void Place(const RECT&) override {}
    bool IsInPlace() const override { return false; }
    void Enter() override { launch_(Field()); }
    // What was opened has changed the field by itself.
    bool Commit() override { return false; }

private:
    std::function<void(DbJItem&)> launch_;
};
