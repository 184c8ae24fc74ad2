// What is drawn in a row is what is acted on, wherever the list was scrolled and however it came there.
#include <storebatch.h>

#include <map>
#include <random>
#include <set>

#include "data/category_blob.h"
#include "data/db_cats.h"
#include "list/entry_list.h"
#include "res/ids.h"
#include "tests/list/journal_fixture.h"
#include "tests/list/list_host.h"
#include "tests/support/pump.h"
#include "ui/gdi_scope.h"

namespace {

constexpr int kEntries = 400;
constexpr UINT kBoth = LVIS_SELECTED | LVIS_FOCUSED;

struct Kind {
    const char* name;
    void (*choose)(FilterSettings& filter);
    bool whole = false;
};
void PrintTo(const Kind& kind, std::ostream* out) {
    *out << kind.name;
}

void ByCategory(FilterSettings& filter) {
    filter.active = filter.categoriesOnly = TRUE;
    filter.AddCategory(DbCItem(kPropCategoryName, L"Business"));
}
void ByRange(FilterSettings& filter) {
    filter.active = filter.byRange = TRUE;
    filter.rangeStart = DateTime(SYSTEMTIME{2001, 6, 0, 20, 0, 0, 0, 0});
    filter.rangeEnd = DateTime(SYSTEMTIME{2001, 9, 0, 10, 0, 0, 0, 0});
}
void ByMonths(FilterSettings& filter) {
    filter.active = TRUE;
    filter.months = 0x0A50;
}
void ByNothing(FilterSettings&) {}

constexpr Kind kKinds[] = {{"Off", ByNothing},
                           {"Category", ByCategory},
                           {"Range", ByRange},
                           {"Months", ByMonths},
                           {"CategoryWhole", ByCategory, true},
                           {"MonthsWhole", ByMonths, true}};

class ScrolledListTest : public JournalFixture, public testing::WithParamInterface<Kind> {
protected:
    void SetUp() override {
        host_.onNotify = [this](NMHDR* header) { return list_.OnNotify(header); };
        ASSERT_TRUE(list_.CreateIn(host_.Handle(), host_.Client()));
        list_.Show();
        SetForegroundWindow(host_.Handle());
        list_.SetFocus();
        Fill();
        if (GetParam().whole) application_.WriteInt(L"Options", L"fWhole", 1);
        GetParam().choose(filter_);
        list_.RefreshList();
        list_.Update();
        ASSERT_GT(filter_.passed, list_.GetCountPerPage() * 2);
        ASSERT_LE(filter_.passed, kEntries);
    }

    // Subjects in another order than the days, and one category in seven days.
    void Fill() {
        DbCats categories;
        ASSERT_TRUE(categories.Open(nullptr));
        const std::vector<BYTE> business = MakeCategoryBlob(std::vector{categories.FindByName(L"Business")});
        ASSERT_TRUE(CeBeginBatch());
        const std::vector<CEOID> ids = InsertDays(kEntries);
        for (size_t i = 0; i < ids.size(); ++i) {
            const std::wstring subject = std::to_wstring(i * 7919 % 1000) + L" of " + std::to_wstring(i);
            CEPROPVAL values[2] = {};
            values[0].propid = kPropSubject;
            values[0].val.lpwstr = const_cast<wchar_t*>(subject.c_str());
            values[1].propid = kPropCategories;
            values[1].val.blob = {static_cast<DWORD>(business.size()), const_cast<BYTE*>(business.data())};
            ASSERT_NE(journal_.WriteRecordProps(ids[i], i % 7 == 3 ? WORD{2} : WORD{1}, values), 0u);
            subjects_[ids[i]] = subject;
        }
        ASSERT_TRUE(CeCommitBatch());
        ids_ = ids;
    }

    int Random(int below) { return static_cast<int>(random_() % static_cast<unsigned>(below)); }
    int LastOnScreen() const {
        return std::min<int>(list_.GetTopIndex() + list_.GetCountPerPage(), filter_.passed - 1);
    }
    // The entry that the row stands for, as the list itself tells it.
    CEOID EntryOf(int row) {
        NMLVDISPINFOW info = {};
        info.hdr = {list_.GetHandle(), IDC_ENTRY_LIST, LVN_GETDISPINFOW};
        info.item.mask = LVIF_PARAM;
        info.item.iItem = row;
        list_.OnNotify(&info.hdr);
        return static_cast<CEOID>(info.item.lParam);
    }
    std::wstring SubjectOf(CEOID id) const { return id == 0 ? L"" : subjects_.at(id); }

    void Key(WPARAM key, bool shift = false) {
        BYTE keys[256] = {};
        keys[VK_SHIFT] = shift ? 0x80 : 0;
        SetKeyboardState(keys);
        list_.SendMessage(WM_KEYDOWN, key, 1);
        list_.SendMessage(WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
        keys[VK_SHIFT] = 0;
        SetKeyboardState(keys);
    }
    void Tap(int row) {
        RECT rect = {};
        ASSERT_TRUE(list_.GetItemRect(row, &rect));
        const LPARAM place = MAKELPARAM(rect.left + 20, rect.top + 3);
        list_.PostMessage(WM_LBUTTONUP, 0, place);  // waiting already: the control goes on until it comes
        list_.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, place);
        PumpOnce();
    }
    void Sort(CEPROPID property, DWORD flags) {
        const SORTORDERSPEC order = {property, flags};
        ASSERT_TRUE(journal_.SetSortOrder(&order, 1));
        list_.ShowTop();
        list_.RefreshList();
    }

    // One thing that a person, or the program, does with the list.
    std::string Step() {
        static constexpr WPARAM kKeys[] = {VK_UP, VK_DOWN, VK_PRIOR, VK_NEXT, VK_HOME, VK_END};
        static constexpr WPARAM kScrolls[] = {SB_LINEUP, SB_LINEDOWN, SB_PAGEUP, SB_PAGEDOWN, SB_TOP, SB_BOTTOM};
        static constexpr CEPROPID kOrders[] = {kPropStart, kPropSubject, kPropCategories};
        switch (Random(10)) {
            case 0:
            case 1: list_.SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, Random(2) ? -120 : 120)); return "wheel";
            case 2: list_.SendMessage(WM_VSCROLL, kScrolls[Random(6)]); return "scroll bar";
            case 3:
            case 4: {
                const WPARAM key = kKeys[Random(6)];
                for (int i = Random(8); i >= 0; --i)
                    Key(key);
                return "keys";
            }
            case 5: Key(kKeys[Random(4)], true); return "keys with shift";
            case 6: {
                const int row = list_.GetTopIndex() + Random(LastOnScreen() - list_.GetTopIndex() + 1);
                const std::wstring seen = list_.GetItemText(row, 1);
                Tap(row);
                EXPECT_EQ(SubjectOf(selection_.Current()), seen) << row;
                return "tap";
            }
            case 7: list_.RefreshList(); return "rebuild";
            case 8:
                if (Random(4) == 0) {
                    Sort(kOrders[Random(3)], Random(2) ? CEDB_SORT_DESCENDING : 0);
                    return "sort";
                }
                list_.RedrawItems(list_.GetTopIndex() + 2, list_.GetTopIndex() + 2);
                return "a row drawn again";
            default: list_.SelectEntry(ids_[static_cast<size_t>(Random(kEntries))]); return "select";
        }
    }

    std::vector<BYTE> Picture() {
        RECT area;
        list_.GetClientRect(&area);
        const WindowDc window(list_.GetHandle());
        const UniqueMemoryDc dc(CreateCompatibleDC(window.Dc()));
        BITMAPINFO info = {};
        info.bmiHeader = {sizeof(BITMAPINFOHEADER), area.right, area.bottom, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* bits = nullptr;
        const UniqueBitmap picture(CreateDIBSection(dc.get(), &info, DIB_RGB_COLORS, &bits, nullptr, 0));
        const SelectedObject selected(dc.get(), picture.get());
        BitBlt(dc.get(), 0, 0, area.right, area.bottom, window.Dc(), 0, 0, SRCCOPY);
        GdiFlush();
        const BYTE* begin = static_cast<BYTE*>(bits);
        return {begin, begin + static_cast<ptrdiff_t>(4) * area.right * area.bottom};
    }

    // The picture is what the rows would draw now.
    void ExpectDrawnAsItIs(const std::string& after) {
        list_.Update();
        const std::vector<BYTE> seen = Picture();
        list_.Invalidate();
        list_.Update();
        EXPECT_TRUE(seen == Picture()) << "drawn otherwise after: " << after;
    }
    // Each row on the screen is one with the entry behind it.
    void ExpectAllOfOneMind(const std::string& after) {
        list_.Update();
        for (int row = list_.GetTopIndex(); row <= LastOnScreen(); ++row) {
            const auto id = EntryOf(row);
            EXPECT_EQ(list_.GetItemText(row, 1), SubjectOf(id)) << row << " after: " << after;
            const UINT marks = list_.GetItemState(row, kBoth);
            if (id != 0 && (marks & LVIS_SELECTED)) {
                EXPECT_TRUE(selection_.Contains(id)) << row << " after: " << after;
            }
            if (marks == kBoth) {
                EXPECT_EQ(selection_.Current(), id) << row << " after: " << after;
            }
        }
        CEOID focused = 0;
        if (list_.GetFocusedEntry(&focused) >= 0) {
            EXPECT_EQ(selection_.Current(), focused) << after;
        }
        ExpectSelectionIsMarked(after);
    }
    // Nothing is remembered as selected that no row is marked for.
    void ExpectSelectionIsMarked(const std::string& after) {
        std::set<CEOID> marked;
        for (int row = -1; (row = list_.GetNextItem(row, LVNI_SELECTED)) >= 0;)
            marked.insert(EntryOf(row));
        marked.erase(0);
        EXPECT_EQ(marked, std::set<CEOID>(selection_.Ids().begin(), selection_.Ids().end())) << after;
    }

    ListHost host_;
    EntryList list_{journal_, selection_, filter_};
    std::vector<CEOID> ids_;
    std::map<CEOID, std::wstring> subjects_;
    std::mt19937 random_{20260519};
};

TEST_P(ScrolledListTest, WhatIsDrawnIsWhatIsActedOn) {
    for (int step = 0; step < 500 && !HasFailure(); ++step) {
        const std::string after = std::to_string(step) + " " + Step();
        PumpOnce();
        if (step % 4 == 0) ExpectDrawnAsItIs(after);
        ExpectAllOfOneMind(after);
    }
}

// Down 45 times, then a tap on each row.
TEST_P(ScrolledListTest, ATapOpensTheEntryThatItsRowShows) {
    for (int i = 0; i < 45; ++i)
        Key(VK_DOWN);
    PumpOnce();
    for (int row = list_.GetTopIndex(); row < LastOnScreen(); ++row) {
        const std::wstring seen = list_.GetItemText(row, 1);
        EXPECT_NE(seen, L"") << row;
        host_.commands.clear();
        Tap(row);
        EXPECT_THAT(host_.commands, testing::ElementsAre(ListHost::Command{IDM_OPEN_ENTRY, 0})) << row;
        EXPECT_EQ(SubjectOf(selection_.Current()), seen) << row;
        EXPECT_THAT(selection_.Ids(), testing::ElementsAre(selection_.Current())) << row;
    }
}

// The screen shows no entry twice, as long as nothing on it is selected.
TEST_P(ScrolledListTest, NoEntryStandsInTwoRowsOfAScreen) {
    for (int top = 0; top < filter_.passed; top += 5) {
        list_.EnsureVisible(top, false);
        list_.Update();
        std::set<CEOID> seen;
        for (int row = list_.GetTopIndex(); row <= LastOnScreen(); ++row) {
            const auto id = EntryOf(row);
            EXPECT_NE(id, 0u) << row;
            EXPECT_TRUE(seen.insert(id).second) << row;
        }
    }
}

TEST_P(ScrolledListTest, AfterARebuildTheHighlightedRowIsTheRememberedEntry) {
    for (int i = 0; i < 20; ++i) {
        list_.SelectEntry(ids_[static_cast<size_t>(Random(kEntries))]);
        const CEOID before = selection_.Current();
        list_.RefreshList();
        list_.Update();
        CEOID focused = 0;
        const int row = list_.GetFocusedEntry(&focused);
        EXPECT_EQ(selection_.Current(), before);
        EXPECT_EQ(focused, before);
        EXPECT_EQ(row >= 0, before != 0);
        if (row >= 0) {
            EXPECT_EQ(list_.GetItemText(row, 1), SubjectOf(before));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Filters, ScrolledListTest, testing::ValuesIn(kKinds),
                         [](const auto& kind) { return std::string(kind.param.name); });

}  // namespace
