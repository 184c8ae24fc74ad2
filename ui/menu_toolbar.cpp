#include "ui/menu_toolbar.h"

#include "ui/window_class.h"

namespace {

HWND FirstChildOfClass(HWND parent, const wchar_t* className) {
    HWND child = GetWindow(parent, GW_CHILD);
    while (child != nullptr && !IsWindowClass(child, className))
        child = GetWindow(child, GW_HWNDNEXT);
    return child;
}

bool CarriesMenuButton(HWND toolbar) {
    return IsWindowClass(GetWindow(toolbar, GW_CHILD), L"Menu");
}

}  // namespace

HWND FindMenuToolbar(HWND window) {
    if (window == nullptr) return nullptr;
    const HWND frame = FirstChildOfClass(window, L"CBFRAME");
    if (frame == nullptr) return nullptr;
    const HWND rebar = FirstChildOfClass(frame, L"ReBarWindow32");
    if (rebar == nullptr) return nullptr;
    HWND child = GetWindow(rebar, GW_CHILD);
    while (child != nullptr && !(IsWindowClass(child, L"ToolbarWindow32") && CarriesMenuButton(child))) {
        child = GetWindow(child, GW_HWNDNEXT);
    }
    return child;
}
