#include "platform/richink/metafile_guard.h"

#include <gtest/gtest.h>
#include <win.h>

#include <cstring>
#include <string>
#include <vector>

namespace {

constexpr SIZE kArea{100, 100};

using Numbers = std::vector<int32_t>;

std::string Record(int32_t type, const Numbers& numbers) {
    std::string record(8 + 4 * numbers.size(), '\0');
    const auto size = static_cast<int32_t>(record.size());
    std::memcpy(record.data(), &type, 4);
    std::memcpy(record.data() + 4, &size, 4);
    if (!numbers.empty()) std::memcpy(record.data() + 8, numbers.data(), 4 * numbers.size());
    return record;
}

// A picture of 1000 by 1000 hundredths of a millimetre around the records, with three handles besides its own.
std::string Metafile(const std::string& records) {
    constexpr int32_t kSignature = 0x464D4520;
    const auto size = static_cast<int32_t>(88 + records.size() + 20);
    const Numbers header = {0,    0, 100, 100, 0, 0, 1000, 1000, kSignature, 0x10000,
                            size, 3, 4,   0,   0, 0, 1000, 1000, 254,        254};
    return Record(EMR_HEADER, header) + records + Record(EMR_EOF, {0, 0, 20});
}

struct Case {
    const char* label;
    std::string records;
};

int32_t Bits(float number) {
    int32_t bits = 0;
    std::memcpy(&bits, &number, 4);
    return bits;
}

const std::string kLine = Record(EMR_MOVETOEX, {1, 1}) + Record(EMR_LINETO, {90, 90});
const std::string kPen = Record(EMR_CREATEPEN, {1, PS_SOLID, 2, 0, 0});

}  // namespace

TEST(MetafileGuardTest, LetsLinesAndShapesPass) {
    const Case cases[] = {
        {"nothing", ""},
        {"a line", kLine},
        {"a polyline", Record(EMR_POLYLINE, {0, 0, 9, 9, 2, 0, 0, 9, 9})},
        {"a polygon of short numbers", Record(EMR_POLYGON16, {0, 0, 9, 9, 2, 0x00010001, 0x00090009})},
        {"two lines at once", Record(EMR_POLYPOLYLINE, {0, 0, 9, 9, 2, 4, 2, 2, 0, 0, 9, 9, 0, 9, 9, 0})},
        {"shapes", Record(EMR_ELLIPSE, {0, 0, 9, 9}) + Record(EMR_RECTANGLE, {0, 0, 9, 9})},
        {"a pen", kPen + Record(EMR_SELECTOBJECT, {1}) + kLine + Record(EMR_DELETEOBJECT, {1})},
        {"a stock pen", Record(EMR_SELECTOBJECT, {static_cast<int32_t>(0x80000007)}) + kLine},
        {"a mapping", Record(EMR_SETMAPMODE, {MM_ANISOTROPIC}) + Record(EMR_SETWINDOWEXTEX, {2000, 2000}) +
                          Record(EMR_SETVIEWPORTEXTEX, {100, 100}) + kLine},
        {"a comment", Record(EMR_GDICOMMENT, {4, 0x20202020})},
        {"what is saved is restored", Record(EMR_SAVEDC, {}) + kLine + Record(EMR_RESTOREDC, {-1})},
    };
    for (const Case& c : cases)
        EXPECT_TRUE(IsPlayableMetafile(Metafile(c.records), kArea)) << c.label;
}

TEST(MetafileGuardTest, StopsWhatTheSystemWouldTrust) {
    const Case cases[] = {
        {"text", Record(EMR_EXTTEXTOUTW, Numbers(20, 0))},
        {"a font", Record(EMR_EXTCREATEFONTINDIRECTW, Numbers(80, 0))},
        {"a bitmap", Record(EMR_STRETCHDIBITS, Numbers(30, 0))},
        {"drawing by points and types", Record(EMR_POLYDRAW16, {0, 0, 9, 9, -1, 0})},
        {"an unknown record", Record(9'999, {})},
        {"a negative count", Record(EMR_POLYLINE, {0, 0, 9, 9, -1, 0, 0, 9, 9})},
        {"more points than there are", Record(EMR_POLYLINE, {0, 0, 9, 9, 3, 0, 0, 9, 9})},
        {"more short points than there are", Record(EMR_POLYLINE16, {0, 0, 9, 9, 3, 0, 0})},
        {"no room for a count", Record(EMR_POLYLINE, {0})},
        {"short parts", Record(EMR_POLYPOLYLINE, {0, 0, 9})},
        {"more parts than there are", Record(EMR_POLYPOLYGON, {0, 0, 9, 9, 9, 2, 2, 0, 0, 9, 9})},
        {"parts of more points than there are", Record(EMR_POLYPOLYGON, {0, 0, 9, 9, 1, 2, 3, 0, 0, 9, 9})},
        {"parts whose sum runs over",
         Record(EMR_POLYPOLYGON16, {0, 0, 9, 9, 2, 2, static_cast<int32_t>(0x80000001), static_cast<int32_t>(0x80000001),
                                    0, 0})},
        {"a rectangle of nothing", Record(EMR_RECTANGLE, {0})},
        {"a rectangle far away", Record(EMR_RECTANGLE, {-1, -1, -1, 0x7FFFFFFF})},
        {"a line far away", Record(EMR_LINETO, {0x10000, 0})},
        {"a clip far away", Record(EMR_INTERSECTCLIPRECT, {0, 0, 0x10000, 9})},
        {"an extent of nothing", Record(EMR_SETWINDOWEXTEX, {0, 1})},
        {"a mapping that enlarges", Record(EMR_SETVIEWPORTEXTEX, {30'000, 30'000}) + kLine},
        {"a transform that enlarges",
         Record(EMR_SETWORLDTRANSFORM, {Bits(1e9f), 0, 0, Bits(1e9f), 0, 0}) + kLine},
        {"a transform that is no number",
         Record(EMR_SETWORLDTRANSFORM, {0x7FC00000, 0, 0, Bits(1), 0, 0}) + kLine},
        {"transforms that add up",
         [] {
             std::string records;
             for (int i = 0; i < 40; ++i)
                 records += Record(EMR_MODIFYWORLDTRANSFORM, {Bits(2), 0, 0, Bits(2), 0, 0, MWT_LEFTMULTIPLY});
             return records + kLine;
         }()},
        {"a handle that is not there", Record(EMR_SELECTOBJECT, {1})},
        {"the metafile's own handle", Record(EMR_DELETEOBJECT, {0})},
        {"a handle beyond the table", Record(EMR_CREATEPEN, {4, PS_SOLID, 2, 0, 0})},
        {"a handle twice", kPen + kPen},
        {"a handle that is gone", kPen + Record(EMR_DELETEOBJECT, {1}) + Record(EMR_SELECTOBJECT, {1})},
        {"a pen as wide as the world", Record(EMR_CREATEPEN, {1, PS_SOLID, 0x7FFFFFFF, 0, 0})},
        {"a pen with a pattern", Record(EMR_EXTCREATEPEN, {1, 52, 40, 92, 4, 0, 1, 3, 0, 0, 0, 0})},
        {"a brush with a pattern", Record(EMR_CREATEBRUSHINDIRECT, {1, BS_PATTERN, 0, 0})},
        {"a state that was not saved", Record(EMR_RESTOREDC, {-1})},
        {"a comment longer than its record", Record(EMR_GDICOMMENT, {400, 0})},
        {"a record that is not whole", std::string("\x36\0\0\0\xFF\0\0\0", 8)},
    };
    for (const Case& c : cases)
        EXPECT_FALSE(IsPlayableMetafile(Metafile(c.records), kArea)) << c.label;
}

TEST(MetafileGuardTest, StopsRecordsFilledWithOnes) {
    for (int32_t type = 2; type < 130; ++type) {
        if (type == EMR_EOF || type == EMR_SETTEXTALIGN || type == EMR_SETTEXTCOLOR || type == EMR_SETBKCOLOR) continue;
        if (type == EMR_SAVEDC) continue;  // what these say cannot be wrong
        for (const size_t numbers : {0u, 1u, 4u, 12u, 40u}) {
            const bool harmless =
                type == EMR_LINETO || type == EMR_MOVETOEX || type == EMR_ELLIPSE || type == EMR_RECTANGLE ||
                type == EMR_ROUNDRECT || type == EMR_ARC || type == EMR_ARCTO || type == EMR_CHORD || type == EMR_PIE ||
                type == EMR_INTERSECTCLIPRECT || type == EMR_SETBRUSHORGEX || type == EMR_SETWINDOWORGEX ||
                type == EMR_SETVIEWPORTORGEX || type == EMR_SETWINDOWEXTEX || type == EMR_SETVIEWPORTEXTEX;
            if (harmless && numbers >= 2) continue;  // -1 is a place like another
            EXPECT_FALSE(IsPlayableMetafile(Metafile(Record(type, Numbers(numbers, -1))), kArea))
                << type << " " << numbers;
        }
    }
}

TEST(MetafileGuardTest, StopsAHeaderThatIsNone) {
    const std::string sound = Metafile(kLine);
    ASSERT_TRUE(IsPlayableMetafile(sound, kArea));
    for (size_t length = 0; length < sound.size(); ++length)
        EXPECT_FALSE(IsPlayableMetafile(sound.substr(0, length), kArea)) << length;
    for (const size_t offset : {0u, 4u, 24u, 32u, 40u, 48u, 72u, 76u, 80u, 84u}) {
        std::string damaged = sound;
        const int32_t number = -7;
        std::memcpy(damaged.data() + offset, &number, 4);
        EXPECT_EQ(IsPlayableMetafile(damaged, kArea), offset == 24u) << offset;  // a frame may begin anywhere
    }
}

TEST(MetafileGuardTest, StopsAPictureTooLargeForItsPlace) {
    const std::string wide = Metafile(Record(EMR_LINETO, {30'000, 30'000}));
    EXPECT_TRUE(IsPlayableMetafile(wide, {30, 30}));
    EXPECT_FALSE(IsPlayableMetafile(wide, {6'000, 6'000}));
}

TEST(MetafileGuardTest, PlaysWithinItsPlaceOnly) {
    const HDC screen = GetDC(nullptr);
    const HDC dc = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, 60, 60);
    const HGDIOBJ before = SelectObject(dc, bitmap);
    RECT all{0, 0, 60, 60};
    FillRect(dc, &all, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    const std::string picture = Metafile(Record(EMR_SELECTOBJECT, {static_cast<int32_t>(0x80000004)}) +
                                         Record(EMR_RECTANGLE, {-500, -500, 500, 500}));
    ASSERT_TRUE(IsPlayableMetafile(picture, {20, 20}));
    EXPECT_TRUE(PlayMetafile(dc, picture, {20, 20, 40, 40}, 10'000));
    EXPECT_EQ(GetPixel(dc, 30, 30), RGB(0, 0, 0));
    EXPECT_EQ(GetPixel(dc, 10, 30), RGB(255, 255, 255));
    EXPECT_EQ(GetPixel(dc, 30, 45), RGB(255, 255, 255));
    SelectObject(dc, before);
    DeleteObject(bitmap);
    DeleteDC(dc);
    ReleaseDC(nullptr, screen);
}
