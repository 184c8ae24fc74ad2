#include "ui/dialog.h"

#include <algorithm>
#include <utility>

#include "ui/bring_forward.h"
#include "ui/dialog_template.h"

Dialog* Dialog::top_ = nullptr;
DialogParams* Dialog::beginning_ = nullptr;

HWND Dialog::GetDlgItem(int id) const {
    return ::GetDlgItem(GetHandle(), id);
}

bool Dialog::EnableItem(int id, bool enable) {
    const HWND item = GetDlgItem(id);
    if (item == nullptr) return false;
    ::EnableWindow(item, enable);
    return true;
}

bool Dialog::IsVisible(int id) const {
    const HWND item = GetDlgItem(id);
    return item != nullptr && (::GetWindowLongPtrW(item, GWL_STYLE) & WS_VISIBLE) != 0;
}

bool Dialog::Show(int id, bool show) {
    const HWND item = GetDlgItem(id);
    if (item == nullptr) return false;
    ::ShowWindow(item, show ? SW_SHOW : SW_HIDE);
    return true;
}

bool Dialog::EndOk() {
    return ::EndDialog(GetHandle(), 1) != FALSE;
}

bool Dialog::EndCancel() {
    return ::EndDialog(GetHandle(), 0) != FALSE;
}

bool Dialog::ScreenToClient(int id, RECT* rect) const {
    return ClientToScreen(id, rect) && ScreenToClient(rect);
}

bool Dialog::ClientToScreen(int id, RECT* rect) const {
    *rect = {};
    const HWND item = GetDlgItem(id);
    return item != nullptr && ::GetWindowRect(item, rect) != FALSE;
}

bool Dialog::Centre() {
    RECT work;
    RECT own;
    if (!::SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0) || !GetWindowRect(&own)) return false;
    const int x = (work.right - (own.right - own.left)) / 2;
    const int y = std::max(0L, (work.bottom - (own.bottom - own.top)) / 3);
    return SetWindowPos(nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
}

BOOL Dialog::HandleSettingChange(WPARAM wparam, LPARAM lparam) {
    return SHHandleWMSettingChange(GetHandle(), wparam, lparam, &activation_);
}

bool Dialog::InitDialog(DWORD flags) {
    SHINITDLGINFO info = {};
    info.dwMask = SHIDIM_FLAGS;
    info.hDlg = GetHandle();
    info.dwFlags = flags;
    return SHInitDialog(&info) != FALSE;
}

bool Dialog::AttachIfNone(HWND handle) {
    return GetHandle() != nullptr || Attach(handle);
}

INT_PTR Dialog::DoModal(HINSTANCE instance, UINT templateId, HWND owner, DLGPROC procedure, DialogParams* params) {
    if (const Dialog* open = FindOpen(procedure)) {
        BringForward(open->GetHandle());
        return -1;
    }
    const DialogTemplate dialogTemplate(instance, templateId);
    if (dialogTemplate.Get() == nullptr) return -1;
    procedure_ = procedure;
    below_ = std::exchange(top_, this);
    beginning_ = params;
    const INT_PTR result =
        ::DialogBoxIndirectParamW(instance, dialogTemplate.Get(), owner, procedure, reinterpret_cast<LPARAM>(params));
    beginning_ = nullptr;
    top_ = below_;
    return result;
}

const Dialog* Dialog::FindOpen(DLGPROC procedure) {
    const Dialog* dialog = top_;
    while (dialog != nullptr && dialog->procedure_ != procedure)
        dialog = dialog->below_;
    return dialog;
}

const DialogParams* Dialog::TakeParams(LPARAM lparam) {
    if (beginning_ == nullptr || lparam != reinterpret_cast<LPARAM>(beginning_)) return nullptr;
    return std::exchange(beginning_, nullptr);
}

HWND Dialog::CreateModeless(HINSTANCE instance, UINT templateId, HWND owner, DLGPROC procedure, DialogParams* params) {
    const DialogTemplate dialogTemplate(instance, templateId);
    if (dialogTemplate.Get() == nullptr) return nullptr;
    beginning_ = params;
    const HWND made = ::CreateDialogIndirectParamW(instance, dialogTemplate.Get(), owner, procedure,
                                                   reinterpret_cast<LPARAM>(params));
    beginning_ = nullptr;
    return made;
}

INT_PTR Dialog::OnInitDialog(void*) {
    return TRUE;
}
