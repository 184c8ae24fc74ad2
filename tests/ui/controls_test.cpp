// Each control wrapper on its real control; the rich-ink control has a file of its own.
#include <gtest/gtest.h>
#include <px.h>

#include "tests/ui/test_windows.h"
#include "ui/button.h"
#include "ui/combo_box.h"
#include "ui/date_picker.h"
#include "ui/edit.h"
#include "ui/fonts.h"
#include "ui/list_box.h"
#include "ui/list_view.h"
#include "ui/month_calendar.h"
#include "ui/progress_bar.h"
#include "ui/static_text.h"
#include "ui/tab_control.h"
#include "ui/toolbar.h"

namespace {

constexpr RECT kPlace = {0, 0, 200, 120};
constexpr int kId = 77;

class ControlTest : public testing::Test {
protected:
    ControlTest() {
        INITCOMMONCONTROLSEX classes = {sizeof(classes), ICC_LISTVIEW_CLASSES | ICC_BAR_CLASSES | ICC_TAB_CLASSES |
                                                             ICC_DATE_CLASSES | ICC_PROGRESS_CLASS};
        InitCommonControlsEx(&classes);
        SHInitExtraControls();
    }

    HWND Parent() const { return parent_.Handle(); }

    RecordingWindow parent_;
};

}  // namespace

TEST_F(ControlTest, IsMadeAsAChildWithItsIdPlaceAndFont) {
    Button button;
    ASSERT_TRUE(button.CreateIn(Parent(), kId, BS_PUSHBUTTON, {10, 20, 60, 40}));
    EXPECT_EQ(button.GetId(), kId);
    EXPECT_EQ(button.GetParent(), Parent());
    EXPECT_EQ(button.SendMessage(WM_GETFONT), reinterpret_cast<LRESULT>(ControlFont()));
    RECT rect;
    ASSERT_TRUE(button.GetWindowRect(&rect));
    MapWindowPoints(nullptr, Parent(), reinterpret_cast<POINT*>(&rect), 2);
    const RECT expected = {10, 20, 60, 40};
    EXPECT_TRUE(EqualRect(&rect, &expected));
}

TEST_F(ControlTest, AttachesToAnItemOnce) {
    Edit made;
    ASSERT_TRUE(made.CreateIn(Parent(), kId, 0, kPlace));
    Edit edit;
    EXPECT_FALSE(edit.AttachItem(Parent(), kId + 1));
    EXPECT_TRUE(edit.AttachItem(Parent(), kId));
    EXPECT_EQ(edit.GetHandle(), made.GetHandle());
    EXPECT_FALSE(edit.AttachItem(Parent(), kId));
}

TEST_F(ControlTest, EditSelectsLimitsAndReplaces) {
    Edit edit;
    ASSERT_TRUE(edit.CreateIn(Parent(), kId, ES_AUTOHSCROLL, kPlace));
    edit.SetText(L"Phone call");
    EXPECT_FALSE(edit.IsModified());
    edit.SetSelection(0, 5);
    edit.ReplaceSelection(L"Video");
    EXPECT_EQ(TextOf(edit.GetHandle()), L"Video call");
    EXPECT_TRUE(edit.IsModified());
    edit.SetModified(false);
    EXPECT_FALSE(edit.IsModified());
    edit.SetLimit(12);
    edit.SetSelection(-1, -1);
    edit.SetSelection(10, 10);
    for (const wchar_t c : std::wstring(L" abc"))
        edit.SendMessage(WM_CHAR, c);
    EXPECT_EQ(TextOf(edit.GetHandle()), L"Video call a");
}

TEST_F(ControlTest, ACapitalEditRaisesTheFirstLetterUnlessToldNotTo) {
    Edit edit(WC_CAPEDIT);
    ASSERT_TRUE(edit.CreateIn(Parent(), kId, ES_AUTOHSCROLL, kPlace));
    EXPECT_TRUE(edit.IsClass(L"CAPEDIT"));
    for (const wchar_t c : std::wstring(L"ab"))
        edit.SendMessage(WM_CHAR, c);
    EXPECT_EQ(TextOf(edit.GetHandle()), L"Ab");
    edit.SetText(L"");
    edit.EnableCapitals(false);
    for (const wchar_t c : std::wstring(L"ab"))
        edit.SendMessage(WM_CHAR, c);
    EXPECT_EQ(TextOf(edit.GetHandle()), L"ab");
}

TEST_F(ControlTest, ButtonChecksAndClicks) {
    Button button;
    ASSERT_TRUE(button.CreateIn(Parent(), kId, BS_AUTOCHECKBOX | WS_VISIBLE, kPlace));
    EXPECT_FALSE(button.IsChecked());
    button.SetChecked(true);
    EXPECT_TRUE(button.IsChecked());
    EXPECT_TRUE(parent_.Seen(WM_COMMAND).empty());
    button.Click();
    EXPECT_FALSE(button.IsChecked());
    ASSERT_FALSE(parent_.Seen(WM_COMMAND).empty());
    EXPECT_EQ(parent_.Seen(WM_COMMAND).back().wParam, static_cast<WPARAM>(MAKEWPARAM(kId, BN_CLICKED)));
}

TEST_F(ControlTest, StaticShowsAPicture) {
    StaticText picture;
    ASSERT_TRUE(picture.CreateIn(Parent(), kId, SS_BITMAP, kPlace));
    const UniqueBitmap bitmap(CreateBitmap(8, 8, 1, 1, nullptr));
    EXPECT_EQ(picture.SetImage(IMAGE_BITMAP, bitmap.get()), nullptr);
    EXPECT_EQ(picture.SetImage(IMAGE_BITMAP, nullptr), bitmap.get());
}

TEST_F(ControlTest, TabsAreSelectedWithoutNotification) {
    TabControl tabs;
    ASSERT_TRUE(tabs.CreateIn(Parent(), kId, WS_VISIBLE, kPlace));
    EXPECT_EQ(tabs.GetStripHeight(), 0);
    EXPECT_EQ(tabs.InsertTab(0, L"Entry"), 0);
    EXPECT_EQ(tabs.InsertTab(1, L"Note"), 1);
    EXPECT_EQ(tabs.GetCount(), 2);
    EXPECT_EQ(tabs.GetSelection(), 0);
    const size_t notified = parent_.Seen(WM_NOTIFY).size();
    EXPECT_EQ(tabs.SetSelection(1), 0);
    EXPECT_EQ(tabs.GetSelection(), 1);
    EXPECT_EQ(parent_.Seen(WM_NOTIFY).size(), notified);
    RECT tab;
    ASSERT_TRUE(tabs.GetTabRect(0, &tab));
    EXPECT_EQ(tabs.GetStripHeight(), tab.bottom - tab.top + Px(2));
}

TEST_F(ControlTest, AStripHasItsHeightBeforeItIsPlaced) {
    TabControl tabs;
    ASSERT_TRUE(tabs.CreateIn(Parent(), kId, WS_VISIBLE | TCS_BOTTOM, {0, 0, 0, 0}));
    tabs.InsertTab(0, L"Entry");
    tabs.InsertTab(1, L"Note");
    const int height = tabs.GetStripHeight();
    tabs.MoveWindow(0, 0, 200, height);
    RECT tab;
    ASSERT_TRUE(tabs.GetTabRect(0, &tab));
    EXPECT_EQ(height, tab.bottom - tab.top + Px(2));
    EXPECT_GT(height, Px(10));
}

TEST_F(ControlTest, DatePickerKeepsDateAndTime) {
    DatePicker picker;
    ASSERT_TRUE(picker.CreateIn(Parent(), kId, DTS_TIMEFORMAT, kPlace));
    EXPECT_TRUE(picker.SetFormat(L"hh:mm tt"));
    const SYSTEMTIME time = {2001, 5, 0, 7, 14, 30, 15, 0};
    ASSERT_TRUE(picker.SetTime(time));
    SYSTEMTIME read;
    ASSERT_TRUE(picker.GetTime(&read));
    EXPECT_EQ(read.wYear, 2001);
    EXPECT_EQ(read.wDay, 7);
    EXPECT_EQ(read.wHour, 14);
    EXPECT_EQ(read.wSecond, 15);
}

TEST_F(ControlTest, MonthCalendarKeepsADay) {
    MonthCalendar month;
    ASSERT_TRUE(month.CreateIn(Parent(), kId, 0, kPlace));
    ASSERT_TRUE(month.SetDay({2001, 5, 0, 7, 0, 0, 0, 0}));
    SYSTEMTIME day;
    ASSERT_TRUE(month.GetDay(&day));
    EXPECT_EQ(day.wMonth, 5);
    EXPECT_EQ(day.wDay, 7);
    RECT rect = {};
    ASSERT_TRUE(month.GetMonthRect(&rect));
    EXPECT_GT(rect.right, 0);
}

TEST_F(ControlTest, ProgressBarMoves) {
    ProgressBar bar;
    ASSERT_TRUE(bar.CreateIn(Parent(), kId, 0, kPlace));
    bar.SetRange(0, 70'000);
    EXPECT_EQ(bar.SetPosition(65'535), 0);
    EXPECT_EQ(bar.GetPosition(), 65'535);
}

TEST_F(ControlTest, ListBoxHoldsTextsAndData) {
    ListBox list;
    ASSERT_TRUE(list.CreateIn(Parent(), kId, LBS_NOTIFY, kPlace));
    EXPECT_EQ(list.AddString(L"Lunch"), 0);
    EXPECT_EQ(list.InsertString(0, L"Coffee"), 0);
    EXPECT_EQ(list.GetString(1), L"Lunch");
    EXPECT_EQ(list.GetString(2), L"");
    EXPECT_EQ(list.GetSelection(), -1);
    list.SetSelection(1);
    EXPECT_EQ(list.GetSelection(), 1);
    EXPECT_TRUE(list.SetItemData(1, 42));
    EXPECT_EQ(list.GetItemData(1), 42);
    EXPECT_TRUE(list.DeleteString(0));
    EXPECT_FALSE(list.DeleteString(5));
    EXPECT_EQ(list.GetCount(), 1);
    list.Clear();
    EXPECT_EQ(list.GetCount(), 0);
}

TEST_F(ControlTest, ComboBoxListHoldsTextsAndASelection) {
    ComboBox combo;
    ASSERT_TRUE(combo.CreateIn(Parent(), kId, CBS_DROPDOWNLIST, kPlace));
    EXPECT_EQ(combo.AddString(L"Low"), 0);
    EXPECT_EQ(combo.AddString(L"Normal"), 1);
    EXPECT_EQ(combo.GetCount(), 2);
    EXPECT_EQ(combo.GetSelection(), -1);
    EXPECT_TRUE(combo.SetSelection(1));
    EXPECT_EQ(combo.GetSelection(), 1);
    EXPECT_FALSE(combo.SetSelection(2));
    EXPECT_TRUE(combo.SetSelection(-1));
    EXPECT_EQ(combo.GetString(0), L"Low");
    EXPECT_EQ(combo.GetString(7), L"");
    EXPECT_EQ(combo.FindExact(L"NORMAL"), 1);
    EXPECT_EQ(combo.FindExact(L"Norm"), -1);
    EXPECT_EQ(combo.GetEdit(), nullptr);
    combo.Clear();
    EXPECT_EQ(combo.GetCount(), 0);
}

TEST_F(ControlTest, ComboBoxWithAnEditTakesTyping) {
    ComboBox combo;
    ASSERT_TRUE(combo.CreateIn(Parent(), kId, CBS_DROPDOWN | CBS_AUTOHSCROLL, kPlace));
    ASSERT_NE(combo.GetEdit(), nullptr);
    combo.SetLimit(3);
    for (const wchar_t c : std::wstring(L"abcd"))
        ::SendMessageW(combo.GetEdit(), WM_CHAR, c, 0);
    EXPECT_EQ(TextOf(combo.GetHandle()), L"abc");
    combo.SelectEdit(0, -1);
    DWORD first = 9;
    DWORD last = 9;
    ::SendMessageW(combo.GetEdit(), EM_GETSEL, reinterpret_cast<WPARAM>(&first), reinterpret_cast<LPARAM>(&last));
    EXPECT_EQ(first, 0u);
    EXPECT_EQ(last, 3u);
    EXPECT_FALSE(combo.IsDroppedDown());
    combo.DropDown(true);
    EXPECT_TRUE(combo.IsDroppedDown());
    combo.DropDown(false);
    EXPECT_FALSE(combo.IsDroppedDown());
    const LRESULT height = combo.SendMessage(CB_GETITEMHEIGHT, static_cast<WPARAM>(-1));
    combo.SetFieldHeight(static_cast<int>(height) + 10);
    EXPECT_GE(combo.SendMessage(CB_GETITEMHEIGHT, static_cast<WPARAM>(-1)), height + 10);
}

TEST_F(ControlTest, TheRowsOfAComboBoxAreHighEnoughToBeTapped) {
    ComboBox combo;
    ASSERT_TRUE(combo.CreateIn(Parent(), kId, CBS_DROPDOWN | WS_VSCROLL, {0, 0, Px(120), Px(200)}));
    combo.AddString(L"one");
    combo.AddString(L"two");
    combo.FitFieldToFont();
    combo.DropDown(true);
    COMBOBOXINFO info = {};
    info.cbSize = sizeof info;
    ASSERT_TRUE(GetComboBoxInfo(combo.GetHandle(), &info));
    RECT row;
    ::SendMessageW(info.hwndList, LB_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&row));
    EXPECT_GE(row.bottom - row.top, Px(18));
    RECT list;
    ::GetClientRect(info.hwndList, &list);
    EXPECT_GE(list.bottom, row.bottom) << "both rows are seen";
    combo.DropDown(false);
    for (int more = 0; more < 40; ++more)
        combo.AddString(L"another");
    combo.DropDown(true);
    ::GetClientRect(info.hwndList, &list);
    EXPECT_LE(list.bottom, Px(200)) << "the rest is scrolled to";
}

// ---- List view ----

namespace {

class ListViewTest : public ControlTest {
protected:
    void MakeList(DWORD style = 0) {
        ASSERT_TRUE(list_.CreateIn(Parent(), kId, LVS_REPORT | LVS_NOCOLUMNHEADER | style, kPlace));
        ASSERT_EQ(list_.InsertColumn(0, L"Date", 60), 0);
        ASSERT_EQ(list_.InsertColumn(1, L"Entry", 90), 1);
    }

    ListView list_;
};

}  // namespace

TEST_F(ListViewTest, FitsTheLastColumnToTheRestOfTheWidth) {
    MakeList();
    EXPECT_EQ(list_.GetColumnCount(), 2);
    EXPECT_EQ(list_.GetColumnWidth(0), 60);
    list_.FitLastColumn();
    RECT client;
    ASSERT_TRUE(list_.GetClientRect(&client));
    EXPECT_EQ(list_.GetColumnWidth(1), client.right - 60);
    EXPECT_TRUE(list_.SetColumnWidth(0, 5000));
    list_.FitLastColumn();
    EXPECT_EQ(list_.GetColumnWidth(1), 0);
    EXPECT_NE(list_.GetHeader(), nullptr);
}

TEST_F(ListViewTest, AListWithoutColumnsHasNoneToFit) {
    ASSERT_TRUE(list_.CreateIn(Parent(), kId, LVS_REPORT, kPlace));
    list_.FitLastColumn();
    EXPECT_EQ(list_.GetColumnCount(), 0);
}

TEST_F(ListViewTest, RowsHoldTextsAndData) {
    MakeList();
    EXPECT_EQ(list_.InsertItem(0, L"Subject", 102), 0);
    EXPECT_TRUE(list_.SetItemText(0, 1, L"Lunch"));
    EXPECT_EQ(list_.GetItemText(0, 0), L"Subject");
    EXPECT_EQ(list_.GetItemText(0, 1), L"Lunch");
    EXPECT_EQ(list_.GetItemText(4, 1), L"");
    EXPECT_EQ(list_.GetItemData(0), 102);
    EXPECT_TRUE(list_.SetItemData(0, 7));
    EXPECT_EQ(list_.GetItemData(0), 7);
    EXPECT_EQ(list_.InsertItem(1, L"Start"), 1);
    EXPECT_TRUE(list_.DeleteItem(0));
    EXPECT_FALSE(list_.DeleteItem(3));
    EXPECT_EQ(list_.GetItemCount(), 1);
    EXPECT_TRUE(list_.DeleteAllItems());
    EXPECT_EQ(list_.GetItemCount(), 0);
}

TEST_F(ListViewTest, AnOwnerDataListCountsSelectsAndScrolls) {
    MakeList(LVS_OWNERDATA | LVS_SHAREIMAGELISTS);
    EXPECT_TRUE(list_.SetItemCount(1000));
    EXPECT_EQ(list_.GetItemCount(), 1000);
    EXPECT_EQ(list_.GetNextItem(-1, LVNI_FOCUSED | LVNI_SELECTED), -1);
    constexpr UINT kBoth = LVIS_SELECTED | LVIS_FOCUSED;
    EXPECT_TRUE(list_.SetItemState(500, kBoth, kBoth));
    EXPECT_EQ(list_.GetItemState(500, kBoth), kBoth);
    EXPECT_EQ(list_.GetNextItem(-1, LVNI_FOCUSED | LVNI_SELECTED), 500);
    EXPECT_TRUE(list_.EnsureVisible(500, false));
    EXPECT_GT(list_.GetTopIndex(), 500 - list_.GetCountPerPage() - 1);
    EXPECT_LE(list_.GetTopIndex(), 500);
    EXPECT_TRUE(list_.SetItemState(-1, 0, kBoth));
    EXPECT_EQ(list_.GetNextItem(-1, LVNI_SELECTED), -1);
    EXPECT_TRUE(list_.RedrawItems(0, 10));
}

TEST_F(ListViewTest, CellsHaveAPlaceAndAreHit) {
    MakeList();
    list_.InsertItem(0, L"Subject");
    RECT row;
    ASSERT_TRUE(list_.GetItemRect(0, &row));
    RECT first;
    RECT second;
    ASSERT_TRUE(list_.GetCellRect(0, 0, &first));
    ASSERT_TRUE(list_.GetCellRect(0, 1, &second));
    EXPECT_EQ(first.left, row.left);
    EXPECT_EQ(first.right, row.left + 60);
    EXPECT_EQ(second.left, first.right);
    EXPECT_EQ(second.right, first.right + 90);
    EXPECT_FALSE(list_.GetCellRect(1, 0, &first));
    int column = 9;
    EXPECT_EQ(list_.HitTest({second.left + 2, second.top + 2}, &column), 0);
    EXPECT_EQ(column, 1);
    EXPECT_EQ(list_.HitTest({5, 110}, &column), -1);
    EXPECT_EQ(column, -1);
}

TEST_F(ListViewTest, RowsGetTheHeightTheyAreGiven) {
    MakeList(LVS_SHAREIMAGELISTS);
    list_.InsertItem(0, L"Subject");
    list_.SetRowHeight(33);
    RECT row;
    ASSERT_TRUE(list_.GetItemRect(0, &row));
    EXPECT_GE(row.bottom - row.top, 33);
    EXPECT_LE(row.bottom - row.top, 34);
}

TEST_F(ListViewTest, ExtendedStylesAreSetWhole) {
    MakeList();
    list_.SetExtendedStyle(LVS_EX_FULLROWSELECT);
    EXPECT_EQ(list_.SendMessage(LVM_GETEXTENDEDLISTVIEWSTYLE), LVS_EX_FULLROWSELECT);
}

// ---- Toolbar ----

TEST_F(ControlTest, ToolbarButtonsHaveTextWidthAndState) {
    Toolbar bar;
    ASSERT_TRUE(bar.CreateIn(Parent(), 110, CCS_NOPARENTALIGN | CCS_NORESIZE | CCS_NODIVIDER | TBSTYLE_LIST, kPlace));
    EXPECT_TRUE(bar.SetButtonSize(90, 22));
    ASSERT_TRUE(bar.AddTextButton(112, BTNS_DROPDOWN, L"Show", 90));
    ASSERT_TRUE(bar.AddSeparator(12));
    ASSERT_TRUE(bar.AddTextButton(111, BTNS_CHECK, L"Sort", 80));
    EXPECT_EQ(bar.GetButtonCount(), 3);
    EXPECT_EQ(bar.GetButtonText(112), L"Show");
    EXPECT_TRUE(bar.SetButtonText(112, L"Show All Categories"));
    EXPECT_EQ(bar.GetButtonText(112), L"Show All Categories");
    EXPECT_EQ(bar.GetButtonText(999), L"");
    RECT rect;
    ASSERT_TRUE(bar.GetButtonRect(112, &rect));
    EXPECT_EQ(rect.right - rect.left, 90);
    EXPECT_FALSE(bar.GetButtonRect(999, &rect));
    EXPECT_EQ(bar.GetButtonState(111), TBSTATE_ENABLED);
    EXPECT_EQ(bar.GetButtonState(999), 0);
    EXPECT_TRUE(bar.CheckButton(111, true));
    EXPECT_TRUE(bar.IsButtonChecked(111));
    EXPECT_FALSE(bar.IsButtonChecked(999));
    EXPECT_TRUE(bar.PressButton(112, true));
    EXPECT_NE(bar.GetButtonState(112) & TBSTATE_PRESSED, 0);
    EXPECT_TRUE(bar.EnableButton(111, false));
    EXPECT_EQ(bar.GetButtonState(111) & TBSTATE_ENABLED, 0);
    EXPECT_EQ(bar.GetFont(), ControlFont());
}
