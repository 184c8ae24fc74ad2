// Finds the toolbar inside the shell's menu bar.
#pragma once

#include <win.h>

// The toolbar that carries the "Menu" button of the menu bar under `window`: CBFRAME > ReBarWindow32 >
// ToolbarWindow32 whose own first child is a Menu, each level searched among the children in their order. Classes are
// compared as IsWindowClass does. 0 when any level is missing.
HWND FindMenuToolbar(HWND window);
