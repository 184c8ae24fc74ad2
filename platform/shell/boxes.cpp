#include "platform/shell/boxes.h"

#include <win.h>

#include <algorithm>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "platform/shell/screen.h"
#include "platform/shell/window_icon.h"
#include "platform/shell/window_place.h"

namespace {

constexpr UINT_PTR kSubclass = 2;

struct BoxPlace {
    SIZE size{};           // as placed; 0 before, and for a box that may have any
    int again = 5;         // how many times it is given back at most
    bool* gone = nullptr;  // set when this goes while a message is handled
};

thread_local HHOOK hook = nullptr;

BOOL CALLBACK TakeScreen(HWND window, LPARAM found) {
    if (!Screen::Of(window)) return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

// What a box stands over: its owner, else the screen that is active, else any of this thread; null when there is none.
HWND BaseOf(HWND box) {
    HWND base = GetWindow(box, GW_OWNER);
    if (base) return GetAncestor(base, GA_ROOT);
    base = GetActiveWindow();
    if (base && base != box && Screen::Of(base)) return base;
    base = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), TakeScreen, reinterpret_cast<LPARAM>(&base));
    return base;
}

int TextWidth(const std::wstring& text, const LOGFONTW& description) {
    const HDC dc = GetDC(nullptr);
    const HFONT font = CreateFontIndirectW(&description);
    const HGDIOBJ before = SelectObject(dc, font);
    SIZE size{};
    GetTextExtentPoint32W(dc, text.c_str(), static_cast<int>(text.size()), &size);
    SelectObject(dc, before);
    DeleteObject(font);
    ReleaseDC(nullptr, dc);
    return size.cx;
}

// How wide a box must be to show its caption: between the icon and the buttons that a window manager, whose font is its
// own and may be bold, puts there.
int CaptionWidth(HWND box) {
    constexpr int kButtons = 5;  // the icon and up to four buttons
    std::wstring caption(static_cast<size_t>(GetWindowTextLengthW(box)) + 1, L'\0');
    caption.resize(static_cast<size_t>(GetWindowTextW(box, caption.data(), static_cast<int>(caption.size()))));
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof(metrics);
    if (!SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0)) return 0;
    metrics.lfCaptionFont.lfWeight = FW_BOLD;
    return TextWidth(caption, metrics.lfCaptionFont) + kButtons * GetSystemMetrics(SM_CYCAPTION);
}

RECT PlaceIn(HWND box, HWND control) {
    RECT place{};
    GetWindowRect(control, &place);
    MapWindowPoints(nullptr, box, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

// The buttons of a box that has grown by `more` keep to the middle, or to the right where they were there.
void MoveButtons(HWND box, int more) {
    std::vector<HWND> buttons;
    LONG left = LONG_MAX, right = 0;
    for (HWND button = FindWindowExW(box, nullptr, WC_BUTTONW, nullptr); button;
         button = FindWindowExW(box, button, WC_BUTTONW, nullptr)) {
        if (!(GetWindowLongW(button, GWL_STYLE) & WS_VISIBLE)) continue;
        const RECT place = PlaceIn(box, button);
        left = std::min(left, place.left);
        right = std::max(right, place.right);
        buttons.push_back(button);
    }
    RECT client{};
    GetClientRect(box, &client);
    const LONG rightGap = client.right - more - right;
    const int shift = left > 2 * rightGap ? more : more / 2;
    for (const HWND button : buttons) {
        const RECT place = PlaceIn(box, button);
        SetWindowPos(button, nullptr, place.left + shift, place.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
}

// A box the person can size, a file dialog, knows its place and its size.
bool IsPlain(HWND box) {
    const auto style = static_cast<DWORD>(GetWindowLongW(box, GWL_STYLE));
    return (style & WS_CAPTION) == WS_CAPTION && !(style & (WS_CHILD | WS_THICKFRAME)) && !Screen::Of(box);
}

// Answers the size the box has now, or nothing when it may have any.
SIZE Place(HWND box) {
    const HWND base = BaseOf(box);
    if (!base) return {};
    ShowIconsOf(base, box);
    if (!IsPlain(box)) return {};
    RECT own{}, under{};
    GetWindowRect(box, &own);
    if (IsIconic(base) || !GetWindowRect(base, &under)) return {};
    const int width = own.right - own.left;
    const int height = own.bottom - own.top;
    const int wide = std::max(width, CaptionWidth(box));
    const LONG left = (under.left + under.right - wide) / 2;
    const LONG top = (under.top + under.bottom - height) / 2;
    const RECT place = BroughtIntoView({left, top, left + wide, top + height});
    SetWindowPos(box, nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    const int more = static_cast<int>(place.right - place.left) - width;
    if (more > 0) MoveButtons(box, more);
    return {place.right - place.left, place.bottom - place.top};
}

// A window manager that is late may give a box just shown the size it was made with: nobody can have wished for that.
void KeepSize(HWND box, BoxPlace& place) {
    RECT now{};
    GetWindowRect(box, &now);
    const SIZE size{now.right - now.left, now.bottom - now.top};
    if (!IsWindowVisible(box) || !place.size.cx || place.again == 0) return;
    if (size.cx == place.size.cx && size.cy == place.size.cy) return;
    --place.again;
    SetWindowPos(box, nullptr, 0, 0, place.size.cx, place.size.cy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// The box has its texts and its size when it has initialised itself, and is not to be seen yet.
LRESULT CALLBACK BoxProcedure(HWND box, UINT message, WPARAM wparam, LPARAM lparam, UINT_PTR, DWORD_PTR data) {
    auto* place = reinterpret_cast<BoxPlace*>(data);
    // What comes of the message may destroy the box, and with it the place.
    bool gone = false;
    bool* const outer = std::exchange(place->gone, &gone);
    const LRESULT result = DefSubclassProc(box, message, wparam, lparam);
    if (!gone) place->gone = outer;
    if (outer && (gone || message == WM_NCDESTROY)) *outer = true;
    if (gone) return result;
    switch (message) {
        case WM_INITDIALOG: place->size = Place(box); break;
        case WM_WINDOWPOSCHANGED: KeepSize(box, *place); break;
        case WM_NCDESTROY:
            RemoveWindowSubclass(box, BoxProcedure, kSubclass);
            delete place;
            break;
    }
    return result;
}

bool IsTopLevelDialog(const CBT_CREATEWNDW& made, HWND window) {
    return !(made.lpcs->style & WS_CHILD) &&
           GetClassLongPtrW(window, GCW_ATOM) == reinterpret_cast<ULONG_PTR>(WC_DIALOG);
}

LRESULT CALLBACK Watch(int code, WPARAM wparam, LPARAM lparam) {
    const auto window = reinterpret_cast<HWND>(wparam);
    if (code == HCBT_CREATEWND && IsTopLevelDialog(*reinterpret_cast<const CBT_CREATEWNDW*>(lparam), window)) {
        auto* place = new (std::nothrow) BoxPlace;
        if (place && !SetWindowSubclass(window, BoxProcedure, kSubclass, reinterpret_cast<DWORD_PTR>(place)))
            delete place;
    }
    return CallNextHookEx(nullptr, code, wparam, lparam);
}

}  // namespace

bool PlaceBoxes() {
    if (!hook) hook = SetWindowsHookExW(WH_CBT, Watch, nullptr, GetCurrentThreadId());
    return hook != nullptr;
}
