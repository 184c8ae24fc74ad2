// The test by which the program recognises windows of a class.
#pragma once

#include <win.h>

// Whether the class name of `window` begins with `className`, ignoring case. The name is fetched into a buffer that
// holds just as many characters as are wanted, so a longer class name is cut and counts as a match: "SysL" is true for
// a "SysListView32". Kept on purpose: FindMenuToolbar relies on it. False for a null or dead window.
bool IsWindowClass(HWND window, const wchar_t* className);
