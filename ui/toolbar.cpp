#include "ui/toolbar.h"

#include <vector>

namespace {

TBBUTTONINFOW Info(DWORD mask) {
    TBBUTTONINFOW info = {};
    info.cbSize = sizeof(info);
    info.dwMask = mask;
    return info;
}

}  // namespace

bool Toolbar::AddTextButton(int id, BYTE style, const wchar_t* text, int width) {
    SendMessage(TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON));
    TBBUTTON button = {};
    button.iBitmap = I_IMAGENONE;
    button.idCommand = id;
    button.fsState = TBSTATE_ENABLED;
    button.fsStyle = style;
    button.iString = reinterpret_cast<INT_PTR>(text);
    return SendMessage(TB_ADDBUTTONSW, 1, reinterpret_cast<LPARAM>(&button)) != 0 && SetButtonWidth(id, width);
}

bool Toolbar::AddSeparator(int width) {
    SendMessage(TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON));
    TBBUTTON button = {};
    button.iBitmap = width;
    button.fsStyle = BTNS_SEP;
    return SendMessage(TB_ADDBUTTONSW, 1, reinterpret_cast<LPARAM>(&button)) != 0;
}

bool Toolbar::SetButtonSize(int width, int height) {
    return SendMessage(TB_SETBUTTONSIZE, 0, MAKELPARAM(width, height)) != 0;
}

bool Toolbar::SetButtonWidth(int id, int width) {
    TBBUTTONINFOW info = Info(TBIF_SIZE);
    info.cx = static_cast<WORD>(width);
    return SendMessage(TB_SETBUTTONINFOW, static_cast<WPARAM>(id), reinterpret_cast<LPARAM>(&info)) != 0;
}

bool Toolbar::SetButtonText(int id, const wchar_t* text) {
    TBBUTTONINFOW info = Info(TBIF_TEXT);
    info.pszText = const_cast<wchar_t*>(text);
    return SendMessage(TB_SETBUTTONINFOW, static_cast<WPARAM>(id), reinterpret_cast<LPARAM>(&info)) != 0;
}

std::wstring Toolbar::GetButtonText(int id) const {
    const LRESULT length = SendMessage(TB_GETBUTTONTEXTW, static_cast<WPARAM>(id), 0);
    if (length <= 0) return {};
    std::vector<wchar_t> buffer(static_cast<size_t>(length) + 1, L'\0');
    SendMessage(TB_GETBUTTONTEXTW, static_cast<WPARAM>(id), reinterpret_cast<LPARAM>(buffer.data()));
    return buffer.data();
}

BYTE Toolbar::GetButtonState(int id) const {
    const LRESULT state = SendMessage(TB_GETSTATE, static_cast<WPARAM>(id));
    return state < 0 ? 0 : static_cast<BYTE>(state);
}

bool Toolbar::EnableButton(int id, bool enable) {
    return SendMessage(TB_ENABLEBUTTON, static_cast<WPARAM>(id), MAKELPARAM(enable, 0)) != 0;
}

bool Toolbar::CheckButton(int id, bool check) {
    return SendMessage(TB_CHECKBUTTON, static_cast<WPARAM>(id), MAKELPARAM(check, 0)) != 0;
}

bool Toolbar::PressButton(int id, bool press) {
    return SendMessage(TB_PRESSBUTTON, static_cast<WPARAM>(id), MAKELPARAM(press, 0)) != 0;
}

bool Toolbar::IsButtonChecked(int id) const {
    TBBUTTONINFOW info = Info(TBIF_STATE);
    return SendMessage(TB_GETBUTTONINFOW, static_cast<WPARAM>(id), reinterpret_cast<LPARAM>(&info)) >= 0 &&
           (info.fsState & TBSTATE_CHECKED) != 0;
}

int Toolbar::GetButtonCount() const {
    return static_cast<int>(SendMessage(TB_BUTTONCOUNT));
}

bool Toolbar::GetButtonRect(int id, RECT* rect) const {
    return SendMessage(TB_GETRECT, static_cast<WPARAM>(id), reinterpret_cast<LPARAM>(rect)) != 0;
}

HFONT Toolbar::GetFont() const {
    return reinterpret_cast<HFONT>(SendMessage(WM_GETFONT));
}
