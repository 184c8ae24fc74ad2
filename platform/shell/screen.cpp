#include "platform/shell/screen.h"

#include <new>
#include <utility>

#include "aygshell.h"
#include "platform/shell/input_panel.h"
#include "platform/shell/menu_bar.h"
#include "platform/shell/place_keeper.h"
#include "platform/shell/screen_geometry.h"
#include "platform/window_support.h"
#include "px.h"

namespace {

constexpr UINT_PTR kSubclass = 1;
constexpr wchar_t kProperty[] = L"cehost.Screen";

// Posted to a screen that lost its bar: by the time it arrives a bar that replaces it is there, or none will come.
UINT RestoreBarMessage() {
    static const UINT message = RegisterWindowMessageW(L"cehost.RestoreMenuBar");
    return message;
}

SIZE ClientSize(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    return {client.right, client.bottom};
}

bool IsDialog(HWND window) {
    return GetClassLongPtrW(window, GCW_ATOM) == reinterpret_cast<ULONG_PTR>(WC_DIALOG);
}

// Where the menu of a window belongs that was asked for with a key: at its selection, or near its upper left corner.
POINT KeyPoint(HWND window) {
    RECT at{0, 0, Px(8), Px(8)};
    const auto row = static_cast<int>(SendMessageW(window, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED));
    wchar_t name[32] = {};
    GetClassNameW(window, name, ARRAYSIZE(name));
    if (row >= 0 && lstrcmpiW(name, WC_LISTVIEWW) == 0) {
        at.left = LVIR_LABEL;
        SendMessageW(window, LVM_GETITEMRECT, row, reinterpret_cast<LPARAM>(&at));
    }
    POINT point{at.left + Px(8), at.bottom};
    ClientToScreen(window, &point);
    return point;
}

}  // namespace

Screen::Screen(HWND window) : window_(window), client_(ClientSize(window)) {}

Screen::~Screen() {}

Screen* Screen::Of(HWND window) {
    // Another process's window would answer with a pointer of that process.
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process != GetCurrentProcessId()) return nullptr;
    return static_cast<Screen*>(GetPropW(window, kProperty));
}

Screen* Screen::Make(HWND window) {
    if (Screen* screen = Of(window)) return screen;
    if (!IsWindow(window)) return nullptr;
    auto* screen = new (std::nothrow) Screen(window);
    if (screen && SetPropW(window, kProperty, screen)) {
        if (SetWindowSubclass(window, Procedure, kSubclass, reinterpret_cast<DWORD_PTR>(screen))) {
            screen->keeper_ = PlaceKeeper::Begin(window);
            return screen;
        }
        RemovePropW(window, kProperty);
    }
    delete screen;
    return nullptr;
}

int Screen::BarHeight() const {
    return bar_ && (GetWindowLongW(bar_, GWL_STYLE) & WS_VISIBLE) ? Px(kMenuBarHeight) : 0;
}

int Screen::PanelHeight() const {
    if (!panel_) return 0;
    RECT place{};
    GetWindowRect(panel_, &place);
    return place.bottom - place.top;
}

void Screen::SetBar(HWND bar) {
    const HWND before = bar_;
    bar_ = bar;
    if (before) DestroyWindow(before);
    PlaceBar();
}

void Screen::ForgetBar(HWND bar) {
    if (bar_ != bar) return;
    bar_ = nullptr;
    PlacePanel();
    if (done_) PostMessageW(window_, RestoreBarMessage(), 0, 0);
}

void Screen::PlaceBar() {
    if (bar_) {
        const SIZE client = ClientSize(window_);
        const int height = Px(kMenuBarHeight);
        SetWindowPos(bar_, nullptr, 0, client.cy - height, client.cx, height, SWP_NOZORDER | SWP_NOACTIVATE);
    }
    PlacePanel();
}

// A bar without the button for the panel could not take it away again.
bool Screen::CanShowPanel() const {
    const MenuBar* bar = BarHeight() ? MenuBar::Of(bar_) : nullptr;
    return bar && bar->HasPanelButton() && !IsIconic(window_);
}

void Screen::PlacePanel() {
    if (!InputPanel::IsUp() || !CanShowPanel()) {
        if (const HWND panel = std::exchange(panel_, nullptr)) DestroyWindow(panel);
        return;
    }
    if (!panel_) panel_ = InputPanel::Create(window_);
    if (!panel_) return;
    const SIZE client = ClientSize(window_);
    const int bottom = client.cy - BarHeight();
    const int height = InputPanelHeight(client.cx, bottom);
    SetWindowPos(panel_, HWND_TOP, 0, bottom - height, client.cx, height, SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

void Screen::ShowPanelState() const {
    if (const MenuBar* bar = MenuBar::Of(bar_)) bar->ShowPanelState();
}

void Screen::EnsureBar() {
    if (done_ && !bar_) SetBar(MenuBar::CreateEmpty(window_));
}

void Screen::SetDone(bool shown) {
    done_ = shown;
    EnsureBar();
    if (MenuBar* bar = MenuBar::Of(bar_)) bar->ShowDone(shown);
}

// Whether the window shows another client size than it was last told of.
bool Screen::TakeNewSize() {
    if (IsIconic(window_)) return false;
    const SIZE client = ClientSize(window_);
    const bool changed = client.cx != client_.cx || client.cy != client_.cy;
    client_ = client;
    return changed && IsWindowVisible(window_);
}

LRESULT Screen::OnPositionChanged(HWND window, WPARAM wparam, LPARAM lparam) {
    // The bar first: the window computes its layout from where the bar is.
    Of(window)->PlaceBar();
    const LRESULT result = DefSubclassProc(window, WM_WINDOWPOSCHANGED, wparam, lparam);
    if (Screen* screen = Of(window); screen && screen->keeper_) {
        screen->keeper_->OnPositionChanged(*reinterpret_cast<const WINDOWPOS*>(lparam));
    }
    Screen* screen = Of(window);
    if (screen && screen->TakeNewSize()) SendMessageW(window, WM_SETTINGCHANGE, SPI_SETSIPINFO, 0);
    return result;
}

// No screen lays out well that is smaller than this, unless the device is; the others open as large as the main window.
void Screen::LimitSize(MINMAXINFO* limits) const {
    if (!keeper_) return;
    const auto style = static_cast<DWORD>(GetWindowLongW(window_, GWL_STYLE));
    const SIZE least = SmallestContent();
    RECT frame{0, 0, Px(least.cx), Px(least.cy)};
    AdjustWindowRectEx(&frame, style, FALSE, static_cast<DWORD>(GetWindowLongW(window_, GWL_EXSTYLE)));
    limits->ptMinTrackSize = {frame.right - frame.left, frame.bottom - frame.top};
}

LRESULT Screen::OnActivate(WPARAM wparam, LPARAM lparam) {
    const HWND focus = GetFocus();
    if (LOWORD(wparam) == WA_INACTIVE) {
        if (IsChild(window_, focus)) focus_ = focus;
        return DefSubclassProc(window_, WM_ACTIVATE, wparam, lparam);
    }
    const HWND window = window_;
    const HWND before = focus_;
    const LRESULT result = DefSubclassProc(window, WM_ACTIVATE, wparam, lparam);
    if (GetFocus() == window && IsChild(window, before) && IsWindowVisible(before) && IsWindowEnabled(before)) {
        SetFocus(before);
    }
    return result;
}

// Escape arrives as IDCANCEL from no control. A program that sends IDCANCEL itself means it.
bool Screen::OnCommand(WPARAM wparam, LPARAM lparam) {
    if (!closeCommand_ || wparam != IDCANCEL || lparam != 0 || GetKeyState(VK_ESCAPE) >= 0) return false;
    if (closeCommand_ == IDCANCEL) return false;
    SendMessageW(window_, WM_COMMAND, closeCommand_, 0);
    return true;
}

bool Screen::OnContextMenu(HWND clicked, LPARAM position) {
    if (!IsWindowEnabled(window_)) return true;  // behind a modal dialog
    const bool byKey = position == -1;
    const POINT at = byKey ? KeyPoint(clicked) : PointOf(position);
    RECT client;
    GetClientRect(window_, &client);
    MapWindowPoints(window_, nullptr, reinterpret_cast<POINT*>(&client), 2);
    if (!byKey && !PtInRect(&client, at)) return false;  // the caption has a menu of its own
    NMRGINFO notice{};
    notice.hdr = {clicked, static_cast<UINT_PTR>(GetDlgCtrlID(clicked)), GN_CONTEXTMENU};
    notice.ptAction = at;
    SendMessageW(window_, WM_NOTIFY, notice.hdr.idFrom, reinterpret_cast<LPARAM>(&notice));
    return true;
}

bool Screen::OnKeyMenu(wchar_t letter) {
    MenuBar* bar = BarHeight() ? MenuBar::Of(bar_) : nullptr;
    return bar && bar->CanAct() && bar->TrackKeys(letter);
}

LRESULT CALLBACK Screen::Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam, UINT_PTR, DWORD_PTR data) {
    auto* screen = reinterpret_cast<Screen*>(data);
    switch (message) {
        case WM_WINDOWPOSCHANGED: return OnPositionChanged(window, wparam, lparam);
        case WM_GETMINMAXINFO: {
            const LRESULT result = DefSubclassProc(window, message, wparam, lparam);
            screen->LimitSize(reinterpret_cast<MINMAXINFO*>(lparam));
            return result;
        }
        case WM_SHOWWINDOW:
            if (wparam && !lparam && screen->keeper_) screen->keeper_->OnShow();
            break;
        case WM_EXITSIZEMOVE:
        case WM_DESTROY:
            if (screen->keeper_) screen->keeper_->Save();
            break;
        case WM_ENDSESSION:
            if (wparam && screen->keeper_) screen->keeper_->Save();
            break;
        case WM_DISPLAYCHANGE:
            if (screen->keeper_) screen->keeper_->OnDisplayChange();
            break;
        case WM_ACTIVATE:
            if (IsDialog(window)) break;  // does so by itself
            return screen->OnActivate(wparam, lparam);
        case WM_COMMAND:
            if (screen->OnCommand(wparam, lparam)) return 0;
            break;
        case WM_CLOSE:
            if (!screen->closeCommand_) break;
            SendMessageW(window, WM_COMMAND, screen->closeCommand_, 0);
            return 0;
        case WM_CONTEXTMENU:
            if (screen->OnContextMenu(reinterpret_cast<HWND>(wparam), lparam)) return 0;
            break;
        case WM_SYSCOMMAND:
            if ((wparam & 0xFFF0) == SC_KEYMENU && screen->OnKeyMenu(static_cast<wchar_t>(lparam))) return 0;
            break;
        case WM_NCDESTROY:
            RemoveWindowSubclass(window, Procedure, kSubclass);
            RemovePropW(window, kProperty);
            delete screen;
            break;
        default:
            if (message == RestoreBarMessage()) {
                screen->EnsureBar();
                return 0;
            }
    }
    return DefSubclassProc(window, message, wparam, lparam);
}
