// A list of check boxes on the real control.
#include "ui/check_list.h"

#include <gtest/gtest.h>
#include <px.h>

#include "tests/ui/test_windows.h"

namespace {

constexpr int kId = 77;

class CheckListTest : public testing::Test {
protected:
    CheckListTest() {
        INITCOMMONCONTROLSEX classes = {sizeof(classes), ICC_LISTVIEW_CLASSES};
        InitCommonControlsEx(&classes);
        EXPECT_TRUE(list_.CreateIn(parent_.Handle(), kId, LVS_REPORT | LVS_NOCOLUMNHEADER | WS_VISIBLE,
                                   {0, 0, Px(200), Px(120)}));
        list_.Prepare(Px(180));
        list_.Add(L"one", false, 11);
        list_.Add(L"two", true, 22);
    }

    NMITEMACTIVATE TapAt(int row, int part, int x) const {
        RECT place = {};
        EXPECT_TRUE(list_.GetItemRect(row, &place, part));
        NMITEMACTIVATE tap = {};
        tap.ptAction = {place.left + x, (place.top + place.bottom) / 2};
        return tap;
    }

    RecordingWindow parent_;
    CheckList list_;
};

TEST_F(CheckListTest, RowsComeAsTheyAreAdded) {
    EXPECT_EQ(list_.GetItemCount(), 2);
    EXPECT_EQ(list_.GetItemText(1, 0), L"two");
    EXPECT_EQ(list_.GetItemData(0), 11);
    EXPECT_FALSE(list_.IsChecked(0));
    EXPECT_TRUE(list_.IsChecked(1));
}

TEST_F(CheckListTest, ChecksAndUnchecks) {
    list_.SetChecked(0, true);
    EXPECT_TRUE(list_.IsChecked(0));
    list_.UncheckAll();
    EXPECT_FALSE(list_.IsChecked(0));
    EXPECT_FALSE(list_.IsChecked(1));
}

TEST_F(CheckListTest, SettingWhatIsSetNotifiesNobody) {
    const size_t notified = parent_.Seen(WM_NOTIFY).size();
    list_.SetChecked(1, true);
    EXPECT_EQ(parent_.Seen(WM_NOTIFY).size(), notified);
    list_.SetChecked(1, false);
    EXPECT_GT(parent_.Seen(WM_NOTIFY).size(), notified);
}

TEST_F(CheckListTest, ATapTogglesUnlessItIsOnTheBox) {
    list_.OnTap(TapAt(0, LVIR_LABEL, Px(4)));
    EXPECT_TRUE(list_.IsChecked(0));
    list_.OnTap(TapAt(0, LVIR_BOUNDS, Px(150)));  // right of the text
    EXPECT_FALSE(list_.IsChecked(0));
    list_.OnTap(TapAt(0, LVIR_LABEL, -Px(8)));  // the control's own business
    EXPECT_FALSE(list_.IsChecked(0));
}

TEST_F(CheckListTest, ATapBelowTheRowsDoesNothing) {
    NMITEMACTIVATE tap = TapAt(1, LVIR_LABEL, Px(4));
    tap.ptAction.y += Px(60);
    list_.OnTap(tap);
    EXPECT_FALSE(list_.IsChecked(0));
    EXPECT_TRUE(list_.IsChecked(1));
}

TEST_F(CheckListTest, ADisabledListIsGrey) {
    list_.Enable(false);
    EXPECT_FALSE(list_.IsEnabled());
    EXPECT_EQ(static_cast<DWORD>(list_.SendMessage(LVM_GETTEXTCOLOR)), GetSysColor(COLOR_GRAYTEXT));
    list_.Enable();
    EXPECT_TRUE(list_.IsEnabled());
    EXPECT_EQ(static_cast<DWORD>(list_.SendMessage(LVM_GETTEXTCOLOR)), GetSysColor(COLOR_WINDOWTEXT));
}

TEST_F(CheckListTest, EveryTextHasRoomInTheWidestRow) {
    const int narrow = list_.WidestRow();
    list_.Add(L"a much longer text than the others", false);
    EXPECT_GT(list_.WidestRow(), narrow + Px(60));
}

struct StateChange {
    int row;
    UINT changed;
    UINT before;
    UINT now;
    bool toggled;
};

class ToggleTest : public testing::TestWithParam<StateChange> {};

TEST_P(ToggleTest, OnlyAChangeOfTheBoxCounts) {
    NMLISTVIEW change = {};
    change.iItem = GetParam().row;
    change.uChanged = GetParam().changed;
    change.uOldState = GetParam().before;
    change.uNewState = GetParam().now;
    EXPECT_EQ(CheckList::IsToggled(change), GetParam().toggled);
}

constexpr UINT kEmpty = 1u << 12;
constexpr UINT kChecked = 2u << 12;

INSTANTIATE_TEST_SUITE_P(Changes, ToggleTest,
                         testing::Values(StateChange{0, LVIF_STATE, kEmpty, kChecked, true},
                                         StateChange{3, LVIF_STATE, kChecked, kEmpty | LVIS_SELECTED, true},
                                         StateChange{0, LVIF_STATE, 0, kEmpty, false},  // the box has just come
                                         StateChange{0, LVIF_STATE, kEmpty, kEmpty | LVIS_FOCUSED, false},
                                         StateChange{0, LVIF_TEXT, kEmpty, kChecked, false},
                                         StateChange{-1, LVIF_STATE, kEmpty, kChecked, false}));

}  // namespace
