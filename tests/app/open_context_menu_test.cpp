// The context menu as it opens over the main window, and what is picked in it.
#include <aygshell.h>

#include <gmock/gmock.h>

#include "res/ids.h"
#include "tests/app/app_fixture.h"
#include "tests/app/fake_export.h"
#include "tests/support/open_menu.h"
#include "tests/support/pump.h"

namespace {

using testing::ElementsAre;

class OpenContextMenuTest : public AppFixture {
protected:
    void SetUp() override {
        ids_ = Write({L"one", L"two", L"three"});
        ASSERT_TRUE(Start());
        List().SelectEntry(ids_[1]);
    }

    // A point of the client area, in hundredths of its width and height, on the screen.
    POINT At(int x, int y) const {
        RECT client;
        window_->GetClientRect(&client);
        POINT point = {client.right * x / 100, client.bottom * y / 100};
        ClientToScreen(window_->GetHandle(), &point);
        return point;
    }
    void HoldAt(POINT point) {
        NMRGINFO held = {};
        held.hdr = {List().GetHandle(), IDC_ENTRY_LIST, GN_CONTEXTMENU};
        held.ptAction = point;
        window_->SendMessage(WM_NOTIFY, IDC_ENTRY_LIST, reinterpret_cast<LPARAM>(&held));
    }
    // What the list makes of a right click; the stories make one with the mouse.
    void RightClickAt(POINT point) {
        List().SendMessage(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(List().GetHandle()), MAKELPARAM(point.x, point.y));
    }
    // Opens the menu and picks the item; the choice is posted.
    void Pick(int item) {
        std::vector<WORD> keys(static_cast<size_t>(item), VK_DOWN);
        keys.push_back(VK_RETURN);
        WithMenu([&] { HoldAt(At(30, 30)); }, [](HWND) {}, keys);
        PumpOnce();
    }

    std::vector<CEOID> ids_;
};

TEST_F(OpenContextMenuTest, AskedForOnceMoreWhileItIsOpenItStaysTheOne) {
    int opened = 0;
    WithMenu([&] { HoldAt(At(30, 30)); },
             [&](HWND) {
                 ++opened;
                 HoldAt(At(60, 60));
                 HoldAt(At(20, 20));
             });
    EXPECT_EQ(opened, 1);
    EXPECT_TRUE(window_->IsEnabled());
}

struct Opening {
    const char* name;
    POINT at;     // hundredths of the client area
    bool toLeft;  // of the point
    bool above;
};

class MenuQuarterTest : public OpenContextMenuTest, public testing::WithParamInterface<Opening> {
protected:
    void ExpectBeside(POINT point, const RECT& menu) {
        EXPECT_NEAR(GetParam().toLeft ? menu.right : menu.left, point.x, 1);
        EXPECT_NEAR(GetParam().above ? menu.bottom : menu.top, point.y, 1);
    }
};

TEST_P(MenuQuarterTest, AHoldOpensItAwayFromTheCorner) {
    const POINT point = At(GetParam().at.x, GetParam().at.y);
    WithMenu([&] { HoldAt(point); }, [&](HWND menu) { ExpectBeside(point, MenuPlace(menu)); });
}

TEST_P(MenuQuarterTest, ARightClickOpensItAwayFromTheCorner) {
    const POINT point = At(GetParam().at.x, GetParam().at.y);
    WithMenu([&] { RightClickAt(point); }, [&](HWND menu) { ExpectBeside(point, MenuPlace(menu)); });
}

INSTANTIATE_TEST_SUITE_P(Quarters, MenuQuarterTest,
                         testing::Values(Opening{"UpperLeft", {20, 30}, false, false},
                                         Opening{"LowerLeft", {20, 80}, false, true},
                                         Opening{"LowerRight", {80, 80}, true, true},
                                         Opening{"UpperRight", {80, 30}, true, false}),
                         [](const auto& param) { return std::string(param.param.name); });

TEST_F(OpenContextMenuTest, TheFirstItemCopies) {
    Pick(1);
    EXPECT_THAT(Subjects(), testing::UnorderedElementsAre(L"one", L"two", L"two", L"three"));
}

TEST_F(OpenContextMenuTest, TheSecondItemDeletes) {
    boxes_.Expect(L"Confirm", L"Delete record?", IDYES);
    Pick(2);
    EXPECT_THAT(Subjects(), ElementsAre(L"one", L"three"));
}

TEST_F(OpenContextMenuTest, TheThirdItemExports) {
    FakeExport::opened.clear();
    Pick(3);
    ASSERT_EQ(FakeExport::opened.size(), 1u);
    EXPECT_THAT(FakeExport::opened[0].selected, ElementsAre(ids_[1]));
}

TEST_F(OpenContextMenuTest, ClosedWithoutAChoiceItChangesNothing) {
    WithMenu([&] { HoldAt(At(30, 30)); }, [](HWND) {}, {VK_DOWN, VK_ESCAPE});
    PumpOnce();
    EXPECT_THAT(Subjects(), ElementsAre(L"one", L"two", L"three"));
    EXPECT_EQ(selection_.Current(), ids_[1]);
}

TEST_F(OpenContextMenuTest, MenusOfOthersAreNotMeasuredOrDrawn) {
    MEASUREITEMSTRUCT measure = {};
    measure.CtlType = ODT_MENU;
    EXPECT_FALSE(window_->SendMessage(WM_MEASUREITEM, 0, reinterpret_cast<LPARAM>(&measure)));
    DRAWITEMSTRUCT draw = {};
    draw.CtlType = ODT_MENU;
    EXPECT_FALSE(window_->SendMessage(WM_DRAWITEM, 0, reinterpret_cast<LPARAM>(&draw)));
}

}  // namespace
