// The ink control: class "InkX", a container with one rich-ink control that fills it.
#pragma once

#include <win.h>

#include "cehost.h"

#define WC_INKX L"InkX"

// Registers the class (and the rich-ink control's). Harmless when called again.
CEHOST_API void InitInkX(void);

// EM_GETMODIFY and EM_SETMODIFY go to the rich-ink control; its notifications come as the container's.
enum : UINT {
    IM_GETDATALEN = WM_USER + 514,  // -> bytes of the contents as a stream of rich text
    IM_GETDATA = WM_USER + 515,     // wParam bytes of the buffer, lParam the buffer -> bytes put there; 0, with the
                                    //    buffer as it was, when it is too small
    IM_SETDATA = WM_USER + 516,     // wParam bytes, lParam a stream of rich text, which replaces the contents; no
                                    //    change -> bytes taken; 0 when it was refused, and the control is empty then
    IM_CLEARALL = WM_USER + 519,    // empties it
    IM_REINIT = WM_USER + 521,      // the same
    IM_GETRICHINK = WM_USER + 532,  // -> HWND of the rich-ink control
};
