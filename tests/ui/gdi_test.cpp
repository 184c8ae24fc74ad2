// Owners of handles, drawing scopes and fonts.
#include <gtest/gtest.h>
#include <px.h>

#include "tests/ui/test_windows.h"
#include "ui/fonts.h"
#include "ui/gdi_scope.h"
#include "ui/unique_handle.h"

namespace {

bool IsAlive(HGDIOBJ object) {
    return GetObjectType(object) != 0;
}

}  // namespace

TEST(UniqueHandleTest, GivesTheHandleBackAtItsEnd) {
    const HBRUSH brush = CreateSolidBrush(RGB(1, 2, 3));
    {
        const UniqueBrush owner(brush);
        EXPECT_TRUE(owner);
        EXPECT_EQ(owner.get(), brush);
    }
    EXPECT_FALSE(IsAlive(brush));
}

TEST(UniqueHandleTest, MovesTheHandleOn) {
    const HBRUSH brush = CreateSolidBrush(RGB(1, 2, 3));
    UniqueBrush first(brush);
    UniqueBrush second(std::move(first));
    EXPECT_FALSE(first);
    UniqueBrush third;
    third = std::move(second);
    EXPECT_EQ(third.get(), brush);
    EXPECT_TRUE(IsAlive(brush));
    third = UniqueBrush();
    EXPECT_FALSE(IsAlive(brush));
}

TEST(UniqueHandleTest, ReleaseLeavesTheHandleToTheCaller) {
    UniqueMenu owner(CreatePopupMenu());
    const HMENU menu = owner.release();
    EXPECT_FALSE(owner);
    EXPECT_TRUE(IsMenu(menu));
    EXPECT_TRUE(DestroyMenu(menu));
}

TEST(UniqueHandleTest, ResetToTheSameHandleKeepsIt) {
    UniqueMenu owner(CreatePopupMenu());
    owner.reset(owner.get());
    EXPECT_TRUE(IsMenu(owner.get()));
}

TEST(GdiScopeTest, ASelectionIsTakenBack) {
    const UniqueMemoryDc dc(CreateCompatibleDC(nullptr));
    const HGDIOBJ before = GetCurrentObject(dc.get(), OBJ_FONT);
    const UniqueFont font = MakeFont(L"Tahoma", -12, FW_BOLD);
    {
        const SelectedObject selected(dc.get(), font.get());
        EXPECT_EQ(GetCurrentObject(dc.get(), OBJ_FONT), font.get());
    }
    EXPECT_EQ(GetCurrentObject(dc.get(), OBJ_FONT), before);
}

TEST(GdiScopeTest, PaintingAnswersWhatIsInvalid) {
    RecordingWindow window;
    ShowWindow(window.Handle(), SW_SHOWNA);
    UpdateWindow(window.Handle());
    const RECT part = {1, 2, 30, 40};
    InvalidateRect(window.Handle(), &part, FALSE);
    {
        const PaintScope paint(window.Handle());
        EXPECT_NE(paint.Dc(), nullptr);
        EXPECT_TRUE(EqualRect(&paint.Area(), &part));
    }
    EXPECT_FALSE(GetUpdateRect(window.Handle(), nullptr, FALSE));
}

TEST(GdiScopeTest, AWindowIsMeasuredThroughItsDeviceContext) {
    RecordingWindow window;
    const WindowDc dc(window.Handle());
    EXPECT_EQ(WindowFromDC(dc.Dc()), window.Handle());
}

TEST(FontTest, HasTheFaceHeightAndWeightAskedFor) {
    const UniqueFont font = MakeFont(L"Tahoma", -12, FW_BOLD);
    LOGFONTW made = {};
    ASSERT_NE(GetObjectW(font.get(), sizeof(made), &made), 0);
    EXPECT_STREQ(made.lfFaceName, L"Tahoma");
    EXPECT_EQ(made.lfHeight, -Px(12));
    EXPECT_EQ(made.lfWeight, FW_BOLD);
}

TEST(FontTest, ControlsShareOneFont) {
    EXPECT_NE(ControlFont(), nullptr);
    EXPECT_EQ(ControlFont(), ControlFont());
}

TEST(FontTest, ALineThatMayNotBeCutIsWrittenNarrower) {
    const WindowDc screen(nullptr);
    const UniqueFont font = MakeFont(L"Tahoma", -24, FW_NORMAL);
    const std::wstring line = L"A line of some length";
    const auto width = [&](HFONT in) {
        const SelectedObject selected(screen.Dc(), in);
        SIZE size = {};
        GetTextExtentPoint32W(screen.Dc(), line.c_str(), static_cast<int>(line.size()), &size);
        return static_cast<int>(size.cx);
    };
    const int whole = width(font.get());
    EXPECT_FALSE(MakeNarrowFont(screen.Dc(), font.get(), line, whole));
    EXPECT_FALSE(MakeNarrowFont(screen.Dc(), font.get(), line, 0));
    const UniqueFont narrow = MakeNarrowFont(screen.Dc(), font.get(), line, whole * 3 / 4);
    ASSERT_TRUE(narrow);
    EXPECT_LE(width(narrow.get()), whole * 3 / 4);
    LOGFONTW made = {};
    GetObjectW(narrow.get(), sizeof made, &made);
    EXPECT_EQ(made.lfHeight, -Px(24));
    const UniqueFont narrowest = MakeNarrowFont(screen.Dc(), font.get(), line, 1);
    ASSERT_TRUE(narrowest);
    EXPECT_GT(width(narrowest.get()), whole / 3) << "it is to be read";
}
