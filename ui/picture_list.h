// Pictures for lists, out of a bitmap in the resources.
#pragma once

#include <win.h>

#include "ui/unique_handle.h"

// The square pictures that stand side by side in the bitmap, each `side` logical pixels wide, in the size of this
// screen; the colour of the first pixel is left out. Empty when there is no such bitmap.
UniqueImageList LoadPictures(HINSTANCE instance, UINT bitmap, int side);
