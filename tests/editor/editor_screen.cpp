#include "tests/editor/editor_screen.h"

#include <aygshell.h>
#include <inkx.h>
#include <richink.h>

#include "res/ids.h"
#include "tests/support/pump.h"
#include "ui/resource_text.h"
#include "ui/rich_ink.h"

EditorScreen::EditorScreen() {
    application_.InitInstance(GetModuleHandleW(nullptr), SW_SHOW);
    application_.InitCommonControls();
    InitInkX();
    InitRichInkDLL();
    EXPECT_TRUE(journal_.Open(nullptr));
}

void EditorScreen::RunScript(const Script& script, const std::function<INT_PTR()>& modal) {
    EXPECT_EQ(stage_.Run(IDC_EDITOR_TABS, IDOK, script, modal), IDOK);
}

CEOID EditorScreen::Edit(CEOID id, WORD field, const Script& script) {
    selection_.SetCurrent(id);
    RunScript(script, [&] { return EntryEditor::Run(stage_.Owner(), journal_, selection_, field); });
    return selection_.Current();
}

CEOID EditorScreen::EditItem(const PimData& item, const Script& script) {
    CEOID id = 0;
    RunScript(script, [&] { return EntryEditor::Run(stage_.Owner(), journal_, item, id); });
    return id;
}

CEOID EditorScreen::AddEntry(const std::function<void(TSList<DbJItem>&)>& fill) {
    TSList<DbJItem> fields;
    journal_.Initialize(&fields);
    fill(fields);
    const CEOID id = journal_.Write(0, &fields);
    EXPECT_NE(id, 0u);
    return id;
}

DbJItem EditorScreen::Stored(CEOID id, CEPROPID propid) {
    TSList<DbJItem> fields;
    EXPECT_EQ(journal_.Read(id, &fields), id);
    return *FindFieldByPropID(fields, propid);
}

std::wstring EditorScreen::StoredBody(CEOID id) {
    const DbJItem body = Stored(id, kPropBody);
    const CEBLOB& blob = *body.GetBlob();
    RichInk control;
    control.CreateIn(stage_.Owner().GetHandle(), 1, ES_MULTILINE, {});
    control.StreamIn(SF_RTF, std::vector<BYTE>(blob.lpb, blob.lpb + blob.dwCount));
    const std::wstring text = control.StreamOutText();
    control.Destroy();
    return text;
}

HWND EditorScreen::List() const {
    return Item(IDC_EDITOR_FIELDS);
}
HWND EditorScreen::Body() const {
    return Item(IDC_EDITOR_BODY);
}
HWND EditorScreen::Editor() const {
    return Item(IDC_EDITOR_FIELD);
}
HWND EditorScreen::TimeEditor() const {
    return Item(IDC_EDITOR_FIELD_TIME);
}

namespace {
// The row of a field in the form's order.
int RowOf(WORD field) {
    DbJournal definitions;
    TSList<DbJItem> fields;
    definitions.Initialize(&fields);
    int row = 0;
    for (const DbJItem& candidate : fields) {
        if (candidate.GetID() == field) return row;
        ++row;
    }
    return -1;
}
}  // namespace

void EditorScreen::SelectField(WORD field) {
    ListView_SetItemState(List(), RowOf(field), LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    PumpOnce();
}

int EditorScreen::SelectedRow() const {
    return ListView_GetNextItem(List(), -1, LVNI_SELECTED);
}

std::wstring EditorScreen::RowText(WORD field) const {
    wchar_t text[300] = {};
    ListView_GetItemText(List(), RowOf(field), 1, text, 300);
    return text;
}

void EditorScreen::Command(int id) const {
    SendMessageW(Screen(), WM_COMMAND, static_cast<WPARAM>(id), 0);
}

void EditorScreen::Type(HWND control, const std::wstring& text) const {
    for (const wchar_t c : text)
        SendMessageW(control, WM_CHAR, c, 1);
}

void EditorScreen::Press(HWND control, WPARAM key) const {
    SendMessageW(control, WM_KEYDOWN, key, 1);
    SendMessageW(control, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
}

void EditorScreen::Retype(HWND control, const std::wstring& text) const {
    SendMessageW(control, EM_SETSEL, 0, -1);
    SendMessageW(control, WM_CLEAR, 0, 0);
    Type(control, text);
}

HWND EditorScreen::EditOf(HWND combo) const {
    COMBOBOXINFO info = {};
    info.cbSize = sizeof info;
    GetComboBoxInfo(combo, &info);
    return info.hwndItem;
}

void EditorScreen::ChooseItem(HWND combo, int index) const {
    SendMessageW(combo, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    const int id = GetDlgCtrlID(combo);
    SendMessageW(Screen(), WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE), reinterpret_cast<LPARAM>(combo));
}

void EditorScreen::PickTime(HWND picker, const SYSTEMTIME& time) const {
    SendMessageW(picker, DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&time));
    NMDATETIMECHANGE change = {};
    change.nmhdr = {picker, static_cast<UINT_PTR>(GetDlgCtrlID(picker)), static_cast<UINT>(DTN_DATETIMECHANGE)};
    change.dwFlags = GDT_VALID;
    change.st = time;
    SendMessageW(Screen(), WM_NOTIFY, change.nmhdr.idFrom, reinterpret_cast<LPARAM>(&change));
}

void EditorScreen::GoToPage(int page) const {
    const HWND tabs = Item(IDC_EDITOR_TABS);
    TabCtrl_SetCurSel(tabs, page);
    NMHDR header = {tabs, IDC_EDITOR_TABS, static_cast<UINT>(TCN_SELCHANGE)};
    SendMessageW(Screen(), WM_NOTIFY, IDC_EDITOR_TABS, reinterpret_cast<LPARAM>(&header));
    PumpOnce();
}

void EditorScreen::GoToNote() const {
    GoToPage(1);
}
void EditorScreen::GoToEntry() const {
    GoToPage(0);
}

std::wstring EditorScreen::TextOf(HWND control) const {
    std::wstring text(static_cast<size_t>(SendMessageW(control, WM_GETTEXTLENGTH, 0, 0)) + 1, L'\0');
    text.resize(
        static_cast<size_t>(SendMessageW(control, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
    return text;
}

bool EditorScreen::IsZoomChecked(int item) const {
    const HMENU menu = SHGetSubMenu(SHFindMenuBar(Screen()), IDM_ZOOM_MENU);
    return (GetMenuState(menu, static_cast<UINT>(item), MF_BYPOSITION) & MF_CHECKED) != 0;
}

int EditorScreen::ReadOption(const wchar_t* name, int fallback) const {
    return application_.ReadInt(LoadText(IDS_OPTIONS), name, fallback);
}

void EditorScreen::WriteOption(const wchar_t* name, int value) {
    application_.WriteInt(LoadText(IDS_OPTIONS), name, value);
}
