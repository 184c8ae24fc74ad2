// The shell's menu bar as a screen uses it after CreateMenuBar: its drop-down menus and buttons.
#pragma once

#include "ui/toolbar.h"

// Attach it to the handle that Window::GetMenuBar answers; toolbar messages sent to that handle reach the buttons.
class MenuBar : public Toolbar {
public:
    // The drop-down menu of the button `id`; the bar owns it. 0 when the button has none.
    HMENU GetSubMenu(int id) const;
};
