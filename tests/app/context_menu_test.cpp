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
