#include "platform/richink/rtf_guard.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

struct Case {
    const char* label;
    std::string damaged;
    std::string sound;
};

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
        {"a number too large", "{\\rtf1 \\fs9999999999 a}", "{\\rtf1  a}"},
        {"a negative number", "{\\rtf1 \\li-20 a}", "{\\rtf1 \\li-20 a}"},
        {"a minus without a number", "{\\rtf1 \\li- a}", "{\\rtf1 \\li- a}"},
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

TEST(RtfGuardTest, IsBalancedForAnyCut) {
    const std::string whole = "{\\rtf1{\\fonttbl{\\f0 A;}}\\f0 a\\'e9{\\b b{\\i c}}\\bin4 }}}}d}";
    for (size_t length = 5; length <= whole.size(); ++length) {
        const std::string sound = SoundRtf(whole.substr(0, length));
        EXPECT_EQ(std::count(sound.begin(), sound.end(), '{'), std::count(sound.begin(), sound.end(), '}')) << length;
        EXPECT_EQ(SoundRtf(sound), sound) << length;
    }
}
