// The keys of the input panel: what they are and where they lie. No windows: a size in, keys out.
#pragma once

#include <win.h>

#include <vector>

enum class PanelKeyKind { kCharacter, kBackspace, kTab, kEnter, kShift, kPage, kLeft, kRight };
enum class PanelPage { kPlain, kAccents };

struct PanelKey {
    PanelKeyKind kind;
    wchar_t plain;    // the character it types, 0 when it types none
    wchar_t shifted;  // the same while shift is on
    RECT place;       // in the panel; the keys fill it without a gap
};

// All keys of a page in a panel of that size, row by row from the upper left.
std::vector<PanelKey> PlacePanelKeys(SIZE panel, PanelPage page);

// The key at a point of the panel as an index, -1 outside it.
int PanelKeyAt(const std::vector<PanelKey>& keys, POINT point);

// How high the panel of a screen is that is `width` wide and has `height` above its menu bar, in device pixels: 80
// logical ones on the smallest, more where the keys would become flat, and never more than half of the height.
int InputPanelHeight(int width, int height);
