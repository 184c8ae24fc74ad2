// Pictures for lists, out of a bitmap in the resources.
#pragma once

#include <win.h>

#include "ui/unique_handle.h"

// The pictures that stand side by side in the bitmap, each `width` logical pixels wide, in the size of this screen;
// `transparent` is the colour that is left out. Empty when there is no such bitmap.
UniqueImageList LoadPictures(HINSTANCE instance, UINT bitmap, int width, COLORREF transparent);
