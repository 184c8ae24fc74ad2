// What the menu bar's buttons open.
#include "aygshell.h"
#include "platform/shell/input_panel.h"
#include "platform/shell/menu_bar.h"
#include "platform/window_support.h"

bool MenuBar::IsTwoPart(UINT command) {
    return command == IDM_SHAREDNEW;
}

// The buttons are the bar's own only inside it: outside, a command looks like any other control's.
void MenuBar::Send(UINT command) const {
    if (!CanAct()) return;
    if (command == kInputPanelCommand) return InputPanel::SetUp(!InputPanel::IsUp());
    // The command may open a screen over the bar, and the bar is not told then that the pointer left the button.
    SendMessageW(toolbar_, TB_SETHOTITEM, static_cast<WPARAM>(-1), 0);
    SendMessageW(owner_, WM_COMMAND, MAKEWPARAM(command, 0), reinterpret_cast<LPARAM>(frame_));
}

bool MenuBar::HasPopup(UINT command) {
    const Item* item = Find(command);
    return item && (item->popup || command == IDM_SHAREDNEW || command == IDM_SHAREDNEWDEFAULT);
}

// The toolbar asks on the press. Treating a press as one on a plain button leaves the command to the release.
LRESULT MenuBar::OnDropDown(const NMTOOLBARW& notice) {
    if (!CanAct()) return TBDDRET_NODEFAULT;
    const UINT command = static_cast<UINT>(notice.iItem);
    if (!HasPopup(command)) return TBDDRET_TREATPRESSED;
    if (IsTwoPart(command)) {
        RECT button{};
        SendMessageW(toolbar_, TB_GETRECT, command, reinterpret_cast<LPARAM>(&button));
        POINT at = PointOf(GetMessagePos());
        ScreenToClient(toolbar_, &at);
        if (at.x < ArrowPart(button).left) return TBDDRET_TREATPRESSED;
    }
    OpenPopup(command, false);
    return TBDDRET_DEFAULT;
}

void MenuBar::OpenPopup(UINT command, bool byKey) {
    if (command == IDM_SHAREDNEW || command == IDM_SHAREDNEWDEFAULT) return OpenNewMenu(command, byKey);
    const Item* item = Find(command);
    if (item && item->popup) Track(command, item->popup, 0, byKey);
}

void MenuBar::OpenNewMenu(UINT command, bool byKey) {
    const HWND owner = owner_;
    NMNEWMENU notice{};
    notice.hdr = {frame_, command, NMN_GETAPPREGKEY};
    notice.hMenu = CreatePopupMenu();
    SendMessageW(owner, WM_NOTIFY, command, reinterpret_cast<LPARAM>(&notice));
    if (GetMenuItemCount(notice.hMenu) > 0) {
        if (const UINT chosen = Track(command, notice.hMenu, TPM_RETURNCMD, byKey)) {
            PostMessageW(owner, WM_COMMAND, chosen, 0);
        }
    }
    notice.hdr.code = NMN_NEWMENUDESTROY;
    SendMessageW(owner, WM_NOTIFY, command, reinterpret_cast<LPARAM>(&notice));
    DestroyMenu(notice.hMenu);
}

// The bar may be gone when a popup closes: the owner does as it likes meanwhile.
UINT MenuBar::Track(UINT command, HMENU popup, UINT flags, bool byKey) {
    const HWND frame = frame_;
    const HWND owner = owner_;
    open_ = {toolbar_, command};
    RECT button{};
    SendMessageW(toolbar_, TB_GETRECT, command, reinterpret_cast<LPARAM>(&button));
    InvalidateRect(toolbar_, &button, FALSE);
    UpdateWindow(toolbar_);
    MapWindowPoints(toolbar_, nullptr, reinterpret_cast<POINT*>(&button), 2);
    TPMPARAMS keepClear{sizeof(TPMPARAMS), button};
    if (byKey) PostMessageW(owner, WM_KEYDOWN, VK_DOWN, 0);  // the first item comes selected
    const int chosen = TrackPopupMenuEx(popup, flags | TPM_LEFTALIGN | TPM_BOTTOMALIGN | TPM_VERTICAL, button.left,
                                        button.top, owner, &keepClear);
    if (Of(frame) == this) {
        open_ = {};
        InvalidateRect(toolbar_, nullptr, FALSE);
    }
    return static_cast<UINT>(chosen);
}
