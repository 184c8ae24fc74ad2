// The menu bar of a screen: a window of class CBFRAME, in it a ReBarWindow32, in that the ToolbarWindow32 with the
// buttons, whose first child is the hidden window of class Menu that leads the keyboard along the buttons. The OK
// button and that of the input panel are toolbars of their own beside the ReBarWindow32, so that they stay when buttons
// are added or hidden.
#pragma once

#include <win.h>

#include <string>
#include <vector>

#include "platform/shell/button_pictures.h"
#include "platform/shell/menu_bar_resource.h"

class MenuBar {
public:
    // Makes a bar with the buttons of a resource; the caller gives it to the screen. `flags` are SHCMBF_*. Null with
    // the last error set when a part of it is missing.
    static HWND Create(HWND owner, HINSTANCE module, UINT id, UINT pictures, DWORD flags);
    // Makes a bar without buttons; the caller gives it to the screen.
    static HWND CreateEmpty(HWND owner, DWORD flags = 0);
    // The object behind a bar, or null for any other window.
    static MenuBar* Of(HWND bar);

    void ShowDone(bool shown);

    // Whether the screen can be used: behind a modal dialog, or hidden, its bar does nothing, whoever posts it taps.
    bool CanAct() const;

    // The button that raises and lowers the input panel.
    bool HasPanelButton() const;
    void ShowPanelState() const;

    // The keyboard walks along the buttons until it has chosen one or given up; a letter opens the drop-down that
    // begins with it at once. False when there is nothing to walk along or no such drop-down.
    bool TrackKeys(wchar_t letter);

private:
    struct Item {
        UINT command;
        int image;  // -1: shows its text
        std::wstring text;
        HMENU popup;
        bool separator;
    };
    // What the keyboard or an open popup marks: a button of either toolbar by its command.
    struct Mark {
        HWND bar = nullptr;
        UINT command = 0;
    };

    explicit MenuBar(HWND owner);
    ~MenuBar();
    MenuBar(const MenuBar&) = delete;
    MenuBar& operator=(const MenuBar&) = delete;

    static bool RegisterClasses();
    static LRESULT CALLBACK FrameProcedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    static LRESULT CALLBACK MenuProcedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    static LRESULT CALLBACK BarProcedure(HWND bar, UINT message, WPARAM wparam, LPARAM lparam, UINT_PTR id,
                                         DWORD_PTR object);

    // menu_bar.cpp: the windows and what is in them.
    HWND CreateFrame(DWORD flags);
    bool CreateParts(HWND frame);
    HWND CreateToolbar(HWND parent);
    bool Load(HINSTANCE module, UINT id, UINT pictures);
    Item ItemOf(const MenuBarButton& button, HINSTANCE module) const;
    void AddButton(HWND bar, const Item& item, BYTE state, BYTE style);
    void Fit();  // the widths of the buttons to their texts
    void LayOut() const;
    void SetButtonWidth(HWND bar, UINT command, int width) const;
    LRESULT OnFrameMessage(UINT message, WPARAM wparam, LPARAM lparam);
    LRESULT OnToolbarMessage(UINT message, WPARAM wparam, LPARAM lparam);
    LRESULT OnNotify(NMHDR* notice);
    HMENU SetPopup(UINT command, HMENU popup);
    Item* Find(UINT command);
    std::wstring TextOf(HWND bar, UINT command) const;

    // menu_bar_popups.cpp: drop-downs and the New menu.
    LRESULT OnDropDown(const NMTOOLBARW& notice);
    bool HasPopup(UINT command);
    void OpenPopup(UINT command, bool byKey);
    void OpenNewMenu(UINT command, bool byKey);
    UINT Track(UINT command, HMENU popup, UINT flags, bool byKey);
    void Send(UINT command) const;
    static bool IsTwoPart(UINT command);
    RECT ArrowPart(const RECT& button) const;

    // menu_bar_keys.cpp: the keyboard.
    std::vector<Mark> Stops() const;
    void SetMark(Mark mark);
    bool KeyLoop();
    void Choose(Mark stop, bool open);
    bool ChooseLetter(wchar_t letter);

    // menu_bar_paint.cpp: the look.
    LRESULT OnCustomDraw(NMTBCUSTOMDRAW* draw);
    void DrawButton(const NMTBCUSTOMDRAW& draw);
    void DrawKeyboard(HDC dc, const RECT& area, COLORREF colour) const;
    void DrawSeparators(HDC dc, HWND bar) const;
    void DrawFrame(HDC dc) const;
    int TextWidth(const std::wstring& text) const;
    static void FillColour(HDC dc, const RECT& area, COLORREF colour);

    HWND owner_;
    HWND frame_ = nullptr;
    HWND rebar_ = nullptr;
    HWND toolbar_ = nullptr;
    HWND menuWindow_ = nullptr;
    HWND done_ = nullptr;
    HWND panel_ = nullptr;  // the button of the input panel
    HFONT font_ = nullptr;
    HFONT boldFont_ = nullptr;
    HMENU menu_ = nullptr;  // the MENU resource
    ButtonPictures pictures_;
    std::vector<Item> items_;
    Mark mark_;  // where the keyboard is
    Mark open_;  // whose popup is open
};
