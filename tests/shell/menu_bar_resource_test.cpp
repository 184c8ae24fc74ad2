#include "platform/shell/menu_bar_resource.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

// Two buttons, the second a drop-down.
const std::vector<uint16_t> kSound{102, 2, 3, 121, 4, 0, 0, 0, 0xFFFF, 0xFFFE, 40011, 0x14, 0x18, 3, 0, 1};

std::optional<MenuBarResource> Read(const std::vector<uint16_t>& words) {
    return ReadMenuBarResource(words.data(), words.size() * sizeof(uint16_t));
}

}  // namespace

TEST(MenuBarResourceTest, ReadsEveryWordOfAButton) {
    const auto resource = Read(kSound);
    ASSERT_TRUE(resource);
    EXPECT_EQ(resource->menu, 102);
    ASSERT_EQ(resource->buttons.size(), 2u);
    const MenuBarButton& picture = resource->buttons[0];
    EXPECT_EQ(picture.image, 3);
    EXPECT_EQ(picture.command, 121);
    EXPECT_EQ(picture.popup, MenuBarResource::kNoPopup);
    const MenuBarButton& dropDown = resource->buttons[1];
    EXPECT_EQ(dropDown.image, MenuBarResource::kNoImage);
    EXPECT_EQ(dropDown.command, 40011);
    EXPECT_EQ(dropDown.state, 0x14);
    EXPECT_EQ(dropDown.style, 0x18);
    EXPECT_EQ(dropDown.text, 3);
    EXPECT_EQ(dropDown.popup, 1);
}

TEST(MenuBarResourceTest, RefusesDataCutAtAnyLength) {
    for (size_t bytes = 0; bytes < kSound.size() * sizeof(uint16_t); ++bytes) {
        EXPECT_FALSE(ReadMenuBarResource(kSound.data(), bytes)) << bytes;
    }
}

TEST(MenuBarResourceTest, IgnoresWhatFollowsTheLastButton) {
    std::vector<uint16_t> longer = kSound;
    longer.insert(longer.end(), {1, 2, 3});
    ASSERT_TRUE(Read(longer));
    EXPECT_EQ(Read(longer)->buttons.size(), 2u);
}

TEST(MenuBarResourceTest, RefusesACountBeyondTheData) {
    EXPECT_FALSE(Read({0xFFFF, 0xFFFF, 1, 2, 3}));
    EXPECT_FALSE(ReadMenuBarResource(nullptr, 100));
}

TEST(MenuBarResourceTest, ReadsAResourceWithoutButtons) {
    ASSERT_TRUE(Read({7, 0}));
    EXPECT_TRUE(Read({7, 0})->buttons.empty());
}
