#include "lock/pin_pad.h"

#include <px.h>

#include "lock/pin_pad_layout.h"
#include "res/ids.h"
#include "ui/fonts.h"
#include "ui/resource_text.h"

namespace {

constexpr COLORREF kBlue = RGB(0, 0, 255);
constexpr wchar_t kMask = L'X';

// What each digit key enters, by its id less that of the first.
constexpr const wchar_t* kDigits[] = {L"1", L"2", L"3", L"4", L"5", L"6", L"7", L"8", L"9", L"0"};

constexpr UINT_PTR kSubclassId = 1;

bool IsReturn(const MSG* message) {
    return message && message->message == WM_KEYDOWN && message->wParam == VK_RETURN;
}

}  // namespace

PinPad* PinPad::live_ = nullptr;

bool PinPad::Run(Window& owner, WORD mode, std::wstring& entry) {
    PinPad pad(mode);
    DialogParams params(&pad);
    if (pad.DoModal(GetModuleHandleW(nullptr), IDD_PIN_PAD, owner.GetHandle(), Procedure, &params) != IDOK) {
        return false;
    }
    entry = pad.entry_;
    return true;
}

INT_PTR CALLBACK PinPad::Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) noexcept {
    if (message == WM_INITDIALOG) return Begin(hwnd, lparam, live_);
    if (live_ == nullptr) return FALSE;
    switch (message) {
        case WM_COMMAND: return live_->OnCommand(HIWORD(wparam), LOWORD(wparam));
        case WM_SIZE: return live_->LayOut(), TRUE;
        case WM_SETTINGCHANGE: return live_->OnSettingChange(wparam, lparam);
        case WM_CTLCOLORSTATIC:
            return live_->OnColorStatic(reinterpret_cast<HDC>(wparam), reinterpret_cast<HWND>(lparam));
        case WM_NCDESTROY: return End(live_);
        default: return FALSE;
    }
}

INT_PTR PinPad::OnInitDialog(void*) {
    // At start-up the owner is hidden still, and the pad is what stands for the program in the taskbar.
    const HWND owner = GetWindow(GetHandle(), GW_OWNER);
    if (owner == nullptr || !::IsWindowVisible(owner)) SetExStyle(GetExStyle() | WS_EX_APPWINDOW);

    keyFont_ = MakeFont(L"", -15, FW_BOLD);
    headingFont_ = MakeFont(L"", -11, FW_BOLD);
    const HWND heading = GetDlgItem(IDC_PIN_HEADING);
    SetWindowTextW(heading, LoadText(HeadingText()).c_str());
    ::SendMessageW(heading, WM_SETFONT, reinterpret_cast<WPARAM>(headingFont_.get()), FALSE);

    display_.AttachItem(GetHandle(), IDC_PIN_DISPLAY);
    display_.SetFont(keyFont_.get(), false);
    if (HeadingText() == IDS_LOCK_ENTER) display_.SendMessage(EM_SETPASSWORDCHAR, kMask);
    SetWindowSubclass(display_.GetHandle(), KeyProcedure, kSubclassId, 0);
    for (int id = IDC_PIN_FIRST_DIGIT; id <= IDC_PIN_CLEAR; ++id) {
        ::SendMessageW(GetDlgItem(id), WM_SETFONT, reinterpret_cast<WPARAM>(keyFont_.get()), FALSE);
        SetWindowSubclass(GetDlgItem(id), KeyProcedure, kSubclassId, 0);
    }
    LayOut();
    display_.SetFocus();
    return FALSE;
}

UINT PinPad::HeadingText() const {
    if (mode_ & kNew) return IDS_LOCK_NEW;
    if (mode_ & kAgain) return IDS_LOCK_AGAIN;
    return IDS_LOCK_ENTER;
}

INT_PTR PinPad::OnCommand(WORD code, WORD id) {
    if (code != BN_CLICKED) return FALSE;
    switch (id) {
        case IDOK: return OnOk();
        case IDC_PIN_CLEAR: OnClear(); return TRUE;
        default:
            if (id < IDC_PIN_FIRST_DIGIT || id > IDC_PIN_ZERO) return FALSE;
            OnDigit(id - IDC_PIN_FIRST_DIGIT);
            return TRUE;
    }
}

INT_PTR PinPad::OnColorStatic(HDC dc, HWND control) const {
    if (control != GetDlgItem(IDC_PIN_HEADING)) return FALSE;  // a display that cannot be typed into asks here too
    SetTextColor(dc, kBlue);
    SetBkMode(dc, TRANSPARENT);
    return reinterpret_cast<INT_PTR>(GetSysColorBrush(COLOR_BTNFACE));
}

INT_PTR PinPad::OnSettingChange(WPARAM wparam, LPARAM lparam) {
    LayOut();
    return HandleSettingChange(wparam, lparam);
}

bool PinPad::OnOk() {
    keyFont_.reset();
    headingFont_.reset();
    return EndOk();
}

void PinPad::OnDigit(int key) {
    entry_ += kDigits[key];
    ShowEntry();
}

void PinPad::OnBackspace() {
    if (entry_.empty()) return;
    entry_.pop_back();
    ShowEntry();
}

void PinPad::OnClear() {
    entry_.clear();
    ShowEntry();
}

// The last digits stay in view, however many there are.
void PinPad::ShowEntry() {
    display_.SetText(entry_.c_str());
    const int end = static_cast<int>(entry_.size());
    display_.SetSelection(end, end);
    display_.SendMessage(EM_SCROLLCARET);
}

// ---- Keyboard ----

bool PinPad::IsOwnCharacter(wchar_t character) {
    return (character >= L'0' && character <= L'9') || character == L'\b' || character == L'c' || character == L'C';
}

bool PinPad::OnCharacter(wchar_t character) {
    if (!IsOwnCharacter(character)) return false;
    switch (character) {
        case L'\b': OnBackspace(); break;
        case L'c':
        case L'C': OnClear(); break;
        case L'0': OnDigit(IDC_PIN_ZERO - IDC_PIN_FIRST_DIGIT); break;
        default: OnDigit(character - L'1'); break;
    }
    return true;
}

// Characters count whichever control has the focus, and Return is OK even on a key that was tapped last.
LRESULT CALLBACK PinPad::KeyProcedure(HWND control, UINT message, WPARAM wparam, LPARAM lparam, UINT_PTR, DWORD_PTR) {
    switch (message) {
        case WM_GETDLGCODE: {
            const auto* key = reinterpret_cast<const MSG*>(lparam);
            if (IsReturn(key)) return DLGC_WANTMESSAGE;
            if (key && key->message == WM_CHAR && IsOwnCharacter(static_cast<wchar_t>(key->wParam))) {
                return DLGC_WANTMESSAGE;
            }
            break;
        }
        case WM_KEYDOWN:
            if (wparam != VK_RETURN || live_ == nullptr) break;
            live_->OnOk();
            return 0;
        case WM_CHAR:
            if (live_ != nullptr && live_->OnCharacter(static_cast<wchar_t>(wparam))) return 0;
            break;
        case WM_NCDESTROY: RemoveWindowSubclass(control, KeyProcedure, kSubclassId); break;
        default: break;
    }
    return DefSubclassProc(control, message, wparam, lparam);
}

// ---- Layout ----

void PinPad::LayOut() {
    RECT client;
    if (!GetClientRect(&client)) return;
    const PinPadPlaces places = LayOutPinPad({client.right, client.bottom});
    const auto put = [this](int id, const RECT& place) {
        ::MoveWindow(GetDlgItem(id), place.left, place.top, place.right - place.left, place.bottom - place.top, TRUE);
    };
    put(IDC_PIN_HEADING, places.heading);
    put(IDC_PIN_DISPLAY, places.display);
    for (int key = 0; key < kPinPadKeys; ++key)
        put(IDC_PIN_FIRST_DIGIT + key, places.keys[key]);
    Invalidate();
}
