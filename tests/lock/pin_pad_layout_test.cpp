// Where the controls of the PIN pad stand.
#include "lock/pin_pad_layout.h"

#include <gtest/gtest.h>
#include <px.h>

#include <vector>

namespace {

enum Key { k1, k2, k3, k4, k5, k6, k7, k8, k9, k0, kC };

struct Area {
    const char* label;
    int width;
    int height;
};

class PinPadLayoutTest : public testing::TestWithParam<Area> {
protected:
    PinPadPlaces Places() const { return LayOutPinPad({Px(GetParam().width), Px(GetParam().height)}); }
};

int Width(const RECT& rect) {
    return static_cast<int>(rect.right - rect.left);
}

int Height(const RECT& rect) {
    return static_cast<int>(rect.bottom - rect.top);
}

TEST_P(PinPadLayoutTest, StaysInsideAndNothingOverlaps) {
    const PinPadPlaces places = Places();
    std::vector<RECT> all(std::begin(places.keys), std::end(places.keys));
    all.push_back(places.heading);
    all.push_back(places.display);
    const RECT area = {0, 0, Px(GetParam().width), Px(GetParam().height)};
    for (size_t i = 0; i < all.size(); ++i) {
        EXPECT_GT(Width(all[i]), 0) << i;
        EXPECT_GT(Height(all[i]), 0) << i;
        RECT both;
        UnionRect(&both, &all[i], &area);
        EXPECT_TRUE(EqualRect(&both, &area)) << i << " leaves the area";
        for (size_t j = 0; j < i; ++j)
            EXPECT_FALSE(IntersectRect(&both, &all[i], &all[j])) << i << " and " << j << " overlap";
    }
}

TEST_P(PinPadLayoutTest, TheDigitsAreABlockOfThreeByThree) {
    const PinPadPlaces places = Places();
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            const RECT& key = places.keys[row * 3 + column];
            EXPECT_EQ(key.top, places.keys[row * 3].top);
            EXPECT_EQ(key.left, places.keys[column].left);
            EXPECT_EQ(Width(key), Width(places.keys[k1]));
            EXPECT_EQ(Height(key), Height(places.keys[k1]));
        }
    }
    EXPECT_LT(places.keys[k1].right, places.keys[k2].left);
    EXPECT_LT(places.keys[k1].bottom, places.keys[k4].top);
}

TEST_P(PinPadLayoutTest, ZeroLiesUnderEightAndNineAndClearLeftOfIt) {
    const PinPadPlaces places = Places();
    EXPECT_EQ(places.keys[k0].left, places.keys[k8].left);
    EXPECT_EQ(places.keys[k0].right, places.keys[k9].right);
    EXPECT_GT(places.keys[k0].top, places.keys[k8].bottom);
    EXPECT_EQ(places.keys[kC].left, places.keys[k7].left);
    EXPECT_EQ(places.keys[kC].right, places.keys[k7].right);
    EXPECT_EQ(places.keys[kC].top, places.keys[k0].top);
    EXPECT_EQ(places.keys[kC].bottom, places.keys[k0].bottom);
}

TEST_P(PinPadLayoutTest, HeadingAndDisplayStandOverTheKeys) {
    const PinPadPlaces places = Places();
    EXPECT_LT(places.heading.bottom, places.display.top);
    EXPECT_LT(places.display.bottom, places.keys[k1].top);
    EXPECT_EQ(places.display.left, places.keys[k1].left);
    EXPECT_EQ(places.display.right, places.keys[k3].right);
    EXPECT_EQ(places.heading.left, 0);
    EXPECT_EQ(places.heading.right, Px(GetParam().width));
}

TEST_P(PinPadLayoutTest, StandsInTheMiddleBetweenLeftAndRight) {
    const PinPadPlaces places = Places();
    EXPECT_NEAR(places.keys[k1].left, Px(GetParam().width) - places.keys[k3].right, 1);
}

INSTANTIATE_TEST_SUITE_P(Areas, PinPadLayoutTest,
                         testing::Values(Area{"usual", 240, 268}, Area{"large", 480, 588}, Area{"least", 160, 160},
                                         Area{"low", 320, 188}, Area{"wide", 1920, 1000}, Area{"narrow", 160, 600}),
                         [](const auto& area) { return area.param.label; });

TEST(PinPadLayoutSizeTest, KeysOfTheUsualScreenAreWideEnoughForAFinger) {
    const PinPadPlaces places = LayOutPinPad({Px(240), Px(268)});
    EXPECT_GE(Width(places.keys[k1]), Px(64));
    EXPECT_GE(Height(places.keys[k1]), Px(40));
}

TEST(PinPadLayoutSizeTest, KeysStopGrowing) {
    const PinPadPlaces large = LayOutPinPad({Px(1000), Px(900)});
    const PinPadPlaces larger = LayOutPinPad({Px(1900), Px(1800)});
    EXPECT_EQ(Width(large.keys[k1]), Width(larger.keys[k1]));
    EXPECT_EQ(Height(large.keys[k1]), Height(larger.keys[k1]));
}

TEST(PinPadLayoutSizeTest, AnAreaWithoutAnyRoomLeavesKeysOfOnePixel) {
    const PinPadPlaces places = LayOutPinPad({0, 0});
    for (const RECT& key : places.keys) {
        EXPECT_GT(Width(key), 0);
        EXPECT_EQ(Height(key), 1);
    }
}

}  // namespace
