// The input panel's record. There is no panel yet: it is always down, and nothing has to be moved for it. When there is
// one, its state lives here.
#include "aygshell.h"
#include "platform/shell/screen_geometry.h"
#include "px.h"

namespace {

BOOL Refuse() {
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
}

}  // namespace

BOOL SHSipInfo(UINT action, UINT, PVOID info, UINT) {
    auto* sip = static_cast<SIPINFO*>(info);
    if (!sip || sip->cbSize != sizeof(SIPINFO)) return Refuse();
    if (action == SPI_SETSIPINFO) return sip->fdwFlags & SIPF_ON ? Refuse() : TRUE;
    if (action != SPI_GETSIPINFO) return Refuse();
    const SIZE content = ContentSize();
    const int bottom = content.cy - kMenuBarHeight;
    *sip = {};
    sip->cbSize = sizeof(SIPINFO);
    sip->fdwFlags = SIPF_OFF | SIPF_DOCKED;
    sip->rcVisibleDesktop = {0, 0, Px(content.cx), Px(content.cy)};
    sip->rcSipRect = {0, Px(bottom - kInputPanelHeight), Px(content.cx), Px(bottom)};
    return TRUE;
}

BOOL SHSipPreference(HWND, SIPSTATE) {
    return TRUE;
}

BOOL SHHandleWMSettingChange(HWND, WPARAM, LPARAM, SHACTIVATEINFO*) {
    return TRUE;
}

BOOL SHHandleWMActivate(HWND, WPARAM wparam, LPARAM, SHACTIVATEINFO* info, DWORD) {
    if (info) info->fActive = LOWORD(wparam) != WA_INACTIVE;
    return TRUE;
}
