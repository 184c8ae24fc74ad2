#include "ui/drop_calendar.h"

namespace {

constexpr UINT_PTR kPickerSubclass = 11;  // 1 to 3 are a screen's
constexpr UINT_PTR kCalendarSubclass = 12;

// While a calendar hangs open. There is one at a time: the next one takes the focus from it.
struct OpenCalendar {
    HWND calendar = nullptr;
    HWND picker = nullptr;
    HHOOK mouse = nullptr;
};
OpenCalendar open;

HWND CalendarOf(HWND picker) {
    return reinterpret_cast<HWND>(SendMessageW(picker, DTM_GETMONTHCAL, 0, 0));
}

void Forget() {
    if (open.mouse) UnhookWindowsHookEx(open.mouse);
    open = {};
}

void Close() {
    const OpenCalendar closing = open;
    Forget();
    SendMessageW(closing.picker, DTM_CLOSEMONTHCAL, 0, 0);
    if (IsWindowVisible(closing.calendar)) ShowWindow(closing.calendar, SW_HIDE);
}

bool IsOfCalendar(HWND window) {
    return window == open.calendar || window == open.picker || IsChild(open.calendar, window);
}

LRESULT CALLBACK OnMouse(int code, WPARAM message, LPARAM data) {
    const bool pressed = message == WM_LBUTTONDOWN || message == WM_RBUTTONDOWN || message == WM_MBUTTONDOWN ||
                         message == WM_NCLBUTTONDOWN || message == WM_NCRBUTTONDOWN || message == WM_NCMBUTTONDOWN;
    const auto* mouse = reinterpret_cast<const MOUSEHOOKSTRUCT*>(data);
    if (code == HC_ACTION && pressed && open.calendar && !IsOfCalendar(mouse->hwnd)) Close();
    return CallNextHookEx(nullptr, code, message, data);
}

void OnKey(HWND picker, WPARAM key) {
    Close();
    SetFocus(picker);
    if (key == VK_TAB) SendMessageW(GetParent(picker), WM_NEXTDLGCTL, GetKeyState(VK_SHIFT) < 0, FALSE);
}

LRESULT CALLBACK CalendarProcedure(HWND calendar, UINT message, WPARAM wparam, LPARAM lparam, UINT_PTR,
                                   DWORD_PTR picker) noexcept {
    switch (message) {
        case WM_KEYDOWN:
            if (calendar != open.calendar || (wparam != VK_ESCAPE && wparam != VK_TAB)) break;
            OnKey(reinterpret_cast<HWND>(picker), wparam);
            return 0;
        case WM_KILLFOCUS:
            if (calendar == open.calendar && !IsOfCalendar(reinterpret_cast<HWND>(wparam))) Close();
            break;
        case WM_SHOWWINDOW:
            if (calendar == open.calendar && !wparam) Forget();
            break;
        case WM_NCDESTROY:
            if (calendar == open.calendar) Forget();
            RemoveWindowSubclass(calendar, CalendarProcedure, kCalendarSubclass);
            break;
        default: break;
    }
    return DefSubclassProc(calendar, message, wparam, lparam);
}

LRESULT CALLBACK PickerProcedure(HWND picker, UINT message, WPARAM wparam, LPARAM lparam, UINT_PTR,
                                 DWORD_PTR) noexcept {
    if (message == WM_NCDESTROY) RemoveWindowSubclass(picker, PickerProcedure, kPickerSubclass);
    const LRESULT result = DefSubclassProc(picker, message, wparam, lparam);
    if (message != WM_LBUTTONDOWN && message != WM_KEYDOWN && message != WM_SYSKEYDOWN) return result;
    const HWND calendar = CalendarOf(picker);
    if (!calendar || !IsWindowVisible(calendar) || calendar == open.calendar) return result;
    if (open.calendar) Close();
    SetWindowSubclass(calendar, CalendarProcedure, kCalendarSubclass, reinterpret_cast<DWORD_PTR>(picker));
    open = {calendar, picker, SetWindowsHookExW(WH_MOUSE, OnMouse, nullptr, GetCurrentThreadId())};
    return result;
}

}  // namespace

void WatchCalendar(HWND picker) {
    SetWindowSubclass(picker, PickerProcedure, kPickerSubclass, 0);
}
