// How a window of the program, or what is open over it, comes to the front.
#pragma once

#include <win.h>

// Brings the screen or message box that the user can go on with to the front: the last one over `window`, or `window`
// itself when none is open. One that was minimised is restored. Works on another process's window too, as far as the
// system lets this one bring windows forward. Does not wait for the window's thread.
void BringForward(HWND window);
