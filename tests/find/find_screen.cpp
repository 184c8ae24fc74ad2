#include "tests/find/find_screen.h"

#include <inkx.h>
#include <richink.h>

#include "find/find_dialog.h"
#include "find/find_history.h"
#include "find/found_dialog.h"
#include "tests/support/pump.h"

FindScreen::FindScreen() {
    application_.InitInstance(GetModuleHandleW(nullptr), SW_SHOW);
    application_.InitCommonControls();
    InitInkX();
    InitRichInkDLL();
}

INT_PTR FindScreen::Ask(const Script& script) {
    return stage_.Run(IDC_FIND_MATCH_CASE, IDCANCEL, script,
                      [this] { return FindDialog::Run(stage_.Owner(), request_); });
}

INT_PTR FindScreen::Show(const Script& script) {
    return stage_.Run(IDC_FOUND_COUNT, IDOK, script, [this] { return ShowInVain(); });
}

INT_PTR FindScreen::ShowInVain() {
    return FoundDialog::Run(stage_.Owner(), journal_, selection_, request_);
}

void FindScreen::LookForSubject(const wchar_t* text) {
    request_.searchBy = SearchBy::kSubject;
    request_.text = text;
}

HWND FindScreen::Item(int id) const {
    const HWND item = GetDlgItem(Screen(), id);
    EXPECT_NE(item, nullptr) << id;
    return item;
}

std::wstring FindScreen::TextOf(int id) const {
    wchar_t text[300] = L"";
    GetWindowTextW(id == 0 ? Screen() : Item(id), text, 300);
    return text;
}

void FindScreen::Pick(const DateTime& date) const {
    const SYSTEMTIME time = date.ToSystemTime();
    SendMessageW(Item(IDC_FIND_DATE), DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&time));
}

DateTime FindScreen::Picked() const {
    SYSTEMTIME time = {};
    EXPECT_EQ(SendMessageW(Item(IDC_FIND_DATE), DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&time)), GDT_VALID);
    return DateTime(time);
}

std::vector<std::wstring> FindScreen::Lines() const {
    std::vector<std::wstring> lines;
    const HWND box = Item(IDC_FIND_TEXT);
    for (WPARAM line = 0; line < static_cast<WPARAM>(SendMessageW(box, CB_GETCOUNT, 0, 0)); ++line) {
        wchar_t text[300] = L"";
        SendMessageW(box, CB_GETLBTEXT, line, reinterpret_cast<LPARAM>(text));
        lines.emplace_back(text);
    }
    return lines;
}

void FindScreen::Press(HWND screen, WPARAM key) {
    MSG message = {GetFocus(), WM_KEYDOWN, key, 1, 0, {}};
    if (!IsDialogMessageW(screen, &message)) DispatchMessageW(&message);
}

std::vector<std::wstring> FindScreen::Column(int column) const {
    std::vector<std::wstring> texts;
    const HWND list = Item(IDC_FOUND_LIST);
    for (int row = 0; row < ListView_GetItemCount(list); ++row) {
        wchar_t text[300] = L"";
        ListView_GetItemText(list, row, column, text, 300);
        texts.emplace_back(text);
    }
    return texts;
}

// The control waits after a tap for a drag to begin, so that the end of the tap has to be in the queue by then.
void FindScreen::Tap(HWND list, int row) {
    RECT place = {};
    ASSERT_TRUE(ListView_GetItemRect(list, row, &place, LVIR_BOUNDS));
    const LPARAM point = MAKELPARAM(place.left + 20, (place.top + place.bottom) / 2);
    PostMessageW(list, WM_LBUTTONUP, 0, point);
    SendMessageW(list, WM_LBUTTONDOWN, MK_LBUTTON, point);
    PumpOnce();
}

std::vector<std::wstring> FindScreen::History() const {
    return ReadFindHistory(application_);
}
