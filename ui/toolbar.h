// Toolbar: the bar of text buttons over the list of entries (custom drawn), and the one inside the menu bar.
#pragma once

#include <string>

#include "ui/control.h"

class Toolbar : public Control {
public:
    Toolbar() : Control(TOOLBARCLASSNAMEW) {}

    // Adds a button at the end with a fixed width; `style` is BTNS_DROPDOWN, BTNS_BUTTON, BTNS_CHECK... (the whole of a
    // BTNS_WHOLEDROPDOWN button opens the menu). The text is kept with the button.
    bool AddTextButton(int id, BYTE style, const wchar_t* text, int width);
    bool AddSeparator(int width);
    // One size for all buttons, before they are added.
    bool SetButtonSize(int width, int height);
    bool SetButtonWidth(int id, int width);
    bool SetButtonText(int id, const wchar_t* text);
    std::wstring GetButtonText(int id) const;
    // TBSTATE_ bits (TBSTATE_CHECKED, TBSTATE_PRESSED, TBSTATE_ENABLED...); 0 when there is no such button.
    BYTE GetButtonState(int id) const;
    bool EnableButton(int id, bool enable);
    bool CheckButton(int id, bool check);
    bool PressButton(int id, bool press);
    bool IsButtonChecked(int id) const;
    int GetButtonCount() const;
    // Client coordinates of the bar. False when there is no such button.
    bool GetButtonRect(int id, RECT* rect) const;
    // The font of the bar; never 0 for a live bar.
    HFONT GetFont() const;
};
