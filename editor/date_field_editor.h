// A point in time: a date picker, and beside it a time picker where the field has a time of day.
#pragma once

#include "editor/field_controls.h"
#include "ui/date_picker.h"

class DateFieldEditor : public FieldEditor {
public:
    // A field whose control type is kControlDate has no time picker and keeps the time of day it has.
    DateFieldEditor(DbJItem& field, const FieldEditorSite& site);
    ~DateFieldEditor() override;

    void Place(const RECT& cell) override;
    void Enter() override;
    FieldEvent OnNotify(const NMHDR& header) override;
    bool Commit() override;

private:
    bool HasTime() const { return time_.GetHandle() != nullptr; }

    HiddenLabel label_;
    DatePicker date_;
    DatePicker time_;
    SYSTEMTIME start_ = {};  // what the pickers were given
    bool touched_ = false;
};
