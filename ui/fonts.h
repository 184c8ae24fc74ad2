// Fonts by their given heights, scaled like every other pixel number.
#pragma once

#include <string>

#include "ui/unique_handle.h"

// Makes a font of the face ("Tahoma"), `height` in logical pixels at 96 DPI as the screens are given them (negative:
// the height of the characters, as in -12; positive: of the cell), `weight` 100-900 (400 normal, 700 bold). Null when
// the system has no room for it.
UniqueFont MakeFont(const wchar_t* face, int height, int weight);

// A font like `font`, only so much narrower that `text` is at most `room` device pixels wide in it, or half as
// wide as `font`; null when it fits as it is, or there is no room at all. For a line that had better not be cut.
UniqueFont MakeNarrowFont(HDC dc, HFONT font, const std::wstring& text, int room);

// The font that controls made at run time start with: Tahoma -11, the size that dialog templates use. Made once, lives
// as long as the process; never delete it.
HFONT ControlFont();
