// No letter of a note is lost, whatever code page the system's own writer would take it through.
#include <gmock/gmock.h>

#include <algorithm>

#include "note_text.h"
#include "tests/richink/rich_ink_fixture.h"
#include "tests/support/letters.h"

namespace {

std::wstring AsText(const std::string& bytes) {
    return {reinterpret_cast<const wchar_t*>(bytes.data()), bytes.size() / sizeof(wchar_t) - 1};
}

// Where two texts differ first, and by what: a whole text of all letters helps nobody.
testing::AssertionResult AreEqual(const std::wstring& text, const std::wstring& wanted) {
    const auto [at, other] = std::mismatch(text.begin(), text.end(), wanted.begin(), wanted.end());
    if (at == text.end() && other == wanted.end()) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "at " << at - text.begin() << " of " << text.size() << "/" << wanted.size()
                                       << std::hex << ": U+" << (at == text.end() ? 0 : *at) << " for U+"
                                       << (other == wanted.end() ? 0 : *other);
}

DWORD CALLBACK Take(DWORD_PTR cookie, LPBYTE buffer, LONG offered, LONG* taken) {
    reinterpret_cast<std::string*>(cookie)->append(reinterpret_cast<const char*>(buffer), offered);
    *taken = offered;
    return 0;
}

class RichInkLettersTest : public RichInkTest {
protected:
    std::wstring PlainText() const { return AsText(Save(kText)); }
    // The rich text as the system's own writer has it, with the note's text: so notes were written once.
    std::string SavedThroughACodePage() const {
        WNDCLASSW system{};
        EXPECT_TRUE(GetClassInfoW(GetModuleHandleW(L"msftedit.dll"), MSFTEDIT_CLASS, &system));
        std::string bytes;
        EDITSTREAM stream{};
        stream.dwCookie = reinterpret_cast<DWORD_PTR>(&bytes);
        stream.pfnCallback = Take;
        CallWindowProcW(system.lpfnWndProc, Ink(), EM_STREAMOUT, SF_RTF, reinterpret_cast<LPARAM>(&stream));
        AddNoteText(&bytes, PlainText());
        return bytes;
    }
    // Saves and loads five times; then the text is as before, and so was each stream after the first.
    void ExpectKept(const std::wstring& wanted) {
        const std::string first = Save(kRtf);
        EXPECT_EQ(std::count_if(first.begin(), first.end(), [](char c) { return c < 0; }), 0);
        for (int round = 0; round < 5; ++round) {
            Load(kRtf, Save(kRtf));
            ASSERT_TRUE(AreEqual(PlainText(), wanted)) << round;
        }
        EXPECT_TRUE(Save(kRtf) == first);
        std::wstring carried;
        EXPECT_TRUE(GetNoteText(first, &carried));
        EXPECT_TRUE(AreEqual(carried, wanted));
    }
};

}  // namespace

TEST_F(RichInkLettersTest, AreKeptInRuns) {
    const std::wstring text = AllLetters(64, L"\r\n");
    LoadText(text);
    ExpectKept(text);
}

TEST_F(RichInkLettersTest, AreKeptAlone) {
    std::wstring text = AllLetters(1, L" ");
    for (size_t at = 100; at < text.size(); at += 100)
        if (const size_t blank = text.find(L' ', at); blank != std::wstring::npos) text.replace(blank, 1, L"\r\n");
    LoadText(text);
    ExpectKept(text);
}

TEST_F(RichInkLettersTest, AreKeptFormatted) {
    std::string rtf = "{\\rtf1\\ansi\\uc1{\\fonttbl{\\f0 Tahoma;}{\\f1\\fcharset161 Arial;}{\\f2\\fcharset128 Sans;}}";
    const std::wstring text = AllLetters(64, L"\r\n");
    size_t count = 0;
    for (const wchar_t unit : text) {
        constexpr const char* kFormats[] = {"\\f0\\b ", "\\b0\\i ", "\\f1 ", "\\f2\\i0 ", "\\f0\\fs30 ", "\\fs18 "};
        if (!IS_LOW_SURROGATE(unit) && ++count % 11 == 0) rtf += kFormats[count / 11 % std::size(kFormats)];
        if (unit == L'\r')
            rtf += "\\par";
        else if (unit == L'\n')
            rtf += "\r\n";
        else
            rtf += "\\u" + std::to_string(static_cast<short>(unit)) + "?";
    }
    Load(kRtf, rtf + "}");
    ExpectKept(text);
}

TEST_F(RichInkLettersTest, AreKeptBesideInk) {
    const std::wstring text = AllLetters(64, L"\r\n");
    LoadText(text);
    Send(EM_EXLIMITTEXT, 0, 200'000);
    Send(EM_SETVIEW, VT_DRAWINGVIEW);
    Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(20, 100));
    Send(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(90, 110));
    Send(WM_LBUTTONUP, 0, MAKELPARAM(90, 110));
    ASSERT_NE(Save(kRtf).find("\\pict"), std::string::npos);
    ExpectKept(PlainText());
    std::wstring letters = PlainText();
    std::wstring wanted = text;
    std::erase_if(letters, [](wchar_t c) { return c < 0x20; });
    std::erase_if(wanted, [](wchar_t c) { return c < 0x20; });
    EXPECT_TRUE(AreEqual(letters, wanted));
}

TEST_F(RichInkLettersTest, AreCopiedAndPasted) {
    const std::wstring text = AllLetters(64, L"\r\n").substr(0, 30'000);
    LoadText(text);
    SelectAll();
    Send(WM_COPY);
    LoadText(L"");
    Send(WM_PASTE);
    EXPECT_TRUE(AreEqual(PlainText(), text));
}

TEST_F(RichInkLettersTest, ANoteCutAndPastedIsTheSameByteForByte) {
    Load(kRtf,
         "{\\rtf1\\ansi\\uc1{\\fonttbl{\\f0 Tahoma;}}\\f0\\fs18 a \\b \\u937?\\b0\\par\\i two\\i0\\tab \\u322? end}");
    const std::string before = Save(kRtf);
    SelectAll();
    Send(WM_CUT);
    EXPECT_EQ(PlainText(), L"");
    Send(WM_PASTE);
    EXPECT_EQ(Save(kRtf), before);
}

TEST_F(RichInkLettersTest, HalfAPairIsKept) {
    const std::wstring text = L"\xD83D half \xDE00\uFFFD\U0001F600\xD83D";
    LoadText(text);
    ExpectKept(text);
}

// The writer takes a text by pieces of its own size.
TEST_F(RichInkLettersTest, APairIsKeptWhereverItStands) {
    std::wstring text;
    for (int line = 0; line < 40; ++line)
        text += std::wstring(120 + line, L'x') + std::wstring(L"\U0001F600\U0001F601\U0001F602 ");
    LoadText(text);
    ExpectKept(text);
}

TEST_F(RichInkLettersTest, OfAHarmedStreamAreMended) {
    const std::wstring text = L"{\\ one}\t\r\n" + AllLetters(64, L"\r\n");
    LoadText(text);
    const std::string harmed = SavedThroughACodePage();
    Load(kRtf, harmed);
    ASSERT_TRUE(AreEqual(PlainText(), text));
    EXPECT_FALSE(IsModified());
    ExpectKept(text);
}

TEST_F(RichInkLettersTest, OfAHarmedStreamWithFormatsAreMended) {
    Load(kRtf,
         "{\\rtf1\\ansi\\uc1{\\fonttbl{\\f0 Tahoma;}}\\f0 \\b \\u937?\\b0 \\u322?\\line\\u937?\\par\\tab\\i \\u345?}");
    const std::wstring text = PlainText();
    Load(kRtf, SavedThroughACodePage());
    EXPECT_EQ(PlainText(), text);
    const std::string saved = Save(kRtf);
    EXPECT_NE(saved.find("\\u937?\\b0 \\u322?"), std::string::npos) << saved;
    EXPECT_NE(saved.find("\\i \\u345?"), std::string::npos) << saved;
}
