// From bytes to texts.
#include "exchange/text.h"

#include <gmock/gmock.h>

#include "exchange/content_lines.h"

namespace {

using import::Decode;
using import::Escapes;
using testing::ElementsAre;

import::ContentLine Line(const std::string& text){import::ContentLines lines(text);
return *lines.Next();
}  // namespace

TEST(ImportTextTest, BytesAreDecodedByTheirCharset) {
    const struct {
        const char* bytes;
        const char* charset;
        const wchar_t* text;
    } cases[] = {
        {"\xC3\xA4", "", L"\x00E4"},
        {"\xC3\xA4", "utf-8", L"\x00E4"},
        {"\xE4", "ISO-8859-1", L"\x00E4"},
        {"\xE4", "iso-8859-15", L"\x00E4"},
        {"\xE4", "WINDOWS-1252", L"\x00E4"},
        {"\xC4", "windows-1251", L"\x0414"},
        {"\x93\xFA", "Shift_JIS", L"\x65E5"},
        {"\xC4", "KOI8-R", L"\x0434"},
        {"\xE4", "", L"\x00E4"},                   // claims nothing, and is no UTF-8
        {"\xE4 \xC3", "UTF-8", L"\x00E4 \x00C3"},  // claims it, and is not
        {"abc", "no-such-charset", L"abc"},
        {"", "utf-8", L""},
        {"\xF0\x9F\x98\x80", "utf-8", L"\xD83D\xDE00"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Decode(c.bytes, c.charset), c.text) << c.charset << ": " << c.bytes;
}

TEST(ImportTextTest, QuotedPrintableIsDecodedAsFarAsItIsSound) {
    EXPECT_EQ(import::DecodeQuotedPrintable("a=C3=a4=3D=0D=0A"), "a\xC3\xA4=\r\n");
    EXPECT_EQ(import::DecodeQuotedPrintable("a=b=1=G0=4"), "a=b=1=G0=4");
    EXPECT_EQ(import::DecodeQuotedPrintable("="), "=");
}

TEST(ImportTextTest, Base64IsDecoded) {
    EXPECT_EQ(import::DecodeBase64("QW5uYQ=="), "Anna");
    EXPECT_EQ(import::DecodeBase64("QW5u YWE="), "Annaa");
    EXPECT_EQ(import::DecodeBase64(""), "");
}

TEST(ImportTextTest, EscapesAreThoseOfTheVersion) {
    EXPECT_EQ(TextOf(Line("NOTE:a\\nb\\Nc\\,d\\;e\\\\n"), Escapes::kNew), L"a\r\nb\r\nc,d;e\\n");
    EXPECT_EQ(TextOf(Line("NOTE:C:\\new\\;x"), Escapes::kOld), L"C:\\new;x");
    EXPECT_EQ(TextOf(Line("NOTE:a\\"), Escapes::kNew), L"a\\");
    EXPECT_EQ(TextOf(Line("NOTE:a\\qb"), Escapes::kNew), L"a\\qb");
}

TEST(ImportTextTest, PartsAreDividedOutsideOfEscapes) {
    EXPECT_THAT(PartsOf(Line("N:a\\;b;c\\,d;;e"), Escapes::kNew, L';'), ElementsAre(L"a;b", L"c,d", L"", L"e"));
    EXPECT_THAT(PartsOf(Line("CATEGORIES:a,b\\,c"), Escapes::kNew, L','), ElementsAre(L"a", L"b,c"));
    EXPECT_THAT(PartsOf(Line("N:"), Escapes::kNew, L';'), ElementsAre(L""));
}

TEST(ImportTextTest, LineEndsOfEveryKindBecomeOne) {
    EXPECT_EQ(TextOf(Line("NOTE;ENCODING=QUOTED-PRINTABLE:a=0D=0Ab=0Ac=0Dd=00e"), Escapes::kOld), L"a\r\nb\r\nc\r\nde");
}

TEST(ImportTextTest, QuotedPrintableComesBeforeTheCharset) {
    EXPECT_EQ(TextOf(Line("N;CHARSET=ISO-8859-1;ENCODING=QUOTED-PRINTABLE:M=FCller"), Escapes::kOld), L"M\x00FCller");
    EXPECT_EQ(TextOf(Line("N;ENCODING=B:w6Q="), Escapes::kNew), L"\x00E4");
}

}  // namespace
