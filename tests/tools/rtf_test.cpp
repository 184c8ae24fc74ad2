#include "tools/journal_tool/rtf.h"

#include <gtest/gtest.h>
#include <win.h>

#include <algorithm>
#include <cstring>
#include <random>

namespace {

std::wstring Text(std::string_view rtf) {
    return TextOfRtf({reinterpret_cast<const unsigned char*>(rtf.data()), rtf.size()});
}

DWORD CALLBACK Feed(DWORD_PTR cookie, BYTE* buffer, LONG size, LONG* read) {
    auto* rest = reinterpret_cast<std::string_view*>(cookie);
    *read = static_cast<LONG>(std::min(rest->size(), static_cast<size_t>(size)));
    std::memcpy(buffer, rest->data(), static_cast<size_t>(*read));
    rest->remove_prefix(static_cast<size_t>(*read));
    return 0;
}

// What the system's rich edit shows for a stream.
std::wstring Shown(std::string_view rtf) {
    LoadLibraryW(L"msftedit.dll");
    const HWND edit =
        CreateWindowW(MSFTEDIT_CLASS, L"", ES_MULTILINE, 0, 0, 300, 300, nullptr, nullptr, nullptr, nullptr);
    EXPECT_NE(edit, nullptr);
    EDITSTREAM stream{reinterpret_cast<DWORD_PTR>(&rtf), 0, Feed};
    SendMessageW(edit, EM_STREAMIN, SF_RTF, reinterpret_cast<LPARAM>(&stream));
    EXPECT_EQ(stream.dwError, 0u);
    std::wstring text(static_cast<size_t>(GetWindowTextLengthW(edit)) + 1, L'\0');
    text.resize(static_cast<size_t>(GetWindowTextW(edit, text.data(), static_cast<int>(text.size()))));
    DestroyWindow(edit);
    std::erase(text, L'\r');
    while (text.ends_with(L'\n'))
        text.pop_back();
    return text;
}

constexpr const wchar_t* kTexts[] = {
    L"plain",
    L"two\nlines",
    L"a tab\there",
    L"{braces} and \\back\\slashes\\par",
    L"\x00E4\x00F6\x00FC \x20AC \x4E2D\x6587 \xD83D\xDE00",
    L"digit after \x00E9"
    L"5 and ? after \x00E9?",
    L"line\n\nempty between",
    L" blanks  kept ",
};

TEST(RtfTest, RichEditShowsTheTextThatWasPutIn) {
    for (const wchar_t* text : kTexts) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(text)));
        EXPECT_EQ(Shown(MakeRtf(text)), text);
    }
}

TEST(RtfTest, TextComesBack) {
    for (const wchar_t* text : kTexts)
        EXPECT_EQ(Text(MakeRtf(text)), text);
    EXPECT_EQ(MakeRtf(L""), "");
    EXPECT_EQ(Text(""), L"");
}

TEST(RtfTest, ReadsWhatOtherWritersWrite) {
    struct Case {
        const char* rtf;
        const wchar_t* text;
    };
    const Case cases[] = {
        {"{\\rtf1\\ansi caf\\'e9 \\'80}", L"caf\x00E9 \x20AC"},
        {"{\\rtf1 a\\par\nb\\line c}", L"a\nb\nc"},
        {"{\\rtf1{\\fonttbl{\\f0 Arial;}}{\\colortbl;\\red0;}{\\*\\generator Writer;}text}", L"text"},
        {"{\\rtf1 a{\\pict\\emfblip 0102030405}b}", L"ab"},
        {"{\\rtf1 a{\\pict\\bin4 {}}}b}c}", L"ac"},
        {"{\\rtf1\\uc2 \\u228 ae!}", L"\x00E4!"},
        {"{\\rtf1\\uc0\\u-10179\\u-8704 x}", L"\xD83D\xDE00x"},
        {"{\\rtf1 {\\b bold} and {\\i\\uc0 italic\\u33}\\u63?.}", L"bold and italic!?."},
        {"{\\rtf1 \\ldblquote so\\rdblquote\\emdash}", L"\x201Cso\x201D\x2014"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.rtf);
        EXPECT_EQ(Text(c.rtf), c.text);
    }
}

TEST(RtfTest, TruncatedAndSenselessStreamsAreReadWithoutHarm) {
    const std::string whole = MakeRtf(L"{a} \x4E2D\\\ttab\nend") + "\\'e9\\u\\bin99999999999 x\\*}}}}";
    for (size_t length = 0; length <= whole.size(); ++length) {
        const std::wstring text = Text(std::string_view(whole).substr(0, length));
        EXPECT_LE(text.size(), length);
    }
    std::mt19937 random(20010507);
    const std::string_view alphabet = "{}\\'*u-0123456789abinpr \n";
    for (int round = 0; round < 2000; ++round) {
        std::string senseless(random() % 80, ' ');
        for (char& c : senseless)
            c = alphabet[random() % alphabet.size()];
        EXPECT_LE(Text(senseless).size(), senseless.size());
    }
}

}  // namespace
