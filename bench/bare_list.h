// The system's own list view, as the bound of the journal's.
#pragma once

#include <win.h>

#include "ui/list_view.h"

// A visible window of the device's size for one list.
HWND MakeFrame();

// A list view of the system's own that looks like the journal's: what it takes depends on how many rows it shows.
HWND MakeBareList(HWND parent, const ListView& like);
