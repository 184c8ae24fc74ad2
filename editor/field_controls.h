// What the controls of all field editors have in common.
#pragma once

#include "editor/field_editor.h"
#include "ui/control.h"
#include "ui/static_text.h"

// A caption that nobody sees, just before a control in the order of the form: screen readers read it as the control's
// name.
class HiddenLabel {
public:
    HiddenLabel(HWND form, const wchar_t* caption);
    ~HiddenLabel() { text_.Destroy(); }
    HiddenLabel(const HiddenLabel&) = delete;
    HiddenLabel& operator=(const HiddenLabel&) = delete;

    HWND Handle() const { return text_.GetHandle(); }

private:
    StaticText text_;
};

// Whether the list of an editor's control, or of the drop-down that the control is part of, hangs open.
bool IsDroppedDown(HWND control, HWND form);

// Watches a control of an editor: its keys go to the site's listener first, and the wheel scrolls the form's rows
// instead of changing the value, unless a list hangs open.
void WatchEditor(HWND control, const FieldEditorSite& site);

// Puts the windows before all others in the form's order, in the order given: over the list, and first for Tab.
void RaiseInOrder(std::initializer_list<HWND> windows);

// Selects everything in an edit, and shows the beginning of a text that is longer than the edit.
void SelectAllFromStart(HWND edit);

// Puts a control into a cell of a row: its whole width, `height` pixels high in the middle. An empty cell hides it.
void PlaceInCell(Window& control, const RECT& cell, int height);

// The height that a control has now: drop-down lists decide it by themselves.
int HeightOf(const Window& control);

// The height that fits a line of the control's font: in a taller picker the text does not stand in the middle on every
// system.
int LineHeight(const Window& control);
