#include "app/about.h"

#include <px.h>

#include "res/ids.h"
#include "ui/dialog.h"
#include "ui/fonts.h"
#include "ui/resource_text.h"

namespace {

class About : public Dialog {
public:
    static INT_PTR CALLBACK Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) noexcept;
    INT_PTR OnInitDialog(void* data);

private:
    LRESULT OnSettingChange(WPARAM wparam, LPARAM lparam);
    void ShowText(int item, UINT text, HFONT font);
    void LayOut();

    static About* live_;

    UniqueFont title_;
};

About* About::live_ = nullptr;

INT_PTR CALLBACK About::Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) noexcept {
    switch (message) {
        case WM_INITDIALOG: return Begin(hwnd, lparam, live_);
        case WM_COMMAND:
            if (live_ == nullptr || (LOWORD(wparam) != IDOK && LOWORD(wparam) != IDCANCEL)) return FALSE;
            return live_->EndOk();
        case WM_SETTINGCHANGE: return live_ != nullptr && live_->OnSettingChange(wparam, lparam);
        case WM_NCDESTROY: return End(live_);
        default: return FALSE;
    }
}

INT_PTR About::OnInitDialog(void*) {
    title_ = MakeFont(L"Tahoma", -16, FW_BOLD);
    const auto icon =
        LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDI_JOURNAL), IMAGE_ICON, Px(48), Px(48), LR_SHARED);
    ::SendMessageW(GetDlgItem(IDC_ABOUT_ICON), STM_SETICON, reinterpret_cast<WPARAM>(icon), 0);
    ShowText(IDC_ABOUT_TITLE, IDS_APP_TITLE, title_.get());
    ShowText(IDC_ABOUT_VERSION, IDS_VERSION, ControlFont());
    ShowText(IDC_ABOUT_BUILD, IDS_BUILD, ControlFont());
    LayOut();
    return TRUE;
}

LRESULT About::OnSettingChange(WPARAM wparam, LPARAM lparam) {
    LayOut();
    return HandleSettingChange(wparam, lparam);
}

void About::ShowText(int item, UINT text, HFONT font) {
    const HWND control = GetDlgItem(item);
    SetWindowTextW(control, LoadText(text).c_str());
    ::SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
}

// One centred column, a little above the middle.
void About::LayOut() {
    struct Row {
        int item;
        int height;
        int gap;  // below it
    };
    constexpr Row kRows[] = {
        {IDC_ABOUT_ICON, 48, 12}, {IDC_ABOUT_TITLE, 22, 8}, {IDC_ABOUT_VERSION, 16, 2}, {IDC_ABOUT_BUILD, 16, 0}};
    RECT client;
    GetClientRect(&client);
    int y = client.bottom / 5;
    for (const Row& row : kRows) {
        const int width = row.item == IDC_ABOUT_ICON ? Px(row.height) : client.right;
        ::MoveWindow(GetDlgItem(row.item), (client.right - width) / 2, y, width, Px(row.height), TRUE);
        y += Px(row.height + row.gap);
    }
}

}  // namespace

void RunAbout(Window& owner) {
    About about;
    DialogParams params(&about);
    about.DoModal(GetModuleHandleW(nullptr), IDD_ABOUT, owner.GetHandle(), About::Procedure, &params);
}
