#include "ui/note_reader.h"

#include <gtest/gtest.h>
#include <note_text.h>

#include "tests/ui/test_windows.h"

namespace {

const std::string kStream = "{\\rtf1\\ansi{\\fonttbl{\\f0 Tahoma;}}\\f0 one\\par caf\\'e9}";

class NoteReaderTest : public testing::Test {
protected:
    NoteReaderTest() { InitRichInkDLL(); }

    bool Read(const std::string& stream) {
        return reader_.Read(reinterpret_cast<const BYTE*>(stream.data()), stream.size(), text_);
    }
    HWND Control() const { return GetDlgItem(parent_.Handle(), 78); }

    RecordingWindow parent_;
    NoteReader reader_{parent_.Handle(), 78};
    std::wstring text_ = L"before";
};

}  // namespace

TEST_F(NoteReaderTest, TakesTheTextThatAStreamCarriesWithoutAControl) {
    std::string stream = kStream;
    AddNoteText(&stream, L"carried");
    EXPECT_TRUE(Read(stream));
    EXPECT_EQ(text_, L"carried");
    EXPECT_EQ(Control(), nullptr);
}

TEST_F(NoteReaderTest, ReadsAForeignStreamAsTheControlShowsIt) {
    EXPECT_TRUE(Read(kStream));
    EXPECT_EQ(text_, L"one\r\ncaf\u00E9");
    ASSERT_NE(Control(), nullptr);
    EXPECT_FALSE(IsWindowVisible(Control()));
    EXPECT_TRUE(Read("{\\rtf1 two}"));
    EXPECT_EQ(text_, L"two");
}

TEST_F(NoteReaderTest, AStreamChangedSinceItWasWrittenIsReadAsItIs) {
    std::string stream = kStream;
    AddNoteText(&stream, L"carried");
    stream.insert(stream.size() - 1, "s");
    EXPECT_TRUE(Read(stream));
    EXPECT_EQ(text_, L"one\r\ncaf\u00E9s");
}

TEST_F(NoteReaderTest, WhatIsNoNoteHasNoText) {
    EXPECT_FALSE(Read("plain text"));
    EXPECT_EQ(text_, L"");
    EXPECT_TRUE(Read(kStream));
    EXPECT_TRUE(Read(""));
    EXPECT_EQ(text_, L"");
}

TEST_F(NoteReaderTest, WithoutAParentForeignNotesAreEmpty) {
    NoteReader orphan(reinterpret_cast<HWND>(INT_PTR{1}), 1);
    EXPECT_FALSE(orphan.Read(reinterpret_cast<const BYTE*>(kStream.data()), kStream.size(), text_));
    EXPECT_EQ(text_, L"");
}
