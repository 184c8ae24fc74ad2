// The menu that a tap-and-hold on the list opens, drawn by the program.
#pragma once

#include <win.h>

#include <array>
#include <string>

#include "ui/unique_handle.h"

class Window;

class ContextMenu {
public:
    ContextMenu();

    // Opens the menu over `owner` at `point` (screen coordinates) and returns when it is closed; the choice is sent to
    // the owner as a command. The owner passes its WM_MEASUREITEM and WM_DRAWITEM on meanwhile.
    void Open(const Window& owner, POINT point) const;

    // The TPM_ flags of a menu at `point` (client coordinates): it opens away from the nearest corner of the client
    // area, so that it lies inside and clear of the stylus.
    static UINT Alignment(const RECT& client, POINT point);

    // Answer TRUE when the message was about a menu item.
    LRESULT Measure(MEASUREITEMSTRUCT* item) const;
    // `paper` fills the background.
    LRESULT Draw(const DRAWITEMSTRUCT& item, HBRUSH paper) const;

private:
    void Append(size_t index, UINT id, UINT text);

    std::array<std::wstring, 3> texts_;  // the items' data point at them
    UniqueMenu menu_;
    UniqueFont font_;
    UniqueBitmap check_;
};
