#include "tests/support/open_menu.h"

#include <gtest/gtest.h>

#include <utility>

#include "tests/support/pump.h"

namespace {

struct Visit {
    const std::function<void(HWND menu)>* whileOpen;
    const std::vector<WORD>* keys;
};

Visit* visit = nullptr;  // until the menu has come

BOOL CALLBACK FindMenu(HWND window, LPARAM found) {
    wchar_t name[10] = L"";
    GetClassNameW(window, name, 10);
    if (lstrcmpW(name, L"#32768") != 0 || !IsWindowVisible(window)) return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD) {
    HWND menu = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), FindMenu, reinterpret_cast<LPARAM>(&menu));
    if (menu == nullptr || visit == nullptr) return;
    const Visit now = *std::exchange(visit, nullptr);
    UpdateWindow(menu);
    (*now.whileOpen)(menu);
    for (const WORD key : *now.keys)
        PostMessageW(menu, WM_KEYDOWN, key, 0);
}

}  // namespace

void WithMenu(const std::function<void()>& opens, const std::function<void(HWND menu)>& whileOpen,
              const std::vector<WORD>& keys) {
    // A pointer over the menu would choose, too.
    POINT before = {};
    GetCursorPos(&before);
    SetCursorPos(GetSystemMetrics(SM_CXSCREEN) - 1, GetSystemMetrics(SM_CYSCREEN) - 1);
    PumpOnce();
    Visit here = {&whileOpen, &keys};
    visit = &here;
    const UINT_PTR timer = SetTimer(nullptr, 0, 10, OnTimer);
    opens();
    KillTimer(nullptr, timer);
    SetCursorPos(before.x, before.y);
    EXPECT_EQ(visit, nullptr) << "no menu came";
    visit = nullptr;
}

RECT MenuPlace(HWND menu) {
    RECT place = {};
    EXPECT_TRUE(GetWindowRect(menu, &place));
    return place;
}
