// Small pictures with a colour that is left out.
#pragma once

#include <win.h>

// Draws a picture of `size` x `size` pixels at `x`, `y`, stretched to logical pixels of the screen; what is white in it
// is not drawn. Position in device pixels.
void DrawTransparent(HDC dc, HBITMAP bitmap, int x, int y, int size);
