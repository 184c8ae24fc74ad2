#include "ui/combo_box.h"

#include <px.h>

#include <vector>

#include "ui/gdi_scope.h"

namespace {

constexpr int kLeastRow = 18;  // logical pixels
constexpr int kRowsShown = 10;

}  // namespace

int ComboBox::AddString(const wchar_t* text) {
    return static_cast<int>(SendMessage(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text)));
}

void ComboBox::Clear() {
    SendMessage(CB_RESETCONTENT);
}

int ComboBox::GetCount() const {
    return static_cast<int>(SendMessage(CB_GETCOUNT));
}

int ComboBox::GetSelection() const {
    return static_cast<int>(SendMessage(CB_GETCURSEL));
}

bool ComboBox::SetSelection(int index) {
    // The system answers -1 both for a failure and for the wanted "nothing selected".
    return SendMessage(CB_SETCURSEL, static_cast<WPARAM>(index)) == index;
}

std::wstring ComboBox::GetString(int index) const {
    const LRESULT length = SendMessage(CB_GETLBTEXTLEN, static_cast<WPARAM>(index));
    if (length < 0) return {};
    std::vector<wchar_t> buffer(static_cast<size_t>(length) + 1, L'\0');
    SendMessage(CB_GETLBTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(buffer.data()));
    return buffer.data();
}

int ComboBox::FindExact(const wchar_t* text) const {
    return static_cast<int>(SendMessage(CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(text)));
}

void ComboBox::SelectEdit(int first, int last) {
    SendMessage(CB_SETEDITSEL, 0, MAKELPARAM(first, last));
}

void ComboBox::SetLimit(int characters) {
    SendMessage(CB_LIMITTEXT, static_cast<WPARAM>(characters));
}

void ComboBox::DropDown(bool show) {
    SendMessage(CB_SHOWDROPDOWN, show);
}

bool ComboBox::IsDroppedDown() const {
    return SendMessage(CB_GETDROPPEDSTATE) != 0;
}

HWND ComboBox::GetEdit() const {
    COMBOBOXINFO info = {};
    info.cbSize = sizeof(info);
    // In a pure list the system names the control itself.
    if (!::GetComboBoxInfo(GetHandle(), &info) || info.hwndItem == GetHandle()) return nullptr;
    return info.hwndItem;
}

void ComboBox::SetFieldHeight(int height) {
    SendMessage(CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), height);
}

void ComboBox::FitFieldToFont() {
    const WindowDc dc(GetHandle());
    const SelectedObject font(dc.Dc(), reinterpret_cast<HFONT>(SendMessage(WM_GETFONT)));
    TEXTMETRICW metrics = {};
    GetTextMetricsW(dc.Dc(), &metrics);
    SetFieldHeight(metrics.tmHeight);
    MakeRowsRoomy();
}

// The control itself takes a height of its rows, on some systems, only when the program draws them; its list always
// does.
void ComboBox::MakeRowsRoomy() {
    COMBOBOXINFO info = {};
    info.cbSize = sizeof(info);
    if (!::GetComboBoxInfo(GetHandle(), &info)) return;
    SendMessage(CB_SETMINVISIBLE, kRowsShown);  // 30 of them would cover a screen
    const LRESULT own = ::SendMessageW(info.hwndList, LB_GETITEMHEIGHT, 0, 0);
    if (own >= Px(kLeastRow)) return;
    ::SendMessageW(info.hwndList, LB_SETITEMHEIGHT, 0, MAKELPARAM(Px(kLeastRow), 0));
}
