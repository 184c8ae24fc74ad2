#include "platform/shell/window_place.h"

#include <gtest/gtest.h>

#include "tests/support/private_registry.h"

namespace {

constexpr RECT kWork{100, 50, 1100, 850};

void ExpectRect(const RECT& found, const RECT& expected) {
    EXPECT_TRUE(EqualRect(&found, &expected))
        << found.left << ',' << found.top << ' ' << found.right - found.left << 'x' << found.bottom - found.top;
}

}  // namespace

TEST(WindowPlaceTest, APlaceSurvivesItsText) {
    const auto plain = ParsePlace(PlaceText({{-20, 30, 500, 760}, false, 144}));
    ASSERT_TRUE(plain);
    ExpectRect(plain->normal, {-20, 30, 500, 760});
    EXPECT_FALSE(plain->maximised);
    EXPECT_EQ(plain->dpi, 144);
    const auto large = ParsePlace(PlaceText({{0, 0, 500, 760}, true, 96}));
    ASSERT_TRUE(large);
    EXPECT_TRUE(large->maximised);
}

TEST(WindowPlaceTest, WhatIsNoPlaceIsNone) {
    for (const wchar_t* garbage :
         {L"", L"1 2 3 4 96", L"1 2 3 4 96 hidden", L"1 2 0 4 96 normal", L"1 2 3 -4 96 normal", L"1 2 3 4 0 normal",
          L"1 2 3 4 96 normal more", L"99999 2 3 4 96 normal", L"1 2 99999 4 96 normal", L"a b c d e f"}) {
        EXPECT_FALSE(ParsePlace(garbage)) << garbage;
    }
}

TEST(WindowPlaceTest, EachArrangementOfDisplaysHasItsPlaceAndANewOneBeginsWithTheLast) {
    const PrivateRegistry registry;
    EXPECT_FALSE(LoadPlace(L"Class", L"one"));
    StorePlace(L"Class", L"one", {{1, 2, 301, 402}, false, 96});
    StorePlace(L"Class", L"two", {{5, 6, 305, 406}, true, 96});
    ExpectRect(LoadPlace(L"Class", L"one")->normal, {1, 2, 301, 402});
    ExpectRect(LoadPlace(L"Class", L"two")->normal, {5, 6, 305, 406});
    ExpectRect(LoadPlace(L"Class", L"three")->normal, {5, 6, 305, 406});
    EXPECT_FALSE(LoadPlace(L"Other", L"one"));
}

TEST(WindowPlaceTest, ADamagedPlaceDoesNotCount) {
    const PrivateRegistry registry;
    StorePlace(L"Class", L"one", {{1, 2, 301, 402}, false, 96});
    const DWORD number = 7;
    RegSetKeyValueW(HKEY_CURRENT_USER, L"Software\\Pocket PC\\Places\\Class", L"one", REG_DWORD, &number, 4);
    ExpectRect(LoadPlace(L"Class", L"one")->normal, {1, 2, 301, 402});
    const std::wstring text(1000, L'9');
    RegSetKeyValueW(HKEY_CURRENT_USER, L"Software\\Pocket PC\\Places\\Class", L"Last", REG_SZ, text.c_str(), 2002);
    EXPECT_FALSE(LoadPlace(L"Class", L"one"));
}

TEST(WindowPlaceTest, APlaceInViewStaysAsItIs) {
    ExpectRect(BroughtInto(kWork, {100, 50, 580, 770}, 8), {100, 50, 580, 770});
    ExpectRect(BroughtInto(kWork, {92, 50, 1108, 858}, 8), {92, 50, 1108, 858});
}

TEST(WindowPlaceTest, APlaceOutOfViewIsMovedByAsLittleAsItTakes) {
    ExpectRect(BroughtInto(kWork, {2000, 60, 2480, 780}, 0), {620, 60, 1100, 780});
    ExpectRect(BroughtInto(kWork, {-2000, -300, -1520, 420}, 0), {100, 50, 580, 770});
    ExpectRect(BroughtInto(kWork, {300, 40, 780, 760}, 8), {300, 50, 780, 770});
}

TEST(WindowPlaceTest, APlaceLargerThanTheDisplayIsCut) {
    ExpectRect(BroughtInto(kWork, {0, 0, 3000, 2000}, 0), kWork);
}

TEST(WindowPlaceTest, AnArrangementNamesEveryDisplay) {
    const HDC screen = GetDC(nullptr);
    const std::wstring size =
        std::to_wstring(GetDeviceCaps(screen, HORZRES)) + L"x" + std::to_wstring(GetDeviceCaps(screen, VERTRES));
    ReleaseDC(nullptr, screen);
    EXPECT_EQ(DisplayArrangement().substr(0, size.size() + 1), size + L"@");
}
