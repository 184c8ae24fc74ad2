// The bar over the list: its two menus, and what a choice in them does.
#include "list/button_bar.h"

#include <px.h>

#include "res/ids.h"
#include "tests/list/journal_fixture.h"
#include "tests/list/list_host.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Item {
    UINT id;
    std::wstring text;
    bool checked;
    bool operator==(const Item&) const = default;
};

void PrintTo(const Item& item, std::ostream* out) {
    *out << item.id << (item.checked ? " checked" : "");
}

const Item kSeparator = {0, L"", false};

std::vector<Item> ItemsOf(const UniqueMenu& menu) {
    std::vector<Item> items;
    for (int i = 0; i < GetMenuItemCount(menu.get()); ++i) {
        wchar_t text[100] = L"";
        GetMenuStringW(menu.get(), static_cast<UINT>(i), text, 100, MF_BYPOSITION);
        const UINT state = GetMenuState(menu.get(), static_cast<UINT>(i), MF_BYPOSITION);
        items.push_back({GetMenuItemID(menu.get(), i), text, (state & MF_CHECKED) != 0});
    }
    return items;
}

class ButtonBarTest : public JournalFixture {
protected:
    void SetUp() override {
        host_.onNotify = [this](NMHDR* header) { return bar_.OnNotify(header); };
        ASSERT_TRUE(bar_.CreateIn(host_.Handle(), host_.Client().right));
        bar_.Show();
    }

    void StoreSortBy(int32_t field) { application_.WriteInt(L"Options", L"SortBy", field); }
    int32_t StoredSortBy() const { return application_.ReadInt(L"Options", L"SortBy", -1); }

    ListHost host_;
    ButtonBar bar_{journal_, filter_};
};

TEST_F(ButtonBarTest, LiesAcrossTheTopWithTwoButtons) {
    EXPECT_EQ(bar_.GetId(), 110);
    RECT bar;
    bar.left = bar.top = -1;
    GetClientRect(bar_.GetHandle(), &bar);
    EXPECT_EQ(bar.right, host_.Client().right);
    EXPECT_EQ(bar.bottom, Px(26));
    RECT show;
    RECT sort;
    ASSERT_TRUE(bar_.GetButtonRect(112, &show));
    ASSERT_TRUE(bar_.GetButtonRect(111, &sort));
    const int width = (host_.Client().right - Px(40)) / 2;
    EXPECT_EQ(show.right - show.left, width);
    EXPECT_EQ(sort.right - sort.left, width);
    EXPECT_EQ(show.bottom - show.top, Px(22));
    EXPECT_LE(show.right, sort.left);
    EXPECT_LE(sort.right, bar.right);
    EXPECT_TRUE(bar_.GetButtonState(112) & TBSTATE_ENABLED);
    EXPECT_TRUE(bar_.GetButtonState(111) & TBSTATE_ENABLED);
}

TEST_F(ButtonBarTest, FitsANewWidth) {
    bar_.Fit(Px(480));
    RECT sort;
    ASSERT_TRUE(bar_.GetButtonRect(111, &sort));
    EXPECT_EQ(sort.right - sort.left, (Px(480) - Px(40)) / 2);
    EXPECT_LE(sort.right, Px(480));
    EXPECT_GT(sort.right, Px(480) - Px(20));
}

// A caption can be as long as a category's or a field's name.
TEST_F(ButtonBarTest, ALongCaptionStaysInItsButton) {
    const RECT area = host_.Client();
    const HDC dc = CreateCompatibleDC(nullptr);
    BITMAPINFO info = {};
    info.bmiHeader = {sizeof info.bmiHeader, area.right, -Px(26), 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    const HBITMAP picture = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    ASSERT_NE(picture, nullptr);
    const HGDIOBJ before = SelectObject(dc, picture);
    for (const int id : {112, 111}) {
        bar_.SetButtonText(id, std::wstring(80, L'W').c_str());
        const RECT all = {0, 0, area.right, Px(26)};
        FillRect(dc, &all, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
        NMTBCUSTOMDRAW draw = {};
        draw.nmcd.hdr = {bar_.GetHandle(), 110, static_cast<UINT>(NM_CUSTOMDRAW)};
        draw.nmcd.dwDrawStage = CDDS_ITEMPREPAINT;
        draw.nmcd.hdc = dc;
        draw.nmcd.dwItemSpec = static_cast<DWORD_PTR>(id);
        bar_.OnNotify(&draw.nmcd.hdr);
        RECT button;
        ASSERT_TRUE(bar_.GetButtonRect(id, &button));
        // "Sort" ends with the bar, a little behind its button.
        const int right = id == 111 ? area.right : button.right;
        int inside = 0;
        int outside = 0;
        for (int y = 0; y < Px(26); ++y) {
            for (int x = 0; x < area.right; ++x) {
                if (GetPixel(dc, x, y) != RGB(255, 255, 255)) ++(x < button.left || x >= right ? outside : inside);
            }
        }
        EXPECT_GT(inside, 0) << id;
        EXPECT_EQ(outside, 0) << id;
    }
    SelectObject(dc, before);
    DeleteObject(picture);
    DeleteDC(dc);
}

TEST_F(ButtonBarTest, ShowHoldsAllAndMoreWhileNoCategoryIsUsed) {
    EXPECT_THAT(ItemsOf(bar_.MakeShowMenu()),
                ElementsAre(Item{115, L"All", false}, kSeparator, Item{121, L"More...", false}));
}

TEST_F(ButtonBarTest, ShowSendsWhatWasChosenAndNamesTheFilterAgain) {
    bar_.SetButtonText(112, L"Show");
    bar_.OnShowChoice(bar_.MakeShowMenu().get(), 115);
    EXPECT_THAT(host_.commands, ElementsAre(ListHost::Command{115, 0}));
    EXPECT_EQ(bar_.GetButtonText(112), L"All");
    host_.commands.clear();
    bar_.SetButtonText(112, L"Show");
    bar_.OnShowChoice(bar_.MakeShowMenu().get(), 0);
    EXPECT_THAT(host_.commands, IsEmpty());
    EXPECT_EQ(bar_.GetButtonText(112), L"All");
}

TEST_F(ButtonBarTest, SortListsTheSortableFieldsInTheirOrder) {
    EXPECT_THAT(
        ItemsOf(bar_.MakeSortMenu()),
        ElementsAre(Item{102, L"Subject", false}, Item{105, L"Entry Type", false}, Item{101, L"Start", true},
                    Item{109, L"Duration", false}, Item{107, L"Priority", false}, Item{108, L"Sensitivity", false},
                    Item{111, L"Company", false}, Item{110, L"Contacts", false}, Item{104, L"Categories", false},
                    kSeparator, Item{113, L"Ascending", true}));
}

TEST_F(ButtonBarTest, SortChecksTheStoredFieldAndTheStoresDirection) {
    StoreSortBy(107);
    const SORTORDERSPEC order = {kPropStart, CEDB_SORT_DESCENDING};
    ASSERT_TRUE(journal_.SetSortOrder(&order, 1));
    for (const Item& item : ItemsOf(bar_.MakeSortMenu()))
        EXPECT_EQ(item.checked, item.id == 107u) << item.id;
}

TEST_F(ButtonBarTest, ChoosingAFieldStoresItAndTellsTheOwner) {
    bar_.OnSortChoice(111);
    EXPECT_EQ(StoredSortBy(), 111);
    EXPECT_EQ(bar_.GetButtonText(111), L"Company");
    EXPECT_THAT(host_.commands, ElementsAre(ListHost::Command{111, 0x467}));
}

TEST_F(ButtonBarTest, AscendingFlipsTheDirectionAndNamesTheStoredField) {
    StoreSortBy(102);
    bar_.SetButtonText(111, L"Sort");
    bar_.OnSortChoice(113);
    EXPECT_EQ(bar_.GetButtonText(111), L"Subject");
    EXPECT_THAT(host_.commands, ElementsAre(ListHost::Command{1, 0x469}));
    const SORTORDERSPEC order = {kPropStart, CEDB_SORT_DESCENDING};
    ASSERT_TRUE(journal_.SetSortOrder(&order, 1));
    bar_.OnSortChoice(113);
    EXPECT_EQ(host_.commands.back(), (ListHost::Command{0, 0x469}));
    EXPECT_EQ(StoredSortBy(), 102);
}

TEST_F(ButtonBarTest, ChoosingNothingNamesTheStoresOwnSortField) {
    StoreSortBy(102);
    const SORTORDERSPEC order = {kPropCompany, CEDB_SORT_CASEINSENSITIVE};
    ASSERT_TRUE(journal_.SetSortOrder(&order, 1));
    bar_.OnSortChoice(0);
    EXPECT_EQ(bar_.GetButtonText(111), L"Company");
    EXPECT_THAT(host_.commands, IsEmpty());
    EXPECT_EQ(StoredSortBy(), 102);
}

// ---- What stands in the settings may be anything ----

struct StoredCase {
    const char* name;
    DWORD type;
    std::vector<BYTE> bytes;
};

class OddSortByTest : public ButtonBarTest, public testing::WithParamInterface<StoredCase> {};

TEST_P(OddSortByTest, IsReadAsTheDefaultAndReplacedByAChoice) {
    StoreSortBy(107);
    HKEY key = nullptr;
    ASSERT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, L"Software\\Talvern\\Journal\\Options", 0, KEY_SET_VALUE, &key),
              ERROR_SUCCESS);
    const std::vector<BYTE>& bytes = GetParam().bytes;
    ASSERT_EQ(RegSetValueExW(key, L"SortBy", 0, GetParam().type, bytes.data(), static_cast<DWORD>(bytes.size())),
              ERROR_SUCCESS);
    RegCloseKey(key);
    bar_.SetSortText();
    EXPECT_EQ(bar_.GetButtonText(111), L"Start");
    EXPECT_EQ(ItemsOf(bar_.MakeSortMenu()).size(), 11u);
    bar_.OnSortChoice(102);
    EXPECT_EQ(StoredSortBy(), 102);
    EXPECT_EQ(bar_.GetButtonText(111), L"Subject");
}

INSTANTIATE_TEST_SUITE_P(Values, OddSortByTest,
                         testing::Values(StoredCase{"Text", REG_SZ, {'1', 0, '0', 0, '7', 0, 0, 0}},
                                         StoredCase{"TextWithoutEnd", REG_SZ, {'7'}},
                                         StoredCase{"TooShort", REG_DWORD, {107, 0}},
                                         StoredCase{"Nothing", REG_DWORD, {}},
                                         StoredCase{"TooLong", REG_BINARY, std::vector<BYTE>(1000, 0x6B)},
                                         StoredCase{"AllBits", REG_DWORD, {0xFF, 0xFF, 0xFF, 0xFF}},
                                         StoredCase{"NoField", REG_DWORD, {200, 0, 0, 0}}),
                         [](const auto& param) { return std::string(param.param.name); });

struct SortTextCase {
    int32_t stored;
    const wchar_t* text;
};

class SortTextTest : public ButtonBarTest, public testing::WithParamInterface<SortTextCase> {};

TEST_P(SortTextTest, NamesTheStoredField) {
    if (GetParam().stored != 0) StoreSortBy(GetParam().stored);
    bar_.SetSortText();
    EXPECT_EQ(bar_.GetButtonText(111), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Fields, SortTextTest,
                         testing::Values(SortTextCase{0, L"Start"},    // never stored
                                         SortTextCase{101, L"Start"},  //
                                         SortTextCase{104, L"Categories"}, SortTextCase{106, L"Start"},
                                         SortTextCase{65'638, L"Start"},  // 102 in its low word
                                         SortTextCase{-1, L"Start"}));

}  // namespace
