#include "platform/richink/rtf_guard.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace {

struct Case {
    const char* label;
    std::string damaged;
    std::string sound;
};

// Of 24 bits, with `rows` rows of pixels.
std::string Bitmap(int32_t width, int32_t height, int rows) {
    std::string bytes(40 + static_cast<size_t>(rows) * ((width * 3 + 3) / 4 * 4), '\0');
    const int32_t head[] = {40, width, height, 24 << 16 | 1};
    std::memcpy(bytes.data(), head, sizeof(head));
    std::string hex;
    for (const char byte : bytes)
        for (const int digit : {byte >> 4 & 15, byte & 15})
            hex += "0123456789abcdef"[digit];
    return hex;
}

}  // namespace

TEST(RtfGuardTest, LeavesSoundRichTextAsItIs) {
    const std::string sound = "{\\rtf1\\ansi{\\fonttbl{\\f0 Tahoma;}}\\f0 a\\'e9\\{b\\}\\par\r\n{\\*\\x y}\\~}";
    EXPECT_EQ(SoundRtf(sound), sound);
}

TEST(RtfGuardTest, RepairsWhatIsDamaged) {
    const Case cases[] = {
        {"nothing", "", ""},
        {"another text", "plain", ""},
        {"missing end", "{\\rtf1 a", "{\\rtf1 a}"},
        {"missing ends", "{\\rtf1 {\\b a", "{\\rtf1 {\\b a}}"},
        {"half a word", "{\\rtf1 a\\pa", "{\\rtf1 a}"},
        {"perhaps half a number", "{\\rtf1 a\\u972", "{\\rtf1 a}"},
        {"half a hex character", "{\\rtf1 a\\'e", "{\\rtf1 a}"},
        {"a lonely backslash at the end", "{\\rtf1 a\\", "{\\rtf1 a}"},
        {"bad hex", "{\\rtf1 \\'zz}", "{\\rtf1 zz}"},
        {"what follows", "{\\rtf1 a}{\\rtf1 b}", "{\\rtf1 a}"},
        {"a number too large", "{\\rtf1 \\fs9999999999 a}", "{\\rtf1 a}"},
        {"a negative number", "{\\rtf1 \\li-20 a}", "{\\rtf1 \\li-20 a}"},
        {"a minus without a number", "{\\rtf1 \\li- a}", "{\\rtf1 a}"},
        {"a tab without a place", "{\\rtf1{\\tx a\\par b}}", "{\\rtf1{a\\par b}}"},
        {"a word with a number that nobody knows", "{\\rtf1\\wonder12 a\\wonder b}", "{\\rtf1 a\\wonder b}"},
        {"a word that ends where another was", "{\\rtf1\\b\\li-999999 a\\i\\tx-1 -\\b0\\fs-5 7}",
         "{\\rtf1\\b a\\i -\\b0 7}"},
        {"a word that ends where a picture was", "{\\rtf1\\b{\\pict\\pngblip zz}a}", "{\\rtf1\\b a}"},
        {"a NUL as a character", "{\\rtf1 a\\u0?b\\u-0 ?c\\u00\\'3fd\\'00e}", "{\\rtf1 abcde}"},
        {"binary data", "{\\rtf1 a\\bin3 {{{b}", "{\\rtf1 ab}"},
        {"binary data cut off", "{\\rtf1 a\\bin30 {{{b}", "{\\rtf1 a}"},
        {"a byte beyond ASCII", "{\\rtf1 a\xE9}", "{\\rtf1 a\\'e9}"},
        {"half a picture", "{\\rtf1 a{\\pict\\pngblip 89504", "{\\rtf1 a}"},
        {"a picture of half a byte", "{\\rtf1 a{\\pict\\pngblip 895}b}", "{\\rtf1 ab}"},
        {"a picture that is none", "{\\rtf1 a{\\pict\\pngblip zz}b}", "{\\rtf1 ab}"},
        {"a picture of unknown kind", "{\\rtf1 {\\pict\\pngblip 8950}}", "{\\rtf1 {\\pict\\pngblip 8950}}"},
        {"a metafile without records", "{\\rtf1 a{\\pict\\wmetafile8 010009000003}b}", "{\\rtf1 ab}"},
        {"an empty enhanced metafile", "{\\rtf1 a{\\pict\\emfblip}b}", "{\\rtf1 ab}"},
        {"a bitmap without pixels", "{\\rtf1 a{\\pict\\dibitmap0 28000000}b}", "{\\rtf1 ab}"},
        {"a tab before the line", "{\\rtf1 \\tx-1 a\\tab b}", "{\\rtf1 a\\tab b}"},
        {"a tab nowhere", "{\\rtf1\\tx0\\tx31681\\tx31680 a}", "{\\rtf1\\tx31680 a}"},
        {"letters of no size", "{\\rtf1\\fs0\\fs-18\\fs4000\\fs18 a}", "{\\rtf1\\fs18 a}"},
        {"a margin behind the moon", "{\\rtf1\\li-999999999 a}", "{\\rtf1 a}"},
        {"a table", "{\\rtf1\\trowd\\trgaph70\\cellx100\\clvertalt\\cellx-5\\intbl a\\cell b\\cell\\row c}",
         "{\\rtf1 a\\tab b\\tab \\par c}"},
        {"a picture in a picture", "{\\rtf1 a{\\pict{\\pict 00}}b}", "{\\rtf1 ab}"},
        {"bytes in a picture", "{\\rtf1 a{\\pict{\\*\\x \xE9}00}b}", "{\\rtf1 ab}"},
        {"a bitmap of no height", "{\\rtf1 a{\\pict\\dibitmap0 " + Bitmap(1, 0, 1) + "}b}", "{\\rtf1 ab}"},
        {"a bitmap higher than its pixels", "{\\rtf1 a{\\pict\\dibitmap0 " + Bitmap(1, 2, 1) + "}b}", "{\\rtf1 ab}"},
        {"one upside down", "{\\rtf1 a{\\pict\\dibitmap0 " + Bitmap(1, -2, 1) + "}b}", "{\\rtf1 ab}"},
        {"one higher than any screen", "{\\rtf1 a{\\pict\\dibitmap0 " + Bitmap(1, 0x8001, 0x8001) + "}b}",
         "{\\rtf1 ab}"},
        {"NUL bytes", std::string("{\\rtf1 a\0b}", 11), "{\\rtf1 ab}"},
        {"a NUL after a backslash", std::string("{\\rtf1 a\\\0b}", 12), "{\\rtf1 ab}"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(SoundRtf(c.damaged), c.sound) << c.label;
}

TEST(RtfGuardTest, KeepsPicturesThatAreWhole) {
    // The smallest old metafile: a header of nine words and the record that ends it.
    const std::string metafile =
        "0100"
        "0900"
        "0003"
        "0c000000"
        "0000"
        "03000000"
        "0000"
        "03000000"
        "0000";
    // One pixel of 24 bits.
    const std::string bitmap =
        "28000000"
        "01000000"
        "01000000"
        "0100"
        "1800"
        "00000000"
        "00000000"
        "00000000"
        "00000000"
        "00000000"
        "00000000"
        "ff00ff00";
    for (const std::string& picture : {"{\\pict\\wmetafile8 " + metafile + "}", "{\\pict\\dibitmap0 " + bitmap + "}"}) {
        const std::string sound = "{\\rtf1 " + picture + "}";
        EXPECT_EQ(SoundRtf(sound), sound);
        std::string shorter = sound;
        shorter.erase(sound.size() - 4, 2);
        EXPECT_EQ(SoundRtf(shorter), "{\\rtf1 }");
    }
}

TEST(RtfGuardTest, LeavesOutGroupsThatAreTooDeep) {
    const std::string deep = "{\\rtf1 a" + std::string(100, '{') + "x" + std::string(100, '}') + "b}";
    const std::string sound = SoundRtf(deep);
    EXPECT_EQ(sound.find('x'), std::string::npos);
    EXPECT_NE(sound.find('b'), std::string::npos);
    EXPECT_EQ(std::count(sound.begin(), sound.end(), '{'), std::count(sound.begin(), sound.end(), '}'));
}

TEST(RtfGuardTest, KeepsBitmapsOfEitherDirection) {
    for (const int32_t height : {2, -2, 0x8000}) {
        const std::string sound = "{\\rtf1 {\\pict\\dibitmap0 " + Bitmap(1, height, std::abs(height)) + "}}";
        EXPECT_EQ(SoundRtf(sound), sound) << height;
    }
}

TEST(RtfGuardTest, KeepsGroupsUpToTheDeepest) {
    const auto nested = [](int groups) {  // counting the outermost
        return "{\\rtf1 " + std::string(groups - 1, '{') + "x" + std::string(groups, '}');
    };
    EXPECT_EQ(SoundRtf(nested(24)), nested(24));
    std::string without = nested(24);
    std::erase(without, 'x');
    EXPECT_EQ(SoundRtf(nested(25)), without);
    const std::string picture = "{\\pict 00}";
    EXPECT_NE(SoundRtf("{\\rtf1 " + std::string(22, '{') + picture + std::string(23, '}')).find("pict"),
              std::string::npos);
    EXPECT_EQ(SoundRtf("{\\rtf1 " + std::string(23, '{') + picture + std::string(24, '}')).find("pict"),
              std::string::npos);
}

TEST(RtfGuardTest, IsBalancedForAnyCut) {
    const std::string whole = "{\\rtf1{\\fonttbl{\\f0 A;}}\\f0 a\\'e9{\\b b{\\i c}}\\bin4 }}}}d}";
    for (size_t length = 5; length <= whole.size(); ++length) {
        const std::string sound = SoundRtf(whole.substr(0, length));
        EXPECT_EQ(std::count(sound.begin(), sound.end(), '{'), std::count(sound.begin(), sound.end(), '}')) << length;
        EXPECT_EQ(SoundRtf(sound), sound) << length;
    }
}
