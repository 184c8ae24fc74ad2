// The common part of the control wrappers: a child window of a known class with an id.
#pragma once

#include "ui/window.h"

// A wrapper offers the messages of its control that the screens use, one forwarder each. Rows, columns and positions
// count from 0; pixels are device pixels unless told otherwise. A wrapper on a detached object answers 0 or nothing.
class Control : public Window {
public:
    // Creates the control as a child of `parent` at `place` (client coordinates of the parent, device pixels), with
    // ControlFont(). WS_CHILD is added to `style`; WS_VISIBLE is the caller's choice. False when it cannot be made.
    bool CreateIn(HWND parent, int id, DWORD style, const RECT& place, DWORD exStyle = 0);

    // Takes the control `id` of a dialog. False when there is none, or when attached already.
    bool AttachItem(HWND dialog, int id);

    int GetId() const;

protected:
    // `className` must stay valid: a literal.
    explicit Control(const wchar_t* className) : className_(className) {}

private:
    const wchar_t* className_;
};
