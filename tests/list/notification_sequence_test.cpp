// What the real control tells the list for each thing a user does, in its order, and what is remembered of it.
#include <gmock/gmock.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "list/entry_list.h"
#include "tests/list/journal_fixture.h"
#include "tests/list/list_host.h"
#include "tests/support/pump.h"

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

using Rows = std::vector<int>;
using Log = std::vector<std::string>;

// "0", "S" selected, "F" focused, "SF" both.
std::string States(UINT states) {
    std::string text;
    if (states & LVIS_SELECTED) text += 'S';
    if (states & LVIS_FOCUSED) text += 'F';
    return text.empty() ? "0" : text;
}

// One line for each notification about rows and taps; drawing, hints and the mouse's capture say nothing of these.
std::string Describe(const NMHDR* header) {
    switch (header->code) {
        case LVN_DELETEALLITEMS: return "emptied";
        case LVN_ITEMCHANGED: {
            const auto& change = *reinterpret_cast<const NMLISTVIEW*>(header);
            const std::string row = change.iItem < 0 ? "all" : std::to_string(change.iItem);
            return row + ": " + States(change.uOldState) + " to " + States(change.uNewState);
        }
        case LVN_ODSTATECHANGED: {
            const auto& change = *reinterpret_cast<const NMLVODSTATECHANGE*>(header);
            return std::to_string(change.iFrom) + ".." + std::to_string(change.iTo) + ": " + States(change.uOldState) +
                   " to " + States(change.uNewState);
        }
        case NM_CLICK: return "click";
        case NM_DBLCLK: return "double click";
        default: return {};
    }
}

class NotificationSequenceTest : public JournalFixture {
protected:
    void SetUp() override {
        host_.onNotify = [this](NMHDR* header) {
            if (std::string line = Describe(header); !line.empty()) log_.push_back(std::move(line));
            return list_.OnNotify(header);
        };
        ASSERT_TRUE(list_.CreateIn(host_.Handle(), host_.Client()));
        list_.Show();
        ids_ = InsertDays(8);
        list_.RefreshList();
        list_.SetFocus();
        list_.Update();
        log_.clear();
    }
    ~NotificationSequenceTest() override {
        for (const BYTE key : {BYTE{VK_CONTROL}, BYTE{VK_SHIFT}})
            SetKey(key, false);
    }

    static void SetKey(BYTE key, bool down) {
        BYTE keys[256];
        GetKeyboardState(keys);
        keys[key] = down ? 0x80 : 0;
        SetKeyboardState(keys);
    }
    // On the row, or below the last one.
    void Click(int row, BYTE key = 0) {
        RECT rect = {};
        list_.GetItemRect(std::min(row, list_.GetItemCount() - 1), &rect);
        const LONG y = row < list_.GetItemCount() ? (rect.top + rect.bottom) / 2 : rect.bottom + 5;
        const LPARAM place = MAKELPARAM((rect.left + rect.right) / 2, y);
        const WPARAM held = key == VK_CONTROL ? MK_CONTROL : key == VK_SHIFT ? MK_SHIFT : 0;
        if (key != 0) SetKey(key, true);
        list_.PostMessage(WM_LBUTTONUP, held, place);  // waiting already: a short tap
        list_.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON | held, place);
        PumpOnce();
        if (key != 0) SetKey(key, false);
    }
    void Press(WPARAM key, BYTE with = 0) {
        if (with != 0) SetKey(with, true);
        list_.SendMessage(WM_KEYDOWN, key, 1);
        list_.SendMessage(WM_KEYUP, key, 1);
        if (with != 0) SetKey(with, false);
    }

    Rows Remembered() const {
        Rows rows;
        for (const CEOID id : selection_.Ids())
            rows.push_back(RowOf(id));
        return rows;
    }
    int Current() const { return RowOf(selection_.Current()); }
    int RowOf(CEOID id) const {
        const auto found = std::find(ids_.begin(), ids_.end(), id);
        return found == ids_.end() ? -1 : static_cast<int>(found - ids_.begin());
    }
    Log Taken() { return std::exchange(log_, {}); }

    ListHost host_;
    EntryList list_{journal_, selection_, filter_};
    std::vector<CEOID> ids_;
    Log log_;
};

// ---- What a user does: expected notifications and memory, row by row of a table ----

enum Do { kClick, kCtrlClick, kShiftClick, kKey, kShiftKey, kCtrlKey };

struct Step {
    Do what;
    int of;  // a row, or a virtual key
};

constexpr int kBelowTheRows = 100;

struct Action {
    const char* name;
    std::vector<Step> before;
    Step act;
    Log told;
    Rows remembered;
    int current;  // -1: none
};

class UserActionTest : public NotificationSequenceTest, public testing::WithParamInterface<Action> {
protected:
    void Do(const Step& step) {
        switch (step.what) {
            case kClick: return Click(step.of);
            case kCtrlClick: return Click(step.of, VK_CONTROL);
            case kShiftClick: return Click(step.of, VK_SHIFT);
            case kKey: return Press(static_cast<WPARAM>(step.of));
            case kShiftKey: return Press(static_cast<WPARAM>(step.of), VK_SHIFT);
            case kCtrlKey: return Press(static_cast<WPARAM>(step.of), VK_CONTROL);
        }
    }
};

TEST_P(UserActionTest, IsToldInThisOrderAndRemembered) {
    for (const Step& step : GetParam().before)
        Do(step);
    log_.clear();
    Do(GetParam().act);
    EXPECT_THAT(Taken(), ElementsAreArray(GetParam().told));
    EXPECT_THAT(Remembered(), ElementsAreArray(GetParam().remembered));
    EXPECT_EQ(Current(), GetParam().current);
}

const Action kActions[] = {
    {"ClickOnARow", {}, {kClick, 2}, {"2: 0 to SF", "click"}, {2}, 2},
    {"ClickOnAnotherRow", {{kClick, 2}}, {kClick, 5}, {"all: S to 0", "2: F to 0", "5: 0 to SF", "click"}, {5}, 5},
    {"ClickOnTheSelectedRow", {{kClick, 5}}, {kClick, 5}, {"click", "all: S to 0", "5: SF to S", "5: F to SF"}, {5}, 5},
    {"ClickBelowTheRows", {{kClick, 2}, {kCtrlClick, 4}}, {kClick, kBelowTheRows}, {"all: S to 0", "click"}, {}, -1},
    {"CtrlClickAddsARow", {{kClick, 5}}, {kCtrlClick, 3}, {"5: SF to S", "3: 0 to SF", "click"}, {5, 3}, 3},
    {"CtrlClickTakesARowBack",
     {{kClick, 5}, {kCtrlClick, 3}},
     {kCtrlClick, 3},
     {"3: F to 0", "3: SF to F", "click"},
     {5},
     3},
    {"ShiftClickBelow",
     {{kClick, 1}},
     {kShiftClick, 4},
     {"all: S to 0", "1..4: 0 to S", "1: SF to S", "4: S to SF", "click"},
     {2, 3, 1, 4},
     4},
    {"ShiftClickShortensTheRange",
     {{kClick, 1}, {kShiftClick, 4}},
     {kShiftClick, 2},
     {"all: S to 0", "1..2: 0 to S", "4: F to 0", "2: S to SF", "click"},
     {1, 2},
     2},
    {"ShiftClickAbove",
     {{kClick, 4}},
     {kShiftClick, 2},
     {"all: S to 0", "2..4: 0 to S", "4: SF to S", "2: S to SF", "click"},
     {3, 4, 2},
     2},
    {"Down", {{kClick, 6}}, {kKey, VK_DOWN}, {"all: S to 0", "6: F to 0", "7: 0 to SF"}, {7}, 7},
    {"DownOnTheLastRow", {{kClick, 7}}, {kKey, VK_DOWN}, {}, {7}, 7},
    {"Up", {{kClick, 7}}, {kKey, VK_UP}, {"all: S to 0", "7: F to 0", "6: 0 to SF"}, {6}, 6},
    {"Home", {{kClick, 6}}, {kKey, VK_HOME}, {"all: S to 0", "6: F to 0", "0: 0 to SF"}, {0}, 0},
    {"End", {{kClick, 0}}, {kKey, VK_END}, {"all: S to 0", "0: F to 0", "7: 0 to SF"}, {7}, 7},
    {"ShiftUp",
     {{kClick, 6}},
     {kShiftKey, VK_UP},
     {"all: S to 0", "5..6: 0 to S", "6: SF to S", "5: S to SF"},
     {6, 5},
     5},
    {"ShiftDownShortensTheRange",
     {{kClick, 6}, {kShiftKey, VK_UP}, {kShiftKey, VK_UP}},
     {kShiftKey, VK_DOWN},
     {"all: S to 0", "5..6: 0 to S", "4: F to 0", "5: S to SF"},
     {6, 5},
     5},
    {"ShiftHome",
     {{kClick, 7}},
     {kShiftKey, VK_HOME},
     {"all: S to 0", "0..7: 0 to S", "7: SF to S", "0: S to SF"},
     {1, 2, 3, 4, 5, 6, 7, 0},
     0},
    {"CtrlDownMovesTheFocusIntoTheRange",
     {{kClick, 6}, {kShiftKey, VK_UP}},
     {kCtrlKey, VK_DOWN},
     {"5: SF to S", "6: S to SF"},
     {5, 6},
     6},
    {"CtrlSpaceTakesTheFocusedRowBack", {{kClick, 6}}, {kCtrlKey, VK_SPACE}, {"6: SF to F"}, {}, 6},
    {"DownAfterAClickBelowTheRows",
     {{kClick, 0}, {kClick, kBelowTheRows}},
     {kKey, VK_DOWN},
     {"0: F to 0", "1: 0 to SF"},
     {1},
     1},
};

INSTANTIATE_TEST_SUITE_P(Actions, UserActionTest, testing::ValuesIn(kActions),
                         [](const auto& param) { return std::string(param.param.name); });

// ---- What the program does ----

TEST_F(NotificationSequenceTest, RebuildEmptiesAndThenSelectsEachRememberedEntry) {
    Click(2);
    Click(4, VK_CONTROL);
    log_.clear();
    list_.RefreshList();
    EXPECT_THAT(Taken(), ElementsAre("emptied", "2: 0 to S", "4: 0 to SF"));
    EXPECT_THAT(Remembered(), UnorderedElementsAre(2, 4));
    EXPECT_EQ(Current(), 4);
    EXPECT_TRUE(list_.HasCurrent());
}

TEST_F(NotificationSequenceTest, RebuildWithoutACurrentEntryEndsWithEveryRowCleared) {
    Click(1);
    Click(3, VK_CONTROL);
    selection_.SetCurrent(0);
    log_.clear();
    list_.RefreshList();
    EXPECT_THAT(Taken(), ElementsAre("emptied"));
    EXPECT_EQ(list_.GetSelectedCount(), 0);
    EXPECT_EQ(list_.GetNextItem(-1, LVNI_FOCUSED), -1);
    EXPECT_THAT(Remembered(), IsEmpty());
    EXPECT_EQ(Current(), -1);
    EXPECT_FALSE(list_.HasCurrent());
}

TEST_F(NotificationSequenceTest, RebuildWithNothingRememberedOnlyEmpties) {
    list_.RefreshList();
    EXPECT_THAT(Taken(), ElementsAre("emptied"));
}

TEST_F(NotificationSequenceTest, SelectEntryMovesTheFocusAndKeepsWhatWasSelected) {
    Click(4);
    log_.clear();
    list_.SelectEntry(ids_[6]);
    EXPECT_THAT(Taken(), ElementsAre("4: SF to S", "6: 0 to SF"));
    EXPECT_THAT(Remembered(), ElementsAre(4, 6));
    EXPECT_EQ(Current(), 6);
}

TEST_F(NotificationSequenceTest, SelectEntryOfNoEntryClearsEveryRowAtOnce) {
    Click(2);
    Click(4, VK_CONTROL);
    log_.clear();
    list_.SelectEntry(0);
    EXPECT_THAT(Taken(), ElementsAre("all: SF to 0"));
    EXPECT_THAT(Remembered(), IsEmpty());
    EXPECT_EQ(Current(), -1);
    list_.SelectEntry(0);
    EXPECT_THAT(Taken(), IsEmpty());
}

TEST_F(NotificationSequenceTest, DeletedEntriesAreForgottenBeforeTheRebuild) {
    Click(2);
    Click(4, VK_CONTROL);
    log_.clear();
    for (const int row : {2, 4}) {
        ASSERT_TRUE(journal_.DeleteRecord(ids_[static_cast<size_t>(row)]));
        selection_.Remove(ids_[static_cast<size_t>(row)]);
    }
    list_.RefreshList();
    EXPECT_THAT(Taken(), ElementsAre("emptied"));
    EXPECT_EQ(list_.GetItemCount(), 6);
    EXPECT_THAT(Remembered(), IsEmpty());
    EXPECT_EQ(Current(), -1);
}

TEST_F(NotificationSequenceTest, ARememberedEntryThatIsGoneTakesThoseBeforeItAlong) {
    for (const int row : {1, 3, 5})
        Click(row, VK_CONTROL);
    ASSERT_TRUE(journal_.DeleteRecord(ids_[3]));
    log_.clear();
    list_.RefreshList();
    EXPECT_THAT(Taken(), ElementsAre("emptied", "4: 0 to SF"));
    EXPECT_THAT(Remembered(), ElementsAre(5));
    EXPECT_EQ(Current(), 5);
}

}  // namespace
