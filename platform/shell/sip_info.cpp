// What a program asks about the input panel and wishes of it.
#include "aygshell.h"
#include "platform/shell/input_panel.h"
#include "platform/shell/screen_geometry.h"
#include "px.h"

namespace {

constexpr UINT kLowerDelay = 100;  // milliseconds; a field that wants the panel up may get the focus meanwhile

UINT_PTR lower_timer = 0;

BOOL Refuse() {
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
}

void CancelLowering() {
    if (lower_timer) KillTimer(nullptr, lower_timer);
    lower_timer = 0;
}

void CALLBACK LowerPanel(HWND, UINT, UINT_PTR, DWORD) {
    CancelLowering();
    InputPanel::SetUp(false);
}

}  // namespace

BOOL SHSipInfo(UINT action, UINT, PVOID info, UINT) {
    auto* sip = static_cast<SIPINFO*>(info);
    if (!sip || sip->cbSize != sizeof(SIPINFO)) return Refuse();
    if (action == SPI_SETSIPINFO) {
        CancelLowering();
        InputPanel::SetUp((sip->fdwFlags & SIPF_ON) != 0);
        return TRUE;
    }
    if (action != SPI_GETSIPINFO) return Refuse();
    const SIZE content = ContentSize();
    const int width = Px(content.cx);
    const int bottom = Px(content.cy - kMenuBarHeight);
    const int top = bottom - InputPanelHeight(width, bottom);
    *sip = {};
    sip->cbSize = sizeof(SIPINFO);
    sip->fdwFlags = (InputPanel::IsUp() ? SIPF_ON : SIPF_OFF) | SIPF_DOCKED;
    sip->rcVisibleDesktop = {0, 0, width, InputPanel::IsUp() ? top : Px(content.cy)};
    sip->rcSipRect = {0, top, width, bottom};
    return TRUE;
}

BOOL SHSipPreference(HWND, SIPSTATE state) {
    CancelLowering();
    switch (state) {
        case SIP_UP: InputPanel::SetUp(true); break;
        case SIP_DOWN: lower_timer = SetTimer(nullptr, 0, kLowerDelay, LowerPanel); break;
        case SIP_FORCEDOWN: InputPanel::SetUp(false); break;
        case SIP_UNCHANGED:
        case SIP_INPUTDIALOG: break;
    }
    return TRUE;
}

BOOL SHHandleWMSettingChange(HWND, WPARAM, LPARAM, SHACTIVATEINFO*) {
    return TRUE;
}

BOOL SHHandleWMActivate(HWND, WPARAM wparam, LPARAM, SHACTIVATEINFO* info, DWORD) {
    if (info) info->fActive = LOWORD(wparam) != WA_INACTIVE;
    return TRUE;
}
