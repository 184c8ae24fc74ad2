// Where the lines of the detail view's header stand, without a window.
#include "list/detail_layout.h"

#include <gtest/gtest.h>

namespace {

using Shown = std::array<bool, kDetailOptions>;

int Same(int pixels) {
    return pixels;
}
int Double(int pixels) {
    return 2 * pixels;
}

bool Is(const RECT& place, int x, int y, int width, int height = 16) {
    return place.left == x && place.top == y && place.right - place.left == width && place.bottom - place.top == height;
}
bool IsNowhere(const DetailLine& line) {
    return IsRectEmpty(&line.label) && IsRectEmpty(&line.value);
}

struct OptionCase {
    const char* label;
    Shown shown;
    int height;
    std::array<int, kDetailOptions> y;  // 0: not shown
};

class DetailOptionsTest : public testing::TestWithParam<OptionCase> {};

TEST_P(DetailOptionsTest, StandOnTheNextFreeLine) {
    const DetailLayout layout = LayOutDetail(240, GetParam().shown, Same);
    EXPECT_EQ(layout.height, GetParam().height);
    for (size_t option = 0; option < kDetailOptions; ++option) {
        const DetailLine& line = layout.options[option];
        const int y = GetParam().y[option];
        if (y == 0) {
            EXPECT_TRUE(IsNowhere(line)) << option;
        } else {
            EXPECT_TRUE(Is(line.label, 2, y + 1, 60)) << option;
            EXPECT_TRUE(Is(line.value, 62, y, 240 - 7 - 62)) << option;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(All, DetailOptionsTest,
                         testing::Values(OptionCase{"None", {}, 57, {}},
                                         OptionCase{"Company", {true, false, false}, 76, {53, 0, 0}},
                                         OptionCase{"Contacts", {false, true, false}, 76, {0, 53, 0}},
                                         OptionCase{"Categories", {false, false, true}, 76, {0, 0, 53}},
                                         OptionCase{"CompanyAndContacts", {true, true, false}, 95, {53, 70, 0}},
                                         OptionCase{"CompanyAndCategories", {true, false, true}, 95, {53, 0, 70}},
                                         OptionCase{"ContactsAndCategories", {false, true, true}, 95, {0, 53, 70}},
                                         OptionCase{"AllThree", {true, true, true}, 114, {53, 70, 87}}),
                         [](const auto& row) { return row.param.label; });

TEST(DetailLayoutTest, PlacesTheLinesThatAreAlwaysThere) {
    const DetailLayout layout = LayOutDetail(240, {}, Same);
    EXPECT_TRUE(Is(layout.date, 2, 2, 209));
    EXPECT_TRUE(Is(layout.priority, 212, 2, 12));
    EXPECT_TRUE(Is(layout.sensitivity, 225, 2, 12));
    EXPECT_TRUE(Is(layout.subject, 2, 19, 233));
    EXPECT_EQ(layout.subjectRoom, 231);
    EXPECT_TRUE(Is(layout.type, 2, 36, 115));
    EXPECT_TRUE(Is(layout.duration, 119, 36, 115));
}

TEST(DetailLayoutTest, AnEvenLineIsHalvedDownwards) {
    EXPECT_TRUE(Is(LayOutDetail(241, {}, Same).type, 2, 36, 116));
    EXPECT_TRUE(Is(LayOutDetail(242, {}, Same).type, 2, 36, 116));
}

TEST(DetailLayoutTest, GrowsWithTheScreen) {
    const DetailLayout layout = LayOutDetail(480, {true, true, true}, Double);
    EXPECT_EQ(layout.height, 228);
    EXPECT_TRUE(Is(layout.sensitivity, 450, 4, 24, 32));
    EXPECT_TRUE(Is(layout.options[kDetailCategories].label, 4, 176, 120, 32));
    EXPECT_TRUE(Is(layout.options[kDetailCategories].value, 124, 174, 342, 32));
}

TEST(DetailLayoutTest, NoLineOfANarrowHeaderHasANegativeWidth) {
    for (const int width : {0, 5, 20, 40}) {
        const DetailLayout layout = LayOutDetail(width, {true, true, true}, Same);
        for (const RECT& place :
             {layout.date, layout.subject, layout.type, layout.duration, layout.options[kDetailCompany].value})
            EXPECT_GE(place.right, place.left) << width;
        EXPECT_GE(layout.subjectRoom, 0);
    }
}

// ---- The subject ----

// A font whose characters are all ten pixels wide.
int TenEach(const wchar_t*, int count, int width) {
    return std::min(count, width / 10);
}

struct SubjectCase {
    const char* label;
    const wchar_t* subject;
    int width;
    const wchar_t* shown;
};

class FitSubjectTest : public testing::TestWithParam<SubjectCase> {};

TEST_P(FitSubjectTest, CutsSixCharactersBeforeTheLastThatFits) {
    EXPECT_EQ(FitSubject(GetParam().subject, GetParam().width, TenEach), GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(All, FitSubjectTest,
                         testing::Values(SubjectCase{"Empty", L"", 100, L""},
                                         SubjectCase{"Shorter", L"abc", 100, L"abc"},
                                         SubjectCase{"JustFits", L"abcdefghij", 100, L"abcdefghij"},
                                         SubjectCase{"OneTooMany", L"abcdefghijk", 100, L"abcd..."},
                                         SubjectCase{"SevenFit", L"abcdefghijk", 70, L"a..."},
                                         SubjectCase{"SixFit", L"abcdefghijk", 60, L"..."},
                                         SubjectCase{"OneFits", L"abcdefghijk", 10, L"..."},
                                         SubjectCase{"NoneFits", L"abcdefghijk", 0, L"..."},
                                         // U+1F6B6 takes places 3 and 4: the cut at 4 would halve it.
                                         SubjectCase{"PairAtTheCut",
                                                     L"abc\xD83D\xDEB6"
                                                     L"fghijk",
                                                     100, L"abc..."},
                                         SubjectCase{"PairBeforeTheCut",
                                                     L"ab\xD83D\xDEB6"
                                                     L"efghijk",
                                                     100, L"ab\xD83D\xDEB6..."},
                                         SubjectCase{"LoneHalf",
                                                     L"abc\xD83D"
                                                     L"efghijk",
                                                     100, L"abc\xD83D..."}),
                         [](const auto& row) { return row.param.label; });

TEST(FitSubjectTest, MeasuresNoMoreThan240Characters) {
    int measured = 0;
    const std::wstring shown = FitSubject(std::wstring(5000, L'x'), 1'000'000, [&](const wchar_t*, int count, int) {
        measured = count;
        return count;
    });
    EXPECT_EQ(measured, 240);
    EXPECT_EQ(shown, std::wstring(234, L'x') + L"...");
}

}  // namespace
