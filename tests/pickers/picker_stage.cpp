#include "tests/pickers/picker_stage.h"

#include <px.h>

#include <algorithm>

#include "tests/support/pump.h"

PickerStage::PickerStage() {
    application_.InitInstance(GetModuleHandleW(nullptr), SW_SHOW);
    application_.InitCommonControls();
}

HWND PickerStage::Item(int id) const {
    const HWND item = GetDlgItem(Screen(), id);
    EXPECT_NE(item, nullptr) << id;
    return item;
}

HWND PickerStage::Panel() const {
    const HWND panel = GetDlgItem(Screen(), IDC_SUBJECT_PANEL);
    return panel ? panel : Item(IDC_CATEGORY_PANEL);
}

HWND PickerStage::PanelItem(int id) const {
    const HWND item = GetDlgItem(Panel(), id);
    EXPECT_NE(item, nullptr) << id;
    return item;
}

void PickerStage::Retype(const std::wstring& text) const {
    const HWND edit = PanelItem(IDC_PANEL_TEXT);
    SendMessageW(edit, EM_SETSEL, 0, -1);
    SendMessageW(edit, WM_CLEAR, 0, 0);
    for (const wchar_t c : text)
        SendMessageW(edit, WM_CHAR, c, 1);
}

std::wstring PickerStage::Text() const {
    wchar_t text[300] = L"";
    GetWindowTextW(PanelItem(IDC_PANEL_TEXT), text, 300);
    return text;
}

std::vector<std::wstring> PickerStage::ListTexts() const {
    std::vector<std::wstring> texts;
    const HWND list = PanelItem(IDC_PANEL_LIST);
    for (WPARAM row = 0; row < static_cast<WPARAM>(SendMessageW(list, LB_GETCOUNT, 0, 0)); ++row) {
        wchar_t text[300] = L"";
        SendMessageW(list, LB_GETTEXT, row, reinterpret_cast<LPARAM>(text));
        texts.emplace_back(text);
    }
    return texts;
}

void PickerStage::SelectInList(int row) const {
    const HWND list = PanelItem(IDC_PANEL_LIST);
    SendMessageW(list, LB_SETCURSEL, static_cast<WPARAM>(row), 0);
    SendMessageW(Panel(), WM_COMMAND, MAKEWPARAM(IDC_PANEL_LIST, LBN_SELCHANGE), reinterpret_cast<LPARAM>(list));
}

void PickerStage::SelectInList(const std::wstring& text) const {
    const std::vector<std::wstring> texts = ListTexts();
    const auto found = std::find(texts.begin(), texts.end(), text);
    ASSERT_NE(found, texts.end());
    SelectInList(static_cast<int>(found - texts.begin()));
}

void PickerStage::Press(HWND control, WPARAM key) const {
    MSG message = {};
    message.hwnd = control;
    message.message = WM_KEYDOWN;
    message.wParam = key;
    message.lParam = 1;
    if (!IsDialogMessageW(Screen(), &message)) SendMessageW(control, WM_KEYDOWN, key, 1);
}

// The control waits after a tap for a drag to begin, so that the end of the tap has to be in the queue by then.
void PickerStage::TapRow(HWND list, int row) const {
    RECT label;
    ListView_EnsureVisible(list, row, FALSE);
    ListView_GetItemRect(list, row, &label, LVIR_LABEL);
    const LPARAM point = MAKELPARAM(label.left + Px(10), (label.top + label.bottom) / 2);
    PostMessageW(list, WM_LBUTTONUP, 0, point);
    SendMessageW(list, WM_LBUTTONDOWN, MK_LBUTTON, point);
    PumpOnce();
}

void PickerStage::GoToPage(int page) const {
    const HWND tabs = Item(IDC_PICKER_TABS);
    TabCtrl_SetCurSel(tabs, page);
    NMHDR header = {tabs, IDC_PICKER_TABS, static_cast<UINT>(TCN_SELCHANGE)};
    SendMessageW(Screen(), WM_NOTIFY, IDC_PICKER_TABS, reinterpret_cast<LPARAM>(&header));
    PumpOnce();
}

std::wstring PickerStage::RowText(HWND list, int row, int column) const {
    wchar_t text[300] = L"";
    ListView_GetItemText(list, row, column, text, 300);
    return text;
}

std::vector<std::wstring> PickerStage::Rows(HWND list) const {
    std::vector<std::wstring> rows;
    for (int row = 0; row < ListView_GetItemCount(list); ++row)
        rows.push_back(RowText(list, row));
    return rows;
}

std::vector<std::wstring> PickerStage::CheckedRows(HWND list) const {
    std::vector<std::wstring> rows;
    for (int row = 0; row < ListView_GetItemCount(list); ++row)
        if (ListView_GetCheckState(list, static_cast<UINT>(row)) == 1) rows.push_back(RowText(list, row));
    return rows;
}

int PickerStage::RowOf(HWND list, const std::wstring& text) const {
    for (int row = 0; row < ListView_GetItemCount(list); ++row)
        if (RowText(list, row) == text) return row;
    ADD_FAILURE() << "no such row";
    return -1;
}

void PickerStage::ExpectNothingClipped() const {
    EnumChildWindows(
        Screen(),
        [](HWND child, LPARAM) -> BOOL {
            if (!IsWindowVisible(child) || GetDlgCtrlID(child) == 0) return TRUE;
            RECT own;
            RECT parent;
            GetWindowRect(child, &own);
            GetClientRect(GetParent(child), &parent);
            MapWindowPoints(GetParent(child), nullptr, reinterpret_cast<POINT*>(&parent), 2);
            RECT both;
            UnionRect(&both, &own, &parent);
            EXPECT_TRUE(EqualRect(&both, &parent)) << GetDlgCtrlID(child);
            wchar_t name[20] = L"";
            GetClassNameW(child, name, 20);
            if (std::wstring(name) != L"Button") return TRUE;
            SIZE ideal = {};
            wchar_t text[50] = L"";
            GetWindowTextW(child, text, 50);
            const HDC dc = GetDC(child);
            const HGDIOBJ old = SelectObject(dc, reinterpret_cast<HFONT>(SendMessageW(child, WM_GETFONT, 0, 0)));
            GetTextExtentPoint32W(dc, text, lstrlenW(text), &ideal);
            SelectObject(dc, old);
            ReleaseDC(child, dc);
            EXPECT_LE(ideal.cx, own.right - own.left) << GetDlgCtrlID(child);
            EXPECT_LE(ideal.cy, own.bottom - own.top) << GetDlgCtrlID(child);
            return TRUE;
        },
        0);
}
