// Windows and dialogs with the place and size of a screen.
#include <algorithm>

#include "aygshell.h"
#include "platform/shell/screen.h"
#include "platform/shell/screen_geometry.h"
#include "platform/shell/window_icon.h"
#include "px.h"

namespace {

constexpr DWORD kFrame = WS_CAPTION | WS_SYSMENU | WS_THICKFRAME;
constexpr DWORD kSizeFlags = SHIDIF_SIZEDLG | SHIDIF_SIZEDLGFULLSCREEN | SHIDIF_FULLSCREENNOMENUBAR;

RECT WorkArea() {
    RECT work{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    return work;
}

// The size of a window whose client area is `client`, no larger than the work area.
SIZE FramedSize(SIZE client, DWORD style, DWORD exStyle) {
    RECT frame{0, 0, client.cx, client.cy};
    AdjustWindowRectEx(&frame, style, FALSE, exStyle);
    const RECT work = WorkArea();
    return {std::min(frame.right - frame.left, work.right - work.left),
            std::min(frame.bottom - frame.top, work.bottom - work.top)};
}

// A device screen in the middle of the work area.
RECT CentredScreen(DWORD style, DWORD exStyle) {
    const SIZE content = ContentSize();
    const SIZE size = FramedSize({Px(content.cx), Px(content.cy)}, style, exStyle);
    const RECT work = WorkArea();
    const LONG left = (work.left + work.right - size.cx) / 2;
    const LONG top = (work.top + work.bottom - size.cy) / 2;
    return {left, top, left + size.cx, top + size.cy};
}

void FillScreen(HWND dialog) {
    const DWORD style = (static_cast<DWORD>(GetWindowLongW(dialog, GWL_STYLE)) | kFrame) & ~DS_MODALFRAME;
    const DWORD exStyle = static_cast<DWORD>(GetWindowLongW(dialog, GWL_EXSTYLE)) & ~WS_EX_DLGMODALFRAME;
    SetWindowLongW(dialog, GWL_STYLE, static_cast<LONG>(style));
    SetWindowLongW(dialog, GWL_EXSTYLE, static_cast<LONG>(exStyle));
    const HWND owner = GetWindow(dialog, GW_OWNER);
    if (owner) ShowIconsOf(owner, dialog);
    RECT place{};
    if (!owner || IsIconic(owner) || !GetWindowRect(owner, &place) || IsRectEmpty(&place)) {
        place = CentredScreen(style, exStyle);
    }
    SetWindowPos(dialog, nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

// A dialog smaller than a screen grows by its bar instead of hiding its lowest controls behind it.
void MakeRoomForBar(HWND dialog) {
    RECT place{};
    GetWindowRect(dialog, &place);
    SetWindowPos(dialog, nullptr, 0, 0, place.right - place.left, place.bottom - place.top + Px(kMenuBarHeight),
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

BOOL CALLBACK KeepReturn(HWND control, LPARAM) {
    wchar_t name[32] = {};
    GetClassNameW(control, name, ARRAYSIZE(name));
    const LONG style = GetWindowLongW(control, GWL_STYLE);
    const bool isEdit = lstrcmpiW(name, WC_EDITW) == 0 || lstrcmpiW(name, WC_CAPEDIT) == 0;
    if (isEdit && (style & ES_MULTILINE)) SetWindowLongW(control, GWL_STYLE, style | ES_WANTRETURN);
    return TRUE;
}

BOOL Refuse() {
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
}

}  // namespace

void SHScreenWindow(DWORD* style, SIZE* size) {
    *style = (*style | kFrame | WS_MINIMIZEBOX | WS_MAXIMIZEBOX) & ~static_cast<DWORD>(WS_VISIBLE);
    SIPINFO panel{};
    panel.cbSize = sizeof(panel);
    SHSipInfo(SPI_GETSIPINFO, 0, &panel, 0);
    const LONG panelHeight = panel.fdwFlags & SIPF_ON ? panel.rcSipRect.bottom - panel.rcSipRect.top : 0;
    *size = FramedSize({size->cx, size->cy + panelHeight + Px(kMenuBarHeight)}, *style, 0);
}

BOOL SHInitDialog(SHINITDLGINFO* info) {
    if (!info || !(info->dwMask & SHIDIM_FLAGS)) return Refuse();
    Screen* screen = Screen::Make(info->hDlg);
    if (!screen) return Refuse();
    screen->SetCloseCommand(GetDlgItem(info->hDlg, IDCANCEL) ? IDCANCEL : IDOK);
    EnumChildWindows(info->hDlg, KeepReturn, 0);
    if (info->dwFlags & SHIDIF_SIPDOWN) SHSipPreference(info->hDlg, SIP_FORCEDOWN);
    if (info->dwFlags & kSizeFlags) FillScreen(info->hDlg);
    if (info->dwFlags & SHIDIF_DONEBUTTON) {
        const bool grows = !(info->dwFlags & kSizeFlags) && !screen->Bar();
        screen->SetDone(true);
        if (grows) MakeRoomForBar(info->hDlg);
    }
    return TRUE;
}

BOOL SHSetCloseCommand(HWND dialog, UINT command) {
    Screen* screen = Screen::Of(dialog);
    if (!screen || !screen->CloseCommand() || !command) return Refuse();
    screen->SetCloseCommand(command);
    return TRUE;
}

BOOL SHDoneButton(HWND window, DWORD state) {
    Screen* screen = state == SHDB_SHOW || state == SHDB_HIDE ? Screen::Make(window) : nullptr;
    if (!screen) return Refuse();
    screen->SetDone(state == SHDB_SHOW);
    return TRUE;
}
