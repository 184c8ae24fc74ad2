// The context menu's place and the size of its items.
#include "app/context_menu.h"

#include <gtest/gtest.h>
#include <px.h>

#include "res/ids.h"
#include "ui/fonts.h"
#include "ui/gdi_scope.h"

namespace {

struct QuarterCase {
    const char* name;
    POINT point;
    UINT flags;
};

class QuarterTest : public testing::TestWithParam<QuarterCase> {};

TEST_P(QuarterTest, OpensAwayFromTheNearestCorner) {
    EXPECT_EQ(ContextMenu::Alignment({0, 0, 240, 268}, GetParam().point), GetParam().flags);
}

INSTANTIATE_TEST_SUITE_P(Points, QuarterTest,
                         testing::Values(QuarterCase{"UpperLeft", {10, 30}, TPM_LEFTALIGN | TPM_TOPALIGN},
                                         QuarterCase{"LowerLeft", {10, 200}, TPM_LEFTALIGN | TPM_BOTTOMALIGN},
                                         QuarterCase{"LowerRight", {200, 200}, TPM_RIGHTALIGN | TPM_BOTTOMALIGN},
                                         QuarterCase{"UpperRight", {200, 30}, TPM_RIGHTALIGN | TPM_TOPALIGN}),
                         [](const auto& param) { return std::string(param.param.name); });

TEST(ContextMenuTest, AnItemIsAsHighAsItsTextAndFiveCharactersWider) {
    const ContextMenu menu;
    std::wstring text = L"Delete";
    const WindowDc screen(nullptr);
    const UniqueFont font = MakeFont(L"Tahoma", -13, FW_BOLD);
    const SelectedObject selected(screen.Dc(), font.get());
    SIZE size = {};
    GetTextExtentPoint32W(screen.Dc(), text.c_str(), 6, &size);
    MEASUREITEMSTRUCT item = {};
    item.CtlType = ODT_MENU;
    item.itemData = reinterpret_cast<ULONG_PTR>(&text);
    EXPECT_TRUE(menu.Measure(&item));
    EXPECT_EQ(item.itemHeight, static_cast<UINT>(size.cy + Px(2)));
    EXPECT_EQ(item.itemWidth, static_cast<UINT>(size.cx + 5 * (size.cx / 6)));
}

TEST(ContextMenuTest, AnItemWithoutTextIsASeparator) {
    const ContextMenu menu;
    std::wstring none;
    for (const ULONG_PTR data : {ULONG_PTR{0}, reinterpret_cast<ULONG_PTR>(&none)}) {
        MEASUREITEMSTRUCT item = {};
        item.CtlType = ODT_MENU;
        item.itemData = data;
        EXPECT_TRUE(menu.Measure(&item));
        EXPECT_EQ(item.itemHeight, static_cast<UINT>(Px(10)));
        EXPECT_EQ(item.itemWidth, static_cast<UINT>(Px(50)));
    }
}

// ---- Drawing, item by item into a picture ----

class ContextMenuDrawTest : public testing::Test {
protected:
    static constexpr COLORREF kPaper = RGB(1, 200, 3);
    static constexpr RECT kItem = {5, 40, 165, 70};

    ContextMenuDrawTest() {
        const WindowDc screen(nullptr);
        dc_.reset(CreateCompatibleDC(screen.Dc()));
        picture_.reset(CreateCompatibleBitmap(screen.Dc(), 200, 100));
        SelectObject(dc_.get(), picture_.get());
    }
    ~ContextMenuDrawTest() override { dc_.reset(); }

    void Draw(const std::wstring* text, UINT state = 0, UINT action = ODA_DRAWENTIRE) {
        PatBlt(dc_.get(), 0, 0, 200, 100, WHITENESS);
        DRAWITEMSTRUCT item = {};
        item.CtlType = ODT_MENU;
        item.itemAction = action;
        item.itemState = state;
        item.hDC = dc_.get();
        item.rcItem = kItem;
        item.itemData = reinterpret_cast<ULONG_PTR>(text);
        const UniqueBrush paper(CreateSolidBrush(kPaper));
        EXPECT_TRUE(menu_.Draw(item, paper.get()));
    }
    // The smallest rectangle around what is not paper within the item.
    RECT Ink() const {
        RECT ink = {};
        for (LONG y = kItem.top; y < kItem.bottom; ++y)
            for (LONG x = kItem.left; x < kItem.right; ++x) {
                if (GetPixel(dc_.get(), x, y) == kPaper) continue;
                const RECT dot = {x, y, x + 1, y + 1};
                UnionRect(&ink, &ink, &dot);
            }
        return ink;
    }

    ContextMenu menu_;
    UniqueMemoryDc dc_;
    UniqueBitmap picture_;
    const std::wstring text_ = L"Delete";
};

TEST_F(ContextMenuDrawTest, TextStandsTenPixelsInAndInTheMiddle) {
    for (const UINT action : {UINT{ODA_DRAWENTIRE}, UINT{ODA_SELECT}, UINT{ODA_FOCUS}}) {
        Draw(&text_, 0, action);
        const RECT ink = Ink();
        EXPECT_NEAR(ink.left, kItem.left + Px(10), Px(2));
        EXPECT_NEAR((ink.top + ink.bottom) / 2, (kItem.top + kItem.bottom) / 2, Px(3));
        EXPECT_EQ(GetPixel(dc_.get(), kItem.left - 1, kItem.top + 5), RGB(255, 255, 255));
    }
}

TEST_F(ContextMenuDrawTest, ACheckedItemHasItsMarkThreePixelsIn) {
    const std::wstring blank = L" ";
    Draw(&blank);
    const RECT none = Ink();
    EXPECT_TRUE(IsRectEmpty(&none));
    Draw(&blank, ODS_CHECKED);
    const RECT ink = Ink();
    EXPECT_GE(ink.left, kItem.left + Px(3));
    EXPECT_GE(ink.top, kItem.top + Px(3));
    EXPECT_LE(ink.right, kItem.left + Px(15));
    EXPECT_LE(ink.bottom, kItem.top + Px(15));
    EXPECT_GT(ink.right - ink.left, Px(6));
    // White is transparent.
    for (LONG y = ink.top; y < ink.bottom; ++y)
        for (LONG x = ink.left; x < ink.right; ++x)
            EXPECT_NE(GetPixel(dc_.get(), x, y), RGB(255, 255, 255));
}

TEST_F(ContextMenuDrawTest, ASeparatorIsALineAcrossTheMiddle) {
    Draw(nullptr);
    const RECT ink = Ink();
    EXPECT_EQ(ink.left, kItem.left + Px(6));
    EXPECT_EQ(ink.right, kItem.right - Px(6));
    EXPECT_EQ(ink.top, (kItem.top + kItem.bottom) / 2);
    EXPECT_EQ(ink.bottom, ink.top + 1);
    Draw(nullptr, 0, ODA_FOCUS);
    const RECT none = Ink();
    EXPECT_TRUE(IsRectEmpty(&none));
}

TEST_F(ContextMenuDrawTest, TheChosenItemHasAFrame) {
    Draw(&text_, ODS_SELECTED, ODA_SELECT);
    EXPECT_EQ(GetPixel(dc_.get(), kItem.left, kItem.top), GetSysColor(COLOR_HIGHLIGHT));
    EXPECT_EQ(GetPixel(dc_.get(), kItem.right - 1, kItem.bottom - 1), GetSysColor(COLOR_HIGHLIGHT));
}

TEST(ContextMenuTest, LeavesOtherControlsAlone) {
    const ContextMenu menu;
    MEASUREITEMSTRUCT item = {};
    item.CtlType = ODT_LISTVIEW;
    EXPECT_FALSE(menu.Measure(&item));
    DRAWITEMSTRUCT draw = {};
    draw.CtlType = ODT_LISTVIEW;
    EXPECT_FALSE(menu.Draw(draw, nullptr));
}

}  // namespace
