#include "platform/shell/panel_keys.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "px.h"

namespace {

constexpr SIZE kSizes[] = {{240, 80}, {480, 160}, {241, 83}, {160, 40}, {1000, 160}};
constexpr PanelPage kPages[] = {PanelPage::kPlain, PanelPage::kAccents};

std::set<wchar_t> Characters(PanelPage page, bool shifted) {
    std::set<wchar_t> characters;
    for (const PanelKey& key : PlacePanelKeys({240, 80}, page)) {
        if (key.plain) characters.insert(shifted ? key.shifted : key.plain);
    }
    return characters;
}

}  // namespace

TEST(PanelKeysTest, FillThePanelWithoutGapOrOverlap) {
    for (const PanelPage page : kPages) {
        for (const SIZE size : kSizes) {
            const auto keys = PlacePanelKeys(size, page);
            for (int y = 0; y < size.cy; ++y) {
                for (int x = 0; x < size.cx; ++x) {
                    int hits = 0;
                    for (const PanelKey& key : keys)
                        hits += PtInRect(&key.place, {x, y}) != FALSE;
                    ASSERT_EQ(hits, 1) << x << "," << y << " of " << size.cx << "x" << size.cy;
                }
            }
        }
    }
}

TEST(PanelKeysTest, NoneIsHitOutsideThePanel) {
    const auto keys = PlacePanelKeys({240, 80}, PanelPage::kPlain);
    for (const POINT outside : {POINT{-1, 5}, POINT{5, -1}, POINT{240, 5}, POINT{5, 80}})
        EXPECT_EQ(PanelKeyAt(keys, outside), -1);
    EXPECT_EQ(PanelKeyAt(keys, {0, 0}), 0);
    EXPECT_EQ(PanelKeyAt(keys, {239, 79}), static_cast<int>(keys.size()) - 1);
}

TEST(PanelKeysTest, TheLettersAreThereSmallAndCapital) {
    for (wchar_t letter = L'a'; letter <= L'z'; ++letter) {
        EXPECT_TRUE(Characters(PanelPage::kPlain, false).contains(letter)) << char(letter);
        EXPECT_TRUE(Characters(PanelPage::kPlain, true).contains(letter - L'a' + L'A')) << char(letter);
    }
    EXPECT_TRUE(Characters(PanelPage::kAccents, false).contains(L'\u00FC'));
    EXPECT_TRUE(Characters(PanelPage::kAccents, true).contains(L'\u00DC'));
    EXPECT_TRUE(Characters(PanelPage::kAccents, true).contains(L'\u00DF')) << "has no capital of one letter";
}

TEST(PanelKeysTest, EveryCharacterOfAnAsciiKeyboardIsSomewhere) {
    std::set<wchar_t> all;
    for (const PanelPage page : kPages) {
        for (const bool shifted : {false, true})
            all.merge(Characters(page, shifted));
    }
    for (wchar_t character = L' '; character < 0x7F; ++character)
        EXPECT_TRUE(all.contains(character) || character == L'`') << char(character);
}

TEST(PanelKeysTest, BothPagesHaveTheOtherKeysInTheSamePlaces) {
    const auto plain = PlacePanelKeys({240, 80}, PanelPage::kPlain);
    const auto accents = PlacePanelKeys({240, 80}, PanelPage::kAccents);
    ASSERT_EQ(plain.size(), accents.size());
    std::set<PanelKeyKind> kinds;
    for (size_t i = 0; i < plain.size(); ++i) {
        EXPECT_EQ(plain[i].kind, accents[i].kind);
        EXPECT_TRUE(EqualRect(&plain[i].place, &accents[i].place));
        kinds.insert(plain[i].kind);
    }
    EXPECT_EQ(kinds.size(), 8u);
}

TEST(PanelKeysTest, ThePanelGrowsWithTheScreenAndLeavesHalfOfIt) {
    EXPECT_EQ(InputPanelHeight(Px(240), Px(268)), Px(80));
    EXPECT_EQ(InputPanelHeight(Px(480), Px(588)), Px(160));
    EXPECT_EQ(InputPanelHeight(Px(1900), Px(900)), Px(160));
    EXPECT_EQ(InputPanelHeight(Px(240), Px(100)), Px(100) / 2);
    EXPECT_EQ(InputPanelHeight(Px(240), 0), 0);
    EXPECT_EQ(InputPanelHeight(Px(240), -5), 0);
}
