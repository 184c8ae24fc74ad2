#include "ui/dialog_template.h"

#include <gtest/gtest.h>
#include <px.h>

#include <cstring>

#include "tests/ui/ids.h"
#include "tests/ui/test_windows.h"

namespace {

// A template's bytes, word by word.
std::vector<BYTE> Words(std::initializer_list<WORD> words) {
    std::vector<BYTE> bytes(words.size() * sizeof(WORD));
    std::memcpy(bytes.data(), words.begin(), bytes.size());
    return bytes;
}

constexpr WORD kWithFont = DS_SETFONT;

}  // namespace

TEST(DialogTemplateTest, AMissingTemplateIsNull) {
    EXPECT_EQ(DialogTemplate(TestInstance(), IDD_MISSING).Get(), nullptr);
    EXPECT_NE(DialogTemplate(TestInstance(), IDD_SMALL).Get(), nullptr);
}

TEST(DialogTemplateTest, FindsTheFontOfAPlainTemplate) {
    // style, extended style, items, x, y, cx, cy, no menu, no class, title "Ab", 8 points
    const auto bytes = Words({kWithFont, 0, 0, 0, 0, 0, 0, 9, 9, 0, 0, 'A', 'b', 0, 8, 'T', 0});
    EXPECT_EQ(FontSizeOffset(bytes), 14 * sizeof(WORD));
}

TEST(DialogTemplateTest, FindsTheFontOfAnExtendedTemplate) {
    // version, mark, help id, extended style, style, items, place, menu 7, class "D", no title, 8 points
    const auto bytes =
        Words({1, 0xFFFF, 0, 0, 0, 0, kWithFont, 0, 0, 0, 0, 9, 9, 0xFFFF, 7, 'D', 0, 0, 8, 400, 1, 'T', 0});
    EXPECT_EQ(FontSizeOffset(bytes), 18 * sizeof(WORD));
}

TEST(DialogTemplateTest, ATemplateWithoutAFontHasNoPlaceForIt) {
    EXPECT_EQ(FontSizeOffset(Words({0, 0, 0, 0, 0, 0, 0, 9, 9, 0, 0, 0})), 0u);
}

TEST(DialogTemplateTest, ATemplateCutAnywhereHasNoPlaceForAFont) {
    const auto whole = Words({kWithFont, 0, 0, 0, 0, 0, 0, 9, 9, 0, 0, 'A', 'b', 0, 8});
    for (size_t length = 0; length < whole.size(); ++length) {
        EXPECT_EQ(FontSizeOffset({whole.begin(), whole.begin() + static_cast<ptrdiff_t>(length)}), 0u) << length;
    }
}

TEST(DialogTemplateTest, ADialogIsScaledLikeEverythingElse) {
    const DialogTemplate dialogTemplate(TestInstance(), IDD_SMALL);
    const HWND dialog = CreateDialogIndirectParamW(
        TestInstance(), dialogTemplate.Get(), nullptr, [](HWND, UINT, WPARAM, LPARAM) -> INT_PTR { return FALSE; }, 0);
    ASSERT_NE(dialog, nullptr);
    LOGFONTW font = {};
    GetObjectW(reinterpret_cast<HFONT>(SendMessageW(dialog, WM_GETFONT, 0, 0)), sizeof(font), &font);
    constexpr int kPoints = 8;  // as the template says; 72 to the inch
    EXPECT_EQ(font.lfHeight, -MulDiv(kPoints, Px(96), 72));
    DestroyWindow(dialog);
}
