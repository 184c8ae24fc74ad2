#include "tests/export/export_screen.h"

#include <richink.h>

#include <algorithm>

#include "export/export_dialog.h"

ExportScreen::ExportScreen() {
    application_.InitInstance(GetModuleHandleW(nullptr), SW_SHOW);
    application_.InitCommonControls();
    InitRichInkDLL();
    choice_ = FileChoice{File()};
    asked_.clear();
}

INT_PTR ExportScreen::Open(const Script& script) {
    return stage_.Run(IDC_EXPORT_FORMAT, IDCANCEL, script, [&] { return OpenInVain(); });
}

INT_PTR ExportScreen::OpenInVain() {
    return ExportDialog::Run(stage_.Owner(), journal_, selection_, filter_);
}

void ExportScreen::Export(const wchar_t* message, const Script& choose) {
    boxes_.Expect(L"Journal Export", message);
    EXPECT_EQ(Open([&] {
                  if (choose) choose();
                  Command(IDOK);
              }),
              IDOK);
}

BOOL WINAPI ExportScreen::AskForFile(LPOPENFILENAMEW file) {
    std::wstring filters;
    for (const wchar_t* text = file->lpstrFilter; *text; text += wcslen(text) + 1)
        filters.append(text).append(L"|");
    asked_.push_back({file->hwndOwner, filters, file->lpstrInitialDir, file->Flags, file->nFilterIndex, file->nMaxFile,
                      file->lpstrDefExt != nullptr, IsWindowVisible(file->hwndOwner) != FALSE});
    EXPECT_EQ(file->lStructSize, sizeof(OPENFILENAMEW));
    EXPECT_STREQ(file->lpstrFile, L"");
    if (!choice_) return FALSE;
    lstrcpynW(file->lpstrFile, choice_->path.c_str(), static_cast<int>(file->nMaxFile));
    file->nFilterIndex = choice_->filter;
    return TRUE;
}

HWND ExportScreen::Item(int id) const {
    const HWND item = GetDlgItem(Screen(), id);
    EXPECT_NE(item, nullptr) << id;
    return item;
}

std::wstring ExportScreen::TextOf(int id) const {
    wchar_t text[300] = L"";
    GetWindowTextW(Item(id), text, 300);
    return text;
}

std::vector<std::wstring> ExportScreen::FieldRows() const {
    std::vector<std::wstring> rows;
    const HWND list = Item(IDC_EXPORT_FIELDS);
    for (WPARAM row = 0; row < static_cast<WPARAM>(SendMessageW(list, LB_GETCOUNT, 0, 0)); ++row) {
        wchar_t text[300] = L"";
        SendMessageW(list, LB_GETTEXT, row, reinterpret_cast<LPARAM>(text));
        rows.emplace_back(text);
    }
    return rows;
}

std::vector<std::wstring> ExportScreen::ChosenFields() const {
    std::vector<std::wstring> chosen;
    WPARAM row = 0;
    for (const std::wstring& label : FieldRows())
        if (SendMessageW(Item(IDC_EXPORT_FIELDS), LB_GETSEL, row++, 0) > 0) chosen.push_back(label);
    return chosen;
}

void ExportScreen::TapField(const std::wstring& label) const {
    const HWND list = Item(IDC_EXPORT_FIELDS);
    const std::vector<std::wstring> rows = FieldRows();
    const auto found = std::find(rows.begin(), rows.end(), label);
    ASSERT_NE(found, rows.end());
    const auto row = static_cast<WPARAM>(found - rows.begin());
    SendMessageW(list, LB_SETTOPINDEX, row, 0);
    RECT place = {};
    SendMessageW(list, LB_GETITEMRECT, row, reinterpret_cast<LPARAM>(&place));
    const LPARAM point = MAKELPARAM(place.left + 5, (place.top + place.bottom) / 2);
    SendMessageW(list, WM_LBUTTONDOWN, MK_LBUTTON, point);
    SendMessageW(list, WM_LBUTTONUP, 0, point);
}
