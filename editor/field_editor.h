// The editors that open in a row of the field list, one kind for each way a field is edited.
#pragma once

#include <win.h>

#include <functional>
#include <memory>

#include "data/dbj_item.h"
#include "ui/key_watch.h"

// What a notification of an editor's control means to the form.
enum class FieldEvent {
    kNone,
    kTouched,  // something was changed; the value is taken when the editor closes
    kDone,     // a choice was made: the value is to be taken at once
};

// One open editor. It shows the value that the field has when it is made, and destroys its controls with itself.
// Made by MakeFieldEditor; the field outlives it.
class FieldEditor {
public:
    explicit FieldEditor(DbJItem& field) : field_(field) {}
    virtual ~FieldEditor() = default;
    FieldEditor(const FieldEditor&) = delete;
    FieldEditor& operator=(const FieldEditor&) = delete;

    DbJItem& Field() const { return field_; }

    // Shows the editor in a cell, or hides it when the cell is empty; client coordinates of the form, device pixels.
    virtual void Place(const RECT& cell) = 0;
    // Whether it is edited in the row; if not, Enter opens something else.
    virtual bool IsInPlace() const { return true; }
    // The user goes into the editor: its control gets the focus, or what the field is chosen in opens.
    virtual void Enter() = 0;
    // Notifications of the editor's controls: the code of WM_COMMAND, or WM_NOTIFY's header.
    virtual FieldEvent OnCommand(WORD) { return FieldEvent::kNone; }
    virtual FieldEvent OnNotify(const NMHDR&) { return FieldEvent::kNone; }
    // What the editor offers was edited elsewhere, or its edit shows what is no value: it shows both anew.
    virtual void Renew() {}
    // Gives the field what the editor holds. An editor that was not touched changes nothing. Answers whether the value
    // is another one now.
    virtual bool Commit() = 0;

private:
    DbJItem& field_;
};

// Where editors are made.
struct FieldEditorSite {
    HWND form = nullptr;                   // parent of the controls
    KeyListener* keys = nullptr;           // watches them
    std::function<void(DbJItem&)> launch;  // opens what a launcher field is chosen in; must not destroy the editor
    // Once the control is done with its message: opens the quick subjects, or does not, then has the editor renewed.
    std::function<void(bool open)> editSubjects;
};

// The editor for the field's control type; null for a type that cannot be edited, or when the controls cannot be made.
// The controls are hidden until Place.
std::unique_ptr<FieldEditor> MakeFieldEditor(DbJItem& field, const FieldEditorSite& site);
