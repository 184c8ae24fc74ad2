// The bar's buttons as they are drawn, and their menus as they open.
#include <px.h>

#include "list/button_bar.h"
#include "res/ids.h"
#include "tests/list/journal_fixture.h"
#include "tests/list/list_host.h"
#include "tests/support/open_menu.h"
#include "ui/gdi_scope.h"
#include "ui/unique_handle.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class BarOnScreenTest : public JournalFixture {
protected:
    void SetUp() override {
        host_.onNotify = [this](NMHDR* header) { return bar_.OnNotify(header); };
        ASSERT_TRUE(bar_.CreateIn(host_.Handle(), host_.Client().right));
        bar_.SetShowText();
        bar_.SetSortText();
        bar_.Show();
    }

    RECT Button(int id) const {
        RECT button = {};
        EXPECT_TRUE(bar_.GetButtonRect(id, &button));
        return button;
    }
    RECT OnScreen(int id) const {
        RECT button = Button(id);
        MapWindowPoints(bar_.GetHandle(), nullptr, reinterpret_cast<POINT*>(&button), 2);
        return button;
    }
    void Press(int id) {
        const RECT button = Button(id);
        bar_.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON,
                         MAKELPARAM((button.left + button.right) / 2, (button.top + button.bottom) / 2));
    }
    bool IsPressed(int id) const { return (bar_.GetButtonState(id) & TBSTATE_PRESSED) != 0; }

    ListHost host_;
    ButtonBar bar_{journal_, filter_};
};

// ---- Menus ----

TEST_F(BarOnScreenTest, ShowOpensUnderTheLeftEdgeOfItsButton) {
    WithMenu([this] { Press(IDM_SHOW); },
             [this](HWND menu) {
                 EXPECT_EQ(MenuPlace(menu).left, OnScreen(IDM_SHOW).left);
                 EXPECT_EQ(MenuPlace(menu).top, OnScreen(IDM_SHOW).bottom);
             });
}

TEST_F(BarOnScreenTest, SortOpensUnderTheRightEdgeOfItsButton) {
    WithMenu([this] { Press(IDM_SORT); },
             [this](HWND menu) {
                 EXPECT_EQ(MenuPlace(menu).right, OnScreen(IDM_SORT).right);
                 EXPECT_EQ(MenuPlace(menu).top, OnScreen(IDM_SORT).bottom);
             });
}

TEST_F(BarOnScreenTest, AButtonSaysWhatItIsForWhileItsMenuIsOpen) {
    WithMenu([this] { Press(IDM_SHOW); },
             [this](HWND) {
                 EXPECT_EQ(bar_.GetButtonText(IDM_SHOW), L"Show");
                 EXPECT_EQ(bar_.GetButtonText(IDM_SORT), L"Start");
                 EXPECT_TRUE(IsPressed(IDM_SHOW));
             });
    EXPECT_EQ(bar_.GetButtonText(IDM_SHOW), L"All");
    EXPECT_FALSE(IsPressed(IDM_SHOW));
    WithMenu([this] { Press(IDM_SORT); },
             [this](HWND) {
                 EXPECT_EQ(bar_.GetButtonText(IDM_SHOW), L"All");
                 EXPECT_EQ(bar_.GetButtonText(IDM_SORT), L"Sort");
                 EXPECT_TRUE(IsPressed(IDM_SORT));
             });
    EXPECT_EQ(bar_.GetButtonText(IDM_SORT), L"Start");
    EXPECT_FALSE(IsPressed(IDM_SORT));
    EXPECT_THAT(host_.commands, IsEmpty());
}

TEST_F(BarOnScreenTest, WhatIsPickedInAnOpenMenuIsTold) {
    WithMenu([this] { Press(IDM_SHOW); }, [](HWND) {}, {VK_DOWN, VK_RETURN});
    EXPECT_THAT(host_.commands, ElementsAre(ListHost::Command{115, 0}));
    host_.commands.clear();
    WithMenu([this] { Press(IDM_SORT); }, [](HWND) {}, {VK_DOWN, VK_RETURN});
    EXPECT_THAT(host_.commands, ElementsAre(ListHost::Command{102, 0x467}));
    host_.commands.clear();
    WithMenu([this] { Press(IDM_SORT); }, [](HWND) {}, {VK_UP, VK_RETURN});
    EXPECT_THAT(host_.commands, ElementsAre(ListHost::Command{1, 0x469}));
}

// ---- Drawing ----

class BarDrawingTest : public BarOnScreenTest {
protected:
    static constexpr COLORREF kEdge = RGB(0x8F, 0xAF, 0xD6);
    static constexpr COLORREF kText = RGB(0x1E, 0x24, 0x2C);

    void SetUp() override {
        BarOnScreenTest::SetUp();
        const WindowDc screen(nullptr);
        dc_.reset(CreateCompatibleDC(screen.Dc()));
        picture_.reset(CreateCompatibleBitmap(screen.Dc(), host_.Client().right, Px(ButtonBar::kHeight)));
        SelectObject(dc_.get(), picture_.get());
    }
    void TearDown() override { dc_.reset(); }

    void Draw() { bar_.SendMessage(WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc_.get()), PRF_CLIENT); }
    int WidthOf(const wchar_t* text) const {
        const SelectedObject font(dc_.get(), bar_.GetFont());
        SIZE size = {};
        GetTextExtentPoint32W(dc_.get(), text, lstrlenW(text), &size);
        return size.cx;
    }
    // The first and the last column with something dark in it between two columns; -1 when there is none.
    std::pair<int, int> Ink(int from, int to) const {
        std::pair<int, int> ink = {-1, -1};
        for (int x = from; x < to; ++x)
            for (int y = 0; y < Px(ButtonBar::kHeight) - 1; ++y) {
                if (GetRValue(GetPixel(dc_.get(), x, y)) > 0x60) continue;
                if (ink.first < 0) ink.first = x;
                ink.second = x;
            }
        return ink;
    }
    // The first and the last column that a text put at a column makes dark. Its width does not tell: where the font has
    // drawings of its own for small letters, they are drawn by other widths than measured. Draws over the bar's
    // picture.
    std::pair<int, int> InkOf(const wchar_t* text, int at) {
        const RECT all = {0, 0, host_.Client().right, Px(ButtonBar::kHeight)};
        FillRect(dc_.get(), &all, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
        const SelectedObject font(dc_.get(), bar_.GetFont());
        SetBkMode(dc_.get(), TRANSPARENT);
        SetTextColor(dc_.get(), kText);
        TextOutW(dc_.get(), at, 0, text, lstrlenW(text));
        return Ink(0, all.right);
    }

    UniqueMemoryDc dc_;
    UniqueBitmap picture_;
};

TEST_F(BarDrawingTest, TheArrowFollowsTheTextOfShow) {
    for (const wchar_t* text : {L"All", L"Multiple..."}) {
        bar_.SetButtonText(IDM_SHOW, text);
        Draw();
        const RECT button = Button(IDM_SHOW);
        const int arrow = button.left + Px(6) + WidthOf(text) + Px(20) - Px(13);
        const auto drawn = Ink(arrow, button.right);
        EXPECT_GE(drawn.first, arrow);
        EXPECT_LT(drawn.second, arrow + Px(12)) << "nothing behind the arrow";
        const auto letters = Ink(button.left, arrow);
        const auto expected = InkOf(text, button.left + Px(6));
        EXPECT_NEAR(letters.first, expected.first, 1);
        EXPECT_NEAR(letters.second, expected.second, 1);
    }
}

TEST_F(BarDrawingTest, TheTextOfSortEndsBeforeTheArrowAtTheRightEdge) {
    for (const wchar_t* text : {L"Start", L"Sensitivity"}) {
        bar_.SetButtonText(IDM_SORT, text);
        Draw();
        const int right = host_.Client().right;
        const auto arrow = Ink(right - Px(12), right);
        EXPECT_GE(arrow.first, right - Px(12));
        const auto letters = Ink(Button(IDM_SHOW).right, right - Px(14));
        const auto expected = InkOf(text, right - Px(20) - WidthOf(text));
        EXPECT_NEAR(letters.first, expected.first, 1);
        EXPECT_NEAR(letters.second, expected.second, 1);
    }
}

TEST_F(BarDrawingTest, APressedButtonHasAFlatEdge) {
    Draw();
    const RECT show = Button(IDM_SHOW);
    const RECT sort = Button(IDM_SORT);
    EXPECT_NE(GetPixel(dc_.get(), show.left, show.top), kEdge);
    bar_.PressButton(IDM_SHOW, true);
    Draw();
    EXPECT_EQ(GetPixel(dc_.get(), show.left, show.top), kEdge);
    EXPECT_EQ(GetPixel(dc_.get(), show.right - 1, show.bottom - 1), kEdge);
    EXPECT_NE(GetPixel(dc_.get(), sort.left, sort.top), kEdge);
}

TEST_F(BarDrawingTest, AnAmpersandIsDrawn) {
    bar_.SetButtonText(IDM_SHOW, L"R&D");
    EXPECT_EQ(bar_.GetButtonText(IDM_SHOW), L"R&D");
    Draw();
    const RECT button = Button(IDM_SHOW);
    // Taken for a mark of its key, it would take no room.
    const int letters = button.left + Px(6);
    EXPECT_GT(Ink(button.left, letters + WidthOf(L"R&D") + Px(4)).second, letters + WidthOf(L"RD") + Px(1));
}

}  // namespace
