#include <gmock/gmock.h>

#include "tests/richink/rich_ink_fixture.h"

using RichInkStreamTest = RichInkTest;

namespace {

std::wstring AsText(const std::string& bytes) {
    return {reinterpret_cast<const wchar_t*>(bytes.data()), bytes.size() / sizeof(wchar_t)};
}

DWORD CALLBACK Fail(DWORD_PTR, LPBYTE, LONG, LONG* count) {
    *count = 0;
    return 1234;
}
DWORD CALLBACK ClaimTooMuch(DWORD_PTR, LPBYTE, LONG wanted, LONG* count) {
    *count = wanted + 1;
    return 0;
}
DWORD CALLBACK TakeNothing(DWORD_PTR, LPBYTE, LONG, LONG* count) {
    *count = 0;
    return 0;
}
DWORD CALLBACK TakeThree(DWORD_PTR cookie, LPBYTE buffer, LONG offered, LONG* count) {
    *count = offered < 3 ? offered : 3;
    reinterpret_cast<std::string*>(cookie)->append(reinterpret_cast<const char*>(buffer), *count);
    return 0;
}
DWORD CALLBACK GiveForEver(DWORD_PTR, LPBYTE buffer, LONG wanted, LONG* count) {
    FillMemory(buffer, wanted, 'x');
    *count = wanted;
    return 0;
}

}  // namespace

TEST_F(RichInkStreamTest, TextComesBackWithCrLfLineEndsAndANul) {
    EXPECT_EQ(LoadText(L"one\r\ntwo ☀ \U0001F600"), 0u);
    EXPECT_EQ(AsText(Save(kText)), std::wstring(L"one\r\ntwo ☀ \U0001F600\0", 14));
}

TEST_F(RichInkStreamTest, TheNulThatEndsAWrittenTextIsNotReadBackAsACharacter) {
    LoadText(L"text");
    const std::string bytes = Save(kText);
    EXPECT_EQ(bytes.size(), 10u);
    EXPECT_EQ(Load(kText, bytes), 0u);
    EXPECT_EQ(Text(), L"text");
}

TEST_F(RichInkStreamTest, RichTextKeepsTextAndFormats) {
    EXPECT_EQ(Load(kRtf, R"({\rtf1\ansi{\fonttbl{\f0 Tahoma;}}\f0 plain \b bold\b0\par second \u9728?})"), 0u);
    EXPECT_EQ(Text(), L"plain bold\nsecond ☀");
    const std::string saved = Save(kRtf);
    EXPECT_TRUE(saved.starts_with("{\\rtf"));
    EXPECT_NE(saved.find("\\b"), std::string::npos);
    EXPECT_EQ(Load(kRtf, saved), 0u);
    EXPECT_EQ(Text(), L"plain bold\nsecond ☀");
}

TEST_F(RichInkStreamTest, ManyRoundsAddNothing) {
    Load(kRtf, R"({\rtf1 one\par two\par})");
    const std::wstring text = Text();
    for (int round = 0; round < 5; ++round)
        Load(kRtf, Save(kRtf));
    EXPECT_EQ(Text(), text);
}

TEST_F(RichInkStreamTest, LoadingIsNoChange) {
    for (const UINT format : {kRtf, kText}) {
        Replace(L"typed");
        Forget();
        Load(format, format == kRtf ? "{\\rtf1 loaded}" : std::string("l\0o\0", 4));
        EXPECT_EQ(Count(EN_CHANGE), 0);
        EXPECT_FALSE(IsModified());
        EXPECT_FALSE(CanUndo());
        EXPECT_FALSE(CanRedo());
    }
}

TEST_F(RichInkStreamTest, LoadingAnEmptyStreamEmptiesTheControlAndIsNoChange) {
    for (const UINT format : {kRtf, kText}) {
        Replace(L"typed");
        Forget();
        EXPECT_EQ(Load(format, ""), 0u);
        EXPECT_EQ(Text(), L"");
        EXPECT_EQ(Count(EN_CHANGE), 0);
        EXPECT_FALSE(IsModified());
        EXPECT_FALSE(CanUndo());
        Send(EM_UNDOEVENT);
        EXPECT_EQ(Text(), L"");
    }
}

TEST_F(RichInkStreamTest, ChangesAreToldUnaskedAlsoAfterLoading) {
    Write(L"a");
    EXPECT_GE(Count(EN_CHANGE), 1);
    EXPECT_TRUE(IsModified());
    LoadText(L"loaded");
    Forget();
    Replace(L"b");
    EXPECT_GE(Count(EN_CHANGE), 1);
    EXPECT_TRUE(IsModified());
    EXPECT_TRUE(CanUndo());
}

TEST_F(RichInkStreamTest, AProgramThatSetsItsOwnEventsStillHearsOfChanges) {
    Send(EM_SETEVENTMASK, 0, ENM_NONE);
    Write(L"a");
    EXPECT_GE(Count(EN_CHANGE), 1);
}

TEST_F(RichInkStreamTest, LoadingReplacesTheContentsAndPutsTheCaretAtTheStart) {
    LoadText(L"first");
    LoadText(L"second");
    EXPECT_EQ(Text(), L"second");
    DWORD start = 9, end = 9;
    Send(EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    EXPECT_EQ(start, 0u);
    EXPECT_EQ(end, 0u);
}

TEST_F(RichInkStreamTest, AReadOnlyControlLoads) {
    Send(EM_SETREADONLY, TRUE);
    LoadText(L"shown");
    EXPECT_EQ(Text(), L"shown");
}

TEST_F(RichInkStreamTest, TextWithoutAFontIsTahoma) {
    for (const bool rich : {false, true}) {
        rich ? Load(kRtf, "{\\rtf1 some}") : LoadText(L"some");
        SelectAll();
        CHARFORMAT2W format{};
        format.cbSize = sizeof(format);
        Send(EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
        EXPECT_STREQ(format.szFaceName, L"Tahoma") << (rich ? "rich" : "plain");
        EXPECT_EQ(format.dwEffects & CFE_BOLD, 0u);
    }
}

TEST_F(RichInkStreamTest, TextTypedIntoAnEmptyControlIsTahoma) {
    Load(kRtf, "");
    Write(L"a");
    EXPECT_NE(Save(kRtf).find("Tahoma"), std::string::npos);
}

TEST_F(RichInkStreamTest, OtherFormatsAreRefusedAndChangeNothing) {
    LoadText(L"kept");
    for (const UINT format : {0u, 1u, 0x800u, 0x10802u, 0x8002u}) {
        EXPECT_EQ(Load(format, "{\\rtf1 other}"), static_cast<DWORD>(ERROR_INVALID_PARAMETER)) << format;
        EXPECT_EQ(Text(), L"kept");
    }
}

TEST_F(RichInkStreamTest, ACallbacksErrorIsTheStreams) {
    LoadText(L"before");
    EDITSTREAM stream{0, 0, Fail};
    EXPECT_EQ(Send(EM_STREAMIN, kRtf, reinterpret_cast<LPARAM>(&stream)), 1234);
    EXPECT_EQ(stream.dwError, 1234u);
    EXPECT_EQ(Text(), L"");
    EXPECT_FALSE(IsModified());
    LoadText(L"text");
    EXPECT_EQ(Send(EM_STREAMOUT, kText, reinterpret_cast<LPARAM>(&stream)), 1234);
}

TEST_F(RichInkStreamTest, ACallbackThatMiscountsIsAnError) {
    EDITSTREAM in{0, 0, ClaimTooMuch};
    EXPECT_EQ(Send(EM_STREAMIN, kRtf, reinterpret_cast<LPARAM>(&in)), ERROR_INVALID_DATA);
    LoadText(L"text");
    EDITSTREAM out{0, 0, TakeNothing};
    EXPECT_EQ(Send(EM_STREAMOUT, kText, reinterpret_cast<LPARAM>(&out)), ERROR_WRITE_FAULT);
    EXPECT_EQ(Send(EM_STREAMOUT, kText, 0), ERROR_INVALID_PARAMETER);
}

TEST_F(RichInkStreamTest, ACallbackThatTakesALittleGetsTheRest) {
    LoadText(L"a longer text");
    std::string bytes;
    EDITSTREAM stream{reinterpret_cast<DWORD_PTR>(&bytes), 0, TakeThree};
    EXPECT_EQ(Send(EM_STREAMOUT, kText, reinterpret_cast<LPARAM>(&stream)), 0);
    EXPECT_EQ(bytes, Save(kText));
}

TEST_F(RichInkStreamTest, AStreamWithoutEndIsGivenUp) {
    EDITSTREAM stream{0, 0, GiveForEver};
    EXPECT_EQ(Send(EM_STREAMIN, kRtf, reinterpret_cast<LPARAM>(&stream)), ERROR_FILE_TOO_LARGE);
    EXPECT_EQ(Text(), L"");
}

TEST_F(RichInkStreamTest, ALongTextLoadsBeyondTheTypingLimit) {
    std::wstring text;
    for (int i = 0; i < 1'000; ++i)
        text += std::wstring(99, L'x') + L'\n';
    LoadText(text);
    EXPECT_EQ(Text().size(), text.size());
}

TEST_F(RichInkStreamTest, ClearAllEmptiesAndIsNoChange) {
    Replace(L"typed");
    Forget();
    Send(EM_CLEARALL, TRUE);
    EXPECT_EQ(Text(), L"");
    EXPECT_FALSE(IsModified());
    EXPECT_FALSE(CanUndo());
    EXPECT_EQ(Count(EN_CHANGE), 0);
}

TEST_F(RichInkStreamTest, AnEmptyControlWritesAnEmptyText) {
    EXPECT_EQ(Save(kText), std::string("\0\0", 2));
}
