// Pictures of a program, enlarged for a screen.
#include "pictures.h"

#include <gtest/gtest.h>
#include <win.h>

#include <set>

#include "tests/shell/shell_test_ids.h"

namespace {

constexpr int kOwnSide = 16;  // of the strip in the resources
constexpr int kGlass = 0;     // round, with a slanted handle
constexpr int kFunnel = 8;    // its neck has upright sides

class PicturesTest : public testing::TestWithParam<int> {
protected:
    void SetUp() override {
        strip_ = LoadPictureStrip(GetModuleHandleW(nullptr), IDB_STRIP, GetParam());
        ASSERT_NE(strip_, nullptr);
        ASSERT_NE(GetObjectW(strip_, sizeof section_, &section_), 0);
    }
    void TearDown() override { DeleteObject(strip_); }

    DWORD At(int picture, int x, int y) const {
        const auto* pixels = static_cast<const DWORD*>(section_.dsBm.bmBits);
        return pixels[static_cast<size_t>(y) * section_.dsBm.bmWidth + picture * GetParam() + x];
    }
    BYTE AlphaAt(int picture, int x, int y) const { return static_cast<BYTE>(At(picture, x, y) >> 24); }

    HBITMAP strip_ = nullptr;
    DIBSECTION section_ = {};
};

TEST_P(PicturesTest, EachPictureHasTheSideAskedFor) {
    EXPECT_EQ(section_.dsBm.bmHeight, GetParam());
    EXPECT_EQ(section_.dsBm.bmWidth, 9 * GetParam());
    EXPECT_EQ(section_.dsBm.bmBitsPixel, 32);
    EXPECT_EQ(AlphaAt(kGlass, 0, 0), 0) << "the first pixel's colour is transparent";
}

TEST_P(PicturesTest, NoColourIsStrongerThanItsAlpha) {
    for (int y = 0; y < GetParam(); ++y)
        for (int x = 0; x < 9 * GetParam(); ++x) {
            const DWORD pixel = At(0, x, y);
            for (int part = 0; part < 24; part += 8)
                ASSERT_LE(pixel >> part & 0xFF, pixel >> 24) << x << ", " << y;
        }
}

// Blown up pixel by pixel, an edge would go through whole pixels of the drawing only.
TEST_P(PicturesTest, EnlargedRoundAndSlantedEdgesAreSoft) {
    std::set<BYTE> alphas;
    for (int y = 0; y < GetParam(); ++y)
        for (int x = 0; x < GetParam(); ++x)
            alphas.insert(AlphaAt(kGlass, x, y));
    if (GetParam() == kOwnSide) {
        EXPECT_EQ(alphas, (std::set<BYTE>{0, 255}));
    } else {
        EXPECT_GT(alphas.size(), 3u);
    }
}

TEST_P(PicturesTest, AtWholeFactorsUprightEdgesStaySharp) {
    if (GetParam() % kOwnSide != 0) return;
    const int factor = GetParam() / kOwnSide;
    const int y = 10 * factor;  // the neck, from column 6 to 9
    EXPECT_EQ(AlphaAt(kFunnel, 6 * factor - 1, y), 0);
    EXPECT_EQ(AlphaAt(kFunnel, 6 * factor, y), 255);
    EXPECT_EQ(AlphaAt(kFunnel, 10 * factor - 1, y), 255);
    EXPECT_EQ(AlphaAt(kFunnel, 10 * factor, y), 0);
}

INSTANTIATE_TEST_SUITE_P(Sides, PicturesTest, testing::Values(16, 20, 24, 32, 48, 64));

TEST(NoPicturesTest, WithoutABitmapThereIsNoStripAndNothingIsDrawn) {
    EXPECT_EQ(LoadPictureStrip(GetModuleHandleW(nullptr), 9999, 16), nullptr);
    const HDC screen = GetDC(nullptr);
    DrawPicture(screen, nullptr, 0, {0, 0}, 255);
    ReleaseDC(nullptr, screen);
}

}  // namespace
