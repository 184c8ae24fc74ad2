// One line, or one icon, of the detail view's header: it can be tapped, and reached and opened by keys.
#pragma once

#include "ui/static_text.h"

class DetailField : public StaticText {
public:
    // Creates the control, empty and hidden. `kind` is what it draws: SS_ENDELLIPSIS for a line of text, SS_OWNERDRAW
    // for a picture that the parent draws. A tap, Return and Space send the parent WM_COMMAND with the id. It is drawn
    // anew when it gets or loses the keys, which the parent shows. False when it cannot be made.
    bool CreateIn(HWND parent, int id, DWORD kind);

private:
    static LRESULT CALLBACK Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam, UINT_PTR,
                                      DWORD_PTR) noexcept;
};
