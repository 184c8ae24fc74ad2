// The popup menu that a call opens, looked at and answered while it is open.
#pragma once

#include <win.h>

#include <functional>
#include <vector>

// Calls `opens`, which tracks a popup menu in this thread. As soon as the menu is drawn, `whileOpen` is called with its
// window; then the keys are pressed in it. The last of them has to close it (VK_ESCAPE, VK_RETURN on an item). A menu
// that never comes fails the test.
void WithMenu(const std::function<void()>& opens, const std::function<void(HWND menu)>& whileOpen,
              const std::vector<WORD>& keys = {VK_ESCAPE});

// Where the menu's window stands on the screen.
RECT MenuPlace(HWND menu);
