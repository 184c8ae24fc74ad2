#include "app/options_screen.h"

#include <px.h>

#include "res/ids.h"
#include "ui/resource_text.h"

namespace {

// Right of the first column by this much, in logical pixels, a tap begins to count.
constexpr int kTapMargin = 4;

}  // namespace

OptionsScreen* OptionsScreen::live_ = nullptr;

INT_PTR OptionsScreen::Run(Window& owner, const OptionLaunchers& launchers) {
    OptionsScreen screen(launchers);
    DialogParams params(&screen);
    return screen.DoModal(GetModuleHandleW(nullptr), IDD_FRAME, owner.GetHandle(), Procedure, &params);
}

INT_PTR CALLBACK OptionsScreen::Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) noexcept {
    if (message == WM_INITDIALOG) return Begin(hwnd, lparam, live_);
    if (live_ == nullptr) return FALSE;
    switch (message) {
        case WM_COMMAND: return live_->OnCommand(LOWORD(wparam));
        case WM_NOTIFY: return live_->OnNotify(*reinterpret_cast<const NMHDR*>(lparam));
        case WM_DRAWITEM: return live_->list_.Draw(*reinterpret_cast<const DRAWITEMSTRUCT*>(lparam)), TRUE;
        case WM_MEASUREITEM: return live_->list_.Measure(*reinterpret_cast<MEASUREITEMSTRUCT*>(lparam)), TRUE;
        case WM_SIZE: return live_->OnSize();
        case WM_SETTINGCHANGE: return live_->OnSettingChange(wparam, lparam);
        case WM_NCDESTROY: return End(live_);
        default: return FALSE;
    }
}

INT_PTR OptionsScreen::OnInitDialog(void*) {
    SHSetCloseCommand(GetHandle(), IDCANCEL);
    SetText(LoadText(IDS_OPTIONS).c_str());
    if (!options_.Open(GetHandle()) || !MakeList()) {
        EndDialog(GetHandle(), -1);
        return FALSE;
    }
    FillRows();
    list_.SetFocus();
    list_.Select(kPassword);
    return FALSE;
}

bool OptionsScreen::MakeList() {
    if (!list_.CreateIn(GetHandle(), IDC_OPTIONS_LIST, {})) return false;
    LVCOLUMNW untitled = {};
    untitled.mask = LVCF_TEXT;
    untitled.pszText = const_cast<wchar_t*>(L"");
    for (const WPARAM column : {0, 1})
        list_.SendMessage(LVM_SETCOLUMNW, column, reinterpret_cast<LPARAM>(&untitled));
    WatchKeys(list_.GetHandle(), *this);
    listLabel_ = std::make_unique<HiddenLabel>(GetHandle(), LoadText(IDS_OPTIONS).c_str());
    RaiseInOrder({listLabel_->Handle(), list_.GetHandle()});
    OnSize();
    return true;
}

INT_PTR OptionsScreen::OnCommand(WORD id) {
    switch (id) {
        case IDOK: OnOk(); return TRUE;
        case IDCANCEL: EndCancel(); return TRUE;
        default: return FALSE;
    }
}

INT_PTR OptionsScreen::OnNotify(const NMHDR& header) {
    if (header.idFrom != IDC_OPTIONS_LIST) return FALSE;
    switch (header.code) {
        case LVN_ENDSCROLL: PlaceChoices(); break;
        case NM_CLICK: OnTap(reinterpret_cast<const NMITEMACTIVATE&>(header).ptAction); break;
        case NM_SETFOCUS:
        case NM_KILLFOCUS: list_.Invalidate(nullptr, false); break;
        default: break;
    }
    return FALSE;
}

INT_PTR OptionsScreen::OnSize() {
    if (list_.GetHandle() == nullptr) return TRUE;  // sized while being created
    RECT client = {};
    GetClientRect(&client);
    list_.Place(client);
    PlaceChoices();
    return TRUE;
}

INT_PTR OptionsScreen::OnSettingChange(WPARAM wparam, LPARAM lparam) {
    OnSize();
    return HandleSettingChange(wparam, lparam);
}

void OptionsScreen::OnTap(const POINT& place) {
    CloseChoices();
    if (place.x <= list_.GetColumnWidth(0) + Px(kTapMargin)) return;
    ActOn(list_.HitTest(place));
}

// Ends with 0 as every way out does: nobody asks which it was.
void OptionsScreen::OnOk() {
    CloseChoices();
    StoreRows();
    EndCancel();
}

// ---- Keyboard: Return is OK, as on every screen with a list of options; these act on the selected row ----

bool OptionsScreen::WantsKey(HWND, UINT key) const {
    return key == VK_SPACE || key == VK_F2;
}

void OptionsScreen::OnKey(HWND, UINT) {
    CloseChoices();
    ActOn(list_.Selected());
}
