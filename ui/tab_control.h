// Tab strip.
#pragma once

#include "ui/control.h"

class TabControl : public Control {
public:
    TabControl() : Control(WC_TABCONTROLW) {}

    // As every control is made. The texts are drawn by Draw, which the parent calls; the space around them is scaled
    // too, and wide enough for a stylus.
    bool CreateIn(HWND parent, int id, DWORD style, const RECT& place);
    // Answers the tab's index, -1 on failure.
    int InsertTab(int index, const wchar_t* text);
    int GetCount() const;
    // -1 when no tab is selected.
    int GetSelection() const;
    // Selects without a notification. Answers the index before.
    int SetSelection(int index);
    int GetRowCount() const;
    // The place of the tab itself, client coordinates of the strip.
    bool GetTabRect(int index, RECT* rect) const;
    // The height that shows all tabs and nothing of a page: (row height x rows) + 2 logical pixels, in device pixels.
    // 0 without tabs. A strip that has no width yet is given its parent's; the caller places it in any case.
    int GetStripHeight();
    // Answers the parent's WM_DRAWITEM for this strip.
    void Draw(const DRAWITEMSTRUCT& draw) const;
};
