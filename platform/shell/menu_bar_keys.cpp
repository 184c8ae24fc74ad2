// The keyboard's way along the menu bar. Like the system's menus it leaves the focus where it is: whatever is being
// edited stays open until a command says otherwise.
#include <algorithm>

#include "aygshell.h"
#include "platform/shell/menu_bar.h"

namespace {

constexpr UINT kTrack = WM_USER;  // to the Menu window: walk along the buttons

bool IsPress(UINT message) {
    switch (message) {
        case WM_LBUTTONDOWN:
        case WM_RBUTTONDOWN:
        case WM_MBUTTONDOWN:
        case WM_NCLBUTTONDOWN:
        case WM_NCRBUTTONDOWN: return true;
    }
    return false;
}

bool IsKey(UINT message) {
    return message >= WM_KEYFIRST && message <= WM_KEYLAST;
}

}  // namespace

LRESULT CALLBACK MenuBar::MenuProcedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_NCCREATE) {
        SetWindowLongPtrW(window, GWLP_USERDATA,
                          reinterpret_cast<LONG_PTR>(reinterpret_cast<CREATESTRUCTW*>(lparam)->lpCreateParams));
    }
    if (message == kTrack) return reinterpret_cast<MenuBar*>(GetWindowLongPtrW(window, GWLP_USERDATA))->KeyLoop();
    return DefWindowProcW(window, message, wparam, lparam);
}

// The buttons that can be pressed now, from left to right.
std::vector<MenuBar::Mark> MenuBar::Stops() const {
    std::vector<Mark> stops;
    const auto add = [&](HWND bar, UINT command) {
        const LRESULT state = SendMessageW(bar, TB_GETSTATE, command, 0);
        if (state != -1 && (state & TBSTATE_ENABLED) && !(state & TBSTATE_HIDDEN)) stops.push_back({bar, command});
    };
    for (const Item& item : items_) {
        if (!item.separator) add(toolbar_, item.command);
    }
    if (HasPanelButton()) add(panel_, kInputPanelCommand);
    if (GetWindowLongW(done_, GWL_STYLE) & WS_VISIBLE) add(done_, IDOK);
    return stops;
}

void MenuBar::SetMark(Mark mark) {
    mark_ = mark;
    InvalidateRect(toolbar_, nullptr, FALSE);
    InvalidateRect(panel_, nullptr, FALSE);
    InvalidateRect(done_, nullptr, FALSE);
}

bool MenuBar::TrackKeys(wchar_t letter) {
    if (letter == L' ') return false;  // the window's own menu
    if (letter) return ChooseLetter(letter);
    return SendMessageW(menuWindow_, kTrack, 0, 0) != 0;
}

void MenuBar::Choose(Mark stop, bool open) {
    if (open && stop.bar == toolbar_ && HasPopup(stop.command)) return OpenPopup(stop.command, true);
    const Item* item = Find(stop.command);
    const bool onlyOpens = stop.bar == toolbar_ && HasPopup(stop.command) && !IsTwoPart(stop.command);
    if (item && onlyOpens) return OpenPopup(stop.command, true);
    if (stop.bar == toolbar_ && (SendMessageW(toolbar_, TB_GETSTATE, stop.command, 0) & TBSTATE_ENABLED)) {
        TBBUTTONINFOW info{};
        info.cbSize = sizeof(info);
        info.dwMask = TBIF_STYLE | TBIF_STATE;
        SendMessageW(toolbar_, TB_GETBUTTONINFOW, stop.command, reinterpret_cast<LPARAM>(&info));
        if (info.fsStyle & BTNS_CHECK) {
            SendMessageW(toolbar_, TB_CHECKBUTTON, stop.command, !(info.fsState & TBSTATE_CHECKED));
        }
    }
    Send(stop.command);
}

bool MenuBar::ChooseLetter(wchar_t letter) {
    const auto upper = [](wchar_t c) { return static_cast<wchar_t>(LOWORD(CharUpperW(MAKEINTRESOURCEW(c)))); };
    for (const Mark& stop : Stops()) {
        const std::wstring text = TextOf(stop.bar, stop.command);
        if (text.empty() || upper(text.front()) != upper(letter)) continue;
        Choose(stop, true);
        return true;
    }
    return false;
}

bool MenuBar::KeyLoop() {
    const std::vector<Mark> stops = Stops();
    if (stops.empty() || mark_.bar) return false;
    const HWND frame = frame_;
    size_t at = 0;
    SetMark(stops[at]);
    const auto step = [&](size_t by) {
        at = (at + by) % stops.size();
        SetMark(stops[at]);
    };
    bool choose = false;
    bool open = false;
    wchar_t letter = 0;
    const auto key = [&](WPARAM code) {  // whether the walk goes on
        switch (code) {
            case VK_RIGHT: step(1); return true;
            case VK_LEFT: step(stops.size() - 1); return true;
            case VK_UP:
            case VK_DOWN: choose = open = true; return false;
            case VK_RETURN:
            case VK_SPACE: choose = true; return false;
            case VK_SHIFT:
            case VK_CONTROL: return true;
        }
        letter = static_cast<wchar_t>(MapVirtualKeyW(static_cast<UINT>(code), MAPVK_VK_TO_CHAR));
        return false;
    };

    const HWND active = GetActiveWindow();
    for (MSG message; GetActiveWindow() == active;) {
        if (GetMessageW(&message, nullptr, 0, 0) <= 0) {
            PostQuitMessage(static_cast<int>(message.wParam));
            break;
        }
        const bool press = IsPress(message.message);
        if (message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN) {
            if (!key(message.wParam)) break;
        } else if (!IsKey(message.message)) {
            if (press) SetMark({});
            DispatchMessageW(&message);
        }
        if (press || Of(frame) != this) break;
    }
    if (Of(frame) != this) return true;
    SetMark({});
    if (choose) {
        Choose(stops[at], open);
    } else if (letter) {
        ChooseLetter(letter);
    }
    return true;
}
