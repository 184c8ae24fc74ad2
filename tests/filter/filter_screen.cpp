#include "tests/filter/filter_screen.h"

#include <px.h>

#include "filter/filter_dialog.h"
#include "filter/registry_filter_store.h"
#include "tests/support/pump.h"

namespace {

std::wstring RowText(HWND list, int row) {
    wchar_t text[300] = L"";
    ListView_GetItemText(list, row, 0, text, 300);
    return text;
}

}  // namespace

FilterScreen::FilterScreen() {
    application_.InitInstance(GetModuleHandleW(nullptr), SW_SHOW);
    application_.InitCommonControls();
    EXPECT_TRUE(journal_.Open(nullptr));
    stage_.onCommand = [this](WORD id) {
        commands_.push_back(id);
        if (onCommand_) onCommand_(id);
    };
}

INT_PTR FilterScreen::Open(const Script& script) {
    return stage_.Run(IDC_FILTER_STATUS, IDCANCEL, script,
                      [this] { return FilterDialog::Run(stage_.Owner(), journal_, filter_); });
}

INT_PTR FilterScreen::OpenInVain() {
    return FilterDialog::Run(stage_.Owner(), journal_, filter_);
}

void FilterScreen::ResetOnClear() {
    onCommand_ = [this](WORD id) {
        if (id != IDM_SHOW_ALL) return;
        RegistryFilterStore store(application_);
        filter_.Reset(store);
    };
}

void FilterScreen::SetRange() {
    filter_.byRange = TRUE;
    filter_.rangeStart = At(2001, 5, 7, 13, 30);
    filter_.rangeEnd = At(2001, 5, 9, 8, 15);
}

CEOID FilterScreen::AddEntry(const DateTime& start, const std::vector<CEOID>& categories) {
    const Packed packed(categories);
    CEPROPVAL values[2] = {};
    values[0].propid = kPropStart;
    values[0].val.filetime = start.ToFileTime();
    values[1].propid = kPropCategories;
    values[1].val.blob = packed;
    const CEOID id = journal_.WriteRecordProps(0, categories.empty() ? 1 : 2, values);
    EXPECT_NE(id, 0u);
    return id;
}

HWND FilterScreen::Item(int id) const {
    const HWND item = GetDlgItem(Screen(), id);
    EXPECT_NE(item, nullptr) << id;
    return item;
}

void FilterScreen::Pick(int id, const DateTime& time) const {
    NMDATETIMECHANGE change = {};
    change.nmhdr = {Item(id), static_cast<UINT_PTR>(id), static_cast<UINT>(DTN_DATETIMECHANGE)};
    change.dwFlags = GDT_VALID;
    change.st = time.ToSystemTime();
    SendMessageW(Item(id), DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&change.st));
    SendMessageW(Screen(), WM_NOTIFY, change.nmhdr.idFrom, reinterpret_cast<LPARAM>(&change));
}

DateTime FilterScreen::Picked(int id) const {
    SYSTEMTIME time = {};
    EXPECT_EQ(SendMessageW(Item(id), DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&time)), GDT_VALID);
    return DateTime(time);
}

std::wstring FilterScreen::TextOf(int id) const {
    wchar_t text[300] = L"";
    GetWindowTextW(Item(id), text, 300);
    return text;
}

std::vector<std::wstring> FilterScreen::Rows(int list) const {
    std::vector<std::wstring> rows;
    for (int row = 0; row < ListView_GetItemCount(Item(list)); ++row)
        rows.push_back(RowText(Item(list), row));
    return rows;
}

std::vector<std::wstring> FilterScreen::CheckedRows(int list) const {
    std::vector<std::wstring> rows;
    for (int row = 0; row < ListView_GetItemCount(Item(list)); ++row)
        if (ListView_GetCheckState(Item(list), static_cast<UINT>(row)) == 1) rows.push_back(RowText(Item(list), row));
    return rows;
}

int FilterScreen::RowOf(int list, const std::wstring& text) const {
    for (int row = 0; row < ListView_GetItemCount(Item(list)); ++row)
        if (RowText(Item(list), row) == text) return row;
    ADD_FAILURE() << "no such row";
    return -1;
}

void FilterScreen::Check(int list, int row, bool checked) const {
    ListView_SetCheckState(Item(list), static_cast<UINT>(row), checked);
}

// The control waits after a tap for a drag to begin, so that the end of the tap has to be in the queue by then.
void FilterScreen::TapRow(int list, int row, bool onBox) const {
    RECT label;
    ListView_EnsureVisible(Item(list), row, FALSE);
    ListView_GetItemRect(Item(list), row, &label, LVIR_LABEL);
    const LPARAM point = MAKELPARAM(onBox ? label.left - Px(8) : label.left + Px(10), (label.top + label.bottom) / 2);
    PostMessageW(Item(list), WM_LBUTTONUP, 0, point);
    SendMessageW(Item(list), WM_LBUTTONDOWN, MK_LBUTTON, point);
    PumpOnce();
}

std::wstring FilterScreen::Status() const {
    EXPECT_TRUE(PumpUntil([&] { return TextOf(IDC_FILTER_STATUS) != L"Counting..."; }));
    return TextOf(IDC_FILTER_STATUS);
}

std::wstring FilterScreen::MonthOfUser(WORD month) {
    const SYSTEMTIME time = {2001, month, 0, 1, 0, 0, 0, 0};
    wchar_t name[100] = L"";
    GetDateFormatW(LOCALE_USER_DEFAULT, 0, &time, L"MMMM", name, 100);
    return name;
}
