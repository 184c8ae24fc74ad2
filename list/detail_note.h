// The note of the entry that the detail view shows: rich ink to read, which a tap opens for editing.
#pragma once

#include "data/dbj_item.h"
#include "ui/rich_ink.h"

class DetailNote : public RichInk {
public:
    // Creates the control, empty. A tap on the text and Return tell the parent: WM_COMMAND with the id, STN_CLICKED.
    // Scrolling it and dragging over its text do not. False when it cannot be made.
    bool CreateIn(HWND parent, int id, const RECT& place);

    // Shows the field's bytes; bytes that are no rich text show as nothing.
    void Load(const DbJItem& body);

private:
    LRESULT OnMessage(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam);
    bool IsTap(LPARAM released) const;

    static LRESULT CALLBACK Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam, UINT_PTR,
                                      DWORD_PTR data) noexcept;

    POINT pressed_ = {};
    bool isPressed_ = false;
};
