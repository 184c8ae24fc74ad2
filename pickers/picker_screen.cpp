#include "pickers/picker_screen.h"

#include <aygshell.h>

#include "res/ids.h"
#include "ui/application.h"

PickerScreen* PickerScreen::live_ = nullptr;

INT_PTR PickerScreen::RunModal(HWND owner) {
    DialogParams params(this);
    return DoModal(Application::Current()->GetInstance(), IDD_FRAME, owner, Procedure, &params);
}

INT_PTR CALLBACK PickerScreen::Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) noexcept {
    if (message == WM_INITDIALOG) return Begin(hwnd, lparam, live_);
    if (!live_) return FALSE;
    switch (message) {
        case WM_COMMAND:
            if (LOWORD(wparam) != IDOK && LOWORD(wparam) != IDCANCEL) {
                return live_->OnCommand(HIWORD(wparam), LOWORD(wparam));
            }
            ::EndDialog(hwnd, IDOK);
            return TRUE;
        case WM_CLOSE: ::EndDialog(hwnd, IDOK); return TRUE;
        case WM_NOTIFY:
            SetWindowLongPtrW(hwnd, DWLP_MSGRESULT, live_->OnNotify(*reinterpret_cast<const NMHDR*>(lparam)));
            return TRUE;
        case WM_DRAWITEM: live_->OnDrawItem(*reinterpret_cast<const DRAWITEMSTRUCT*>(lparam)); return TRUE;
        case WM_SIZE: live_->FitToWindow(); return TRUE;
        case WM_SETTINGCHANGE: return live_->HandleSettingChange(wparam, lparam);
        case WM_NCDESTROY: return End(live_);
        default: return IsStoreNotification(message) ? TRUE : FALSE;
    }
}

INT_PTR PickerScreen::OnInitDialog(void*) {
    CreateMenuBar(true, SHCMBF_EMPTYBAR);
    open_ = OnOpen();
    if (open_) {
        FitToWindow();
    } else {
        ::EndDialog(GetHandle(), -1);
    }
    return FALSE;  // the focus is where it shall be
}

void PickerScreen::FitToWindow() {
    RECT client = {};
    if (open_ && GetClientRect(&client)) LayOut(client);
}

INT_PTR PickerScreen::OnCommand(WORD, WORD) {
    return FALSE;
}

LRESULT PickerScreen::OnNotify(const NMHDR&) {
    return 0;
}
