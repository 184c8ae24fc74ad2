// Small pictures out of a program's resources, in the size of this screen.
#pragma once

#include <win.h>

#include "cehost.h"

// Loads a BITMAP resource, a strip of square images, and makes of each one of `side` device pixels: enlarged, with
// smooth edges; in its own size, as it is. A bitmap of 32 bits with alpha keeps it; in any other the colour of the
// first pixel is transparent. The result, the caller's, has 32 bits a pixel with premultiplied alpha; null when there
// is no such bitmap or no memory.
CEHOST_API HBITMAP LoadPictureStrip(HINSTANCE module, UINT id, int side);

// Draws image `index` of such a strip at `at`; nothing when the strip has no such image. `alpha` 255 draws it fully.
CEHOST_API void DrawPicture(HDC dc, HBITMAP strip, int index, POINT at, BYTE alpha);
