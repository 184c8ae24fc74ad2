// Where a program's main window was last time, kept under HKEY_CURRENT_USER\Software\Pocket PC\Places\<window class>: a
// value for each arrangement of displays, and "Last", which a new arrangement begins with. Device pixels throughout.
#pragma once

#include <win.h>

#include <optional>
#include <string>
#include <string_view>

struct WindowPlace {
    RECT normal{};  // of the window when it is neither maximised nor minimised; screen coordinates
    bool maximised = false;
    int dpi = USER_DEFAULT_SCREEN_DPI;  // what `normal` was measured with
};

// A place as the text it is kept as, and back; nothing when the text is no place.
std::wstring PlaceText(const WindowPlace& place);
std::optional<WindowPlace> ParsePlace(const std::wstring& text);

// All displays with their places, as a name for this arrangement.
std::wstring DisplayArrangement();

// The place kept for this arrangement, else the last one; nothing when neither is there or makes sense.
std::optional<WindowPlace> LoadPlace(const std::wstring& windowClass, const std::wstring& arrangement);
// Keeps the place for this arrangement and as the last one. What cannot be kept is not: there is nobody to tell.
void StorePlace(const std::wstring& windowClass, const std::wstring& arrangement, const WindowPlace& place);

// `place` moved, and cut where it must be, so that it lies in `work`; `overhang` is how far it may stick out to the
// left, to the right and below, as the invisible edges of a window do.
RECT BroughtInto(const RECT& work, RECT place, int overhang);

// The same for the work area of the display that is nearest to `place`.
RECT BroughtIntoView(const RECT& place);

// `place` in the middle of the work area of its display.
RECT Centred(const RECT& place);
