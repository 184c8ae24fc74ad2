// The icon a window shows in its caption and in the task bar.
#pragma once

#include <win.h>

// Gives a window the icons of another one: those set for it, or its class's. None changes nothing.
void ShowIconsOf(HWND source, HWND window);
