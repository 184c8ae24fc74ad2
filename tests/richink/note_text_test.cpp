// The text that a stream carries, and the control that waits with the rest.
#include "note_text.h"

#include <gmock/gmock.h>

#include "tests/richink/rich_ink_fixture.h"

namespace {

const std::string kStream = "{\\rtf1\\ansi{\\fonttbl{\\f0 Tahoma;}}\\f0 rich}";

class HiddenRichInkTest : public RichInkTest {
protected:
    HiddenRichInkTest() { ShowWindow(Parent(), SW_HIDE); }

    std::wstring PlainText() const {
        const std::string bytes = Save(kText);
        return {reinterpret_cast<const wchar_t*>(bytes.data()), bytes.size() / sizeof(wchar_t) - 1};
    }
    // What is in the rich edit when somebody asks for more than the text.
    std::wstring Realised() const {
        Send(WM_GETTEXTLENGTH);
        return PlainText();
    }
};

}  // namespace

TEST(NoteTextTest, ComesBackAsItWas) {
    for (const std::wstring text :
         {L"", L"plain", L"two\r\nlines", L"{b\\r}a\tc}e", L" blanks ", L"\u00E4\u9728\U0001F600", L"\\u65?", L"}"}) {
        std::string stream = kStream;
        AddNoteText(&stream, text);
        std::wstring read = L"before";
        EXPECT_TRUE(GetNoteText(stream, &read));
        EXPECT_EQ(read, text);
    }
}

TEST(NoteTextTest, ComesBackWhateverStandsWhere) {
    for (size_t length = 0; length < 70; ++length) {
        for (size_t at = 0; at < length; ++at) {
            for (const wchar_t odd : {L'{', L'}', L'\\', L'\t', L'\u007F', L'\u0080', L'\u9728', L'\0'}) {
                std::wstring text(length, L'x');
                text[at] = odd;
                std::string stream = kStream;
                AddNoteText(&stream, text);
                std::wstring read;
                EXPECT_TRUE(GetNoteText(stream, &read));
                EXPECT_EQ(read, text);
            }
        }
    }
}

TEST(NoteTextTest, ALongTextComesBackWhole) {
    std::wstring text;
    while (text.size() < 100'000)
        text += L"Words {and} \u9728 more of them.\r\n";
    std::string stream = kStream;
    AddNoteText(&stream, text);
    std::wstring read;
    EXPECT_TRUE(GetNoteText(stream, &read));
    EXPECT_EQ(read, text);
}

TEST(NoteTextTest, AStreamWithoutOneHasNone) {
    for (const std::string& stream :
         {std::string(), std::string("{"), kStream, std::string("{\\rtf1{\\*\\plainnote ")}) {
        std::wstring text = L"before";
        EXPECT_FALSE(GetNoteText(stream, &text));
        EXPECT_EQ(text, L"");
    }
}

TEST(NoteTextTest, AChangedOrCutStreamDoesNotVouchForItsText) {
    std::string stream = kStream;
    AddNoteText(&stream, L"some {text} of \u9728");
    std::wstring text;
    for (size_t at = 0; at < stream.size(); ++at) {
        EXPECT_FALSE(GetNoteText(stream.substr(0, at), &text)) << at;
        std::string changed = stream;
        changed[at] ^= 1;
        EXPECT_FALSE(GetNoteText(changed, &text)) << at;
        EXPECT_EQ(text, L"");
    }
    EXPECT_FALSE(GetNoteText(stream + " ", &text));
}

TEST_F(HiddenRichInkTest, AnswersTheTextThatTheRichTextShows) {
    for (const std::wstring text : {L"plain", L"two\r\nlines", L"ends in a line end\r\n", L"\r\n\r\n", L"a\tb {c} \\d",
                                    L"\u00E4\u9728\U0001F600 \u200B.", L" blanks  "}) {
        LoadText(text);
        const std::wstring before = PlainText();
        const std::string saved = Save(kRtf);
        std::wstring carried;
        ASSERT_TRUE(GetNoteText(saved, &carried));
        EXPECT_EQ(carried, before);
        Load(kRtf, saved);
        EXPECT_EQ(PlainText(), before);
        EXPECT_EQ(Realised(), before);
    }
}

TEST_F(HiddenRichInkTest, WaitsUntilMoreThanTheTextIsWanted) {
    // A stream whose two texts differ, as no control writes them, tells which of them was read.
    std::string stream = kStream;
    AddNoteText(&stream, L"carried");
    Load(kRtf, stream);
    EXPECT_EQ(PlainText(), L"carried");
    EXPECT_FALSE(IsModified());
    ShowWindow(Parent(), SW_SHOW);
    RedrawWindow(Ink(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    EXPECT_EQ(PlainText(), L"rich");
    Load(kRtf, stream);
    EXPECT_EQ(PlainText(), L"rich");
}

TEST_F(HiddenRichInkTest, EveryUseFindsTheContents) {
    std::string stream = kStream;
    AddNoteText(&stream, L"rich");
    Load(kRtf, stream);
    EXPECT_EQ(Text(), L"rich");
    Load(kRtf, stream);
    Write(L"x");
    EXPECT_EQ(PlainText(), L"xrich");
    Load(kRtf, stream);
    EXPECT_EQ(PlainText(), L"rich");
    Replace(L"y");
    EXPECT_EQ(PlainText(), L"yrich");
    Load(kRtf, stream);
    EXPECT_NE(Save(kRtf).find("rich}"), std::string::npos);
    Load(kRtf, stream);
    Load(kRtf, "");
    EXPECT_EQ(PlainText(), L"");
    EXPECT_EQ(Realised(), L"");
}

TEST_F(HiddenRichInkTest, AStreamOfAnotherProgramIsReadAsItIs) {
    Load(kRtf, kStream);
    EXPECT_EQ(PlainText(), L"rich");
    std::string forged = kStream;
    AddNoteText(&forged, L"carried");
    forged.insert(forged.size() - 1, "er");
    Load(kRtf, forged);
    EXPECT_EQ(PlainText(), L"richer");
}
