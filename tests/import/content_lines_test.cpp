// How a file is taken apart into lines.
#include "exchange/content_lines.h"

#include <gmock/gmock.h>

namespace {

using import::ContentLine;
using import::ContentLines;
using testing::ElementsAre;

std::vector<ContentLine> Read(const std::string& bytes) {
    ContentLines lines(bytes);
    std::vector<ContentLine> all;
    while (auto line = lines.Next())
        all.push_back(*line);
    return all;
}

TEST(ContentLinesTest, NamesAreUpperCaseAndWithoutTheirGroup) {
    const auto lines = Read("fn:Anna\nitem1.Tel:1\nX-ABC:2\n");
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_EQ(lines[0].name, "FN");
    EXPECT_EQ(lines[0].value, "Anna");
    EXPECT_EQ(lines[1].name, "TEL");
    EXPECT_EQ(lines[2].name, "X-ABC");
}

TEST(ContentLinesTest, EveryKindOfLineEndIsOne) {
    for (const char* end : {"\n", "\r\n", "\r"}) {
        const auto lines = Read(std::string("A:1") + end + end + "B:2" + end + "C:3");
        ASSERT_EQ(lines.size(), 3u);
        EXPECT_EQ(lines[0].number, 1);
        EXPECT_EQ(lines[1].number, 3);
        EXPECT_EQ(lines[1].value, "2");
        EXPECT_EQ(lines[2].number, 4);
    }
}

TEST(ContentLinesTest, FoldedLinesAreJoinedAndCountedFromTheirFirst) {
    const auto lines = Read("NOTE:one\r\n  two\r\n\t three\r\nB:2\r\n");
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0].value, "one two three");
    EXPECT_EQ(lines[0].number, 1);
    EXPECT_EQ(lines[1].number, 4);
}

TEST(ContentLinesTest, ALineCanBeFoldedWithinItsNameAndWithinACharacter) {
    const auto lines = Read("NO\n TE;X=1\n :\xC3\n \xA4\n");
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].name, "NOTE");
    EXPECT_EQ(lines[0].value, "\xC3\xA4");
}

TEST(ContentLinesTest, QuotedPrintableGoesOnAfterAnEqualsSign) {
    const auto lines = Read("NOTE;ENCODING=QUOTED-PRINTABLE:a=\r\nb=\r\n c=0D=0A\r\nB:2\r\n");
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0].value, "ab c=0D=0A");
    EXPECT_EQ(lines[1].number, 4);
    EXPECT_EQ(Read("NOTE;QUOTED-PRINTABLE:a=\r\nb\r\n")[0].value, "ab");
    EXPECT_EQ(Read("NOTE:a=\r\nB:2\r\n").size(), 2u) << "it is no quoted-printable";
    EXPECT_EQ(Read("NOTE;QUOTED-PRINTABLE:a=")[0].value, "a=");
}

TEST(ContentLinesTest, Base64GoesOnUntilALineThatIsNone) {
    const auto folded = Read("PHOTO;ENCODING=b:AAAA\r\n BBBB\r\nB:2\r\n");
    EXPECT_EQ(folded[0].value, "AAAABBBB");
    const auto bare = Read("PHOTO;BASE64;JPEG:\r\nAAAA\r\nBBB=\r\n\r\nEND:VCARD\r\n");
    ASSERT_EQ(bare.size(), 2u);
    EXPECT_EQ(bare[0].value, "AAAABBB=");
    EXPECT_EQ(bare[1].name, "END");
}

TEST(ContentLinesTest, ParametersComeWithTheirValues) {
    const auto line = Read("TEL;type=home,VOICE;Type=\"pref,cell\";X=\"a;b:c\":+1:2;3\n")[0];
    EXPECT_TRUE(line.HasType("HOME"));
    EXPECT_TRUE(line.HasType("VOICE"));
    EXPECT_TRUE(line.HasType("PREF"));
    EXPECT_TRUE(line.HasType("CELL"));
    EXPECT_FALSE(line.HasType("WORK"));
    EXPECT_EQ(line.Get("X"), "a;b:c");
    EXPECT_EQ(line.Get("Y"), "");
    EXPECT_EQ(line.value, "+1:2;3");
}

TEST(ContentLinesTest, BareParametersOfOldCardsAreTypesAndEncodings) {
    const auto line = Read("TEL;HOME;QUOTED-PRINTABLE;CHARSET=utf-8:=31\n")[0];
    EXPECT_TRUE(line.HasType("HOME"));
    EXPECT_TRUE(IsQuotedPrintable(line));
    EXPECT_FALSE(IsBase64(line));
    EXPECT_EQ(line.Get("CHARSET"), "utf-8");
}

TEST(ContentLinesTest, ALineThatIsNoneComesWithoutAName) {
    for (const char* text : {"hello", "no name here", ":value", "a b:c", "\"A:1"}) {
        const auto lines = Read(text);
        ASSERT_EQ(lines.size(), 1u) << text;
        EXPECT_EQ(lines[0].name, "") << text;
        EXPECT_EQ(lines[0].value, text);
    }
}

TEST(ContentLinesTest, AMarkAtTheStartIsNoPartOfTheFirstLine) {
    EXPECT_EQ(Read("\xEF\xBB\xBF"
                   "BEGIN:VCARD\n")[0]
                  .name,
              "BEGIN");
}

TEST(ContentLinesTest, Utf16IsReadByItsMark) {
    const std::string little(
        "\xFF\xFE"
        "F\0N\0:\0\xE4\0\r\0\n\0",
        14);
    const std::string big("\xFE\xFF\0F\0N\0:\0\xE4\0\r\0\n", 14);
    for (const std::string& bytes : {little, big}) {
        const auto lines = Read(bytes);
        ASSERT_EQ(lines.size(), 1u);
        EXPECT_EQ(lines[0].name, "FN");
        EXPECT_EQ(lines[0].value, "\xC3\xA4");
    }
}

TEST(ContentLinesTest, AnEmptyFileHasNoLines) {
    for (const char* text : {"", "\n", " \r\n\r\n", "\xEF\xBB\xBF"})
        EXPECT_TRUE(Read(text).empty());
}

TEST(ContentLinesTest, AFileCutAnywhereIsReadToItsEnd) {
    const std::string whole =
        "BEGIN:VCARD\r\nNOTE;ENCODING=QUOTED-PRINTABLE:a=\r\nb=C3=A4\r\nPHOTO;ENCODING=b:AA\r\n AA\r\nEND:VCARD\r\n";
    for (size_t length = 0; length <= whole.size(); ++length)
        EXPECT_LE(Read(whole.substr(0, length)).size(), 4u) << length;
}

}  // namespace
