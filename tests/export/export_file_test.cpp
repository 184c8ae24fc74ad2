#include "export/export_file.h"

#include "export/ansi_output.h"
#include "tests/export/export_fixture.h"

namespace {

// A disk with room for so many bytes, which counts what it is asked for.
struct Disk {
    static inline size_t room = SIZE_MAX;
    static inline int writes = 0;
    static inline int flushes = 0;
    static inline int flushedAfter = 0;  // how many writes were flushed at once

    Disk() {
        room = SIZE_MAX;
        writes = flushes = flushedAfter = 0;
    }

    static BOOL WINAPI Write(HANDLE file, LPCVOID bytes, DWORD count, LPDWORD written, LPOVERLAPPED overlapped) {
        ++writes;
        const DWORD fits = static_cast<DWORD>(std::min<size_t>(count, room));
        room -= fits;
        if (fits == 0) {
            *written = 0;
            SetLastError(ERROR_DISK_FULL);
            return FALSE;
        }
        return SystemCall<decltype(&::WriteFile)>("WriteFile")(file, bytes, fits, written, overlapped);
    }
    static BOOL WINAPI Flush(HANDLE file) {
        if (++flushes == writes) ++flushedAfter;
        return SystemCall<decltype(&::FlushFileBuffers)>("FlushFileBuffers")(file);
    }
};

class ExportFileTest : public ExportTest {
protected:
    bool Create(const std::wstring& path) {
        return file_.Create(path.c_str(), GENERIC_WRITE, FILE_SHARE_WRITE, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL);
    }

    ExportFile file_;
};

}  // namespace

TEST_F(ExportFileTest, WritesAndEndsTheFile) {
    ASSERT_TRUE(Create(File()));
    file_.Write("one");
    file_.Write("two");
    file_.SetEnd();
    file_.Close();
    EXPECT_EQ(Bytes(File()), "onetwo");
}

TEST_F(ExportFileTest, NothingStaysOfALongerFile) {
    WriteBytes(File(), "something much longer");
    ASSERT_TRUE(Create(File()));
    file_.Write("short");
    file_.SetEnd();
    file_.Close();
    EXPECT_EQ(Bytes(File()), "short");
}

TEST_F(ExportFileTest, TakesNoSecondFile) {
    ASSERT_TRUE(Create(File()));
    EXPECT_FALSE(Create(folder_.File(L"other.csv")));
    EXPECT_FALSE(std::filesystem::exists(folder_.File(L"other.csv")));
    file_.Close();
    EXPECT_TRUE(Create(folder_.File(L"other.csv")));
}

TEST_F(ExportFileTest, APathThatCannotBeOpenedCountsAsMade) {
    const std::wstring path = (folder_.Path() / L"missing" / L"journal.csv").wstring();
    EXPECT_TRUE(Create(path));
    file_.Write("lost");
    file_.SetEnd();
    EXPECT_FALSE(Create(File())) << "it holds what the system answered";
    file_.Close();
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(ExportFileTest, AFolderIsNotWritten) {
    EXPECT_TRUE(Create(folder_.Path().wstring()));
    file_.Write("lost");
    file_.SetEnd();
    file_.Close();
    EXPECT_TRUE(std::filesystem::is_empty(folder_.Path()));
}

TEST_F(ExportFileTest, AReadOnlyFileStaysAsItIs) {
    const ReadOnlyRespected respected;
    WriteBytes(File(), "kept");
    ASSERT_TRUE(SetFileAttributesW(File().c_str(), FILE_ATTRIBUTE_READONLY));
    EXPECT_TRUE(Create(File()));
    file_.Write("lost");
    file_.SetEnd();
    file_.Close();
    EXPECT_EQ(Bytes(File()), "kept");
    SetFileAttributesW(File().c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(ExportFileTest, AFileThatAnotherProgramHoldsStaysAsItIs) {
    WriteBytes(File(), "kept");
    const HANDLE other = CreateFileW(File().c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(other, INVALID_HANDLE_VALUE);
    EXPECT_TRUE(Create(File()));
    file_.Write("lost");
    file_.SetEnd();
    file_.Close();
    CloseHandle(other);
    EXPECT_EQ(Bytes(File()), "kept");
}

TEST_F(ExportFileTest, EveryWriteIsFlushed) {
    Disk disk;
    const ReplacedImport write(nullptr, "WriteFile", Disk::Write);
    const ReplacedImport flush(nullptr, "FlushFileBuffers", Disk::Flush);
    ASSERT_TRUE(Create(File()));
    file_.Write("one");
    file_.Write("two");
    EXPECT_EQ(Disk::writes, 2);
    EXPECT_EQ(Disk::flushes, 2);
    EXPECT_EQ(Disk::flushedAfter, 2);
}

TEST_F(ExportFileTest, AFullDiskKeepsWhatFitAndEndsTheFileThere) {
    WriteBytes(File(), "what was there before");
    Disk disk;
    Disk::room = 4;
    const ReplacedImport write(nullptr, "WriteFile", Disk::Write);
    ASSERT_TRUE(Create(File()));
    file_.Write("onetwo");
    file_.Write("three");
    file_.SetEnd();
    EXPECT_TRUE(file_.Failed());
    file_.Close();
    EXPECT_EQ(Bytes(File()), "onet");
}

TEST_F(ExportFileTest, WhateverTheSystemRefusesIsAFailure) {
    struct Refused {
        static BOOL WINAPI Handle(HANDLE) { return FALSE; }
    };
    ASSERT_TRUE(Create(File()));
    file_.Write("one");
    file_.SetEnd();
    EXPECT_FALSE(file_.Failed());
    {
        const ReplacedImport end(nullptr, "SetEndOfFile", Refused::Handle);
        file_.SetEnd();
    }
    EXPECT_TRUE(file_.Failed());
    file_.Close();
    ASSERT_TRUE(Create(File()));
    EXPECT_FALSE(file_.Failed()) << "another file, another fate";
    {
        const ReplacedImport flush(nullptr, "FlushFileBuffers", Refused::Handle);
        file_.Write("two");
    }
    EXPECT_TRUE(file_.Failed());
    file_.Close();
    ASSERT_TRUE(Create((folder_.Path() / L"missing" / L"journal.csv").wstring()));
    EXPECT_TRUE(file_.Failed());
}

class AnsiOutputTest : public ExportFileTest {};

TEST_F(AnsiOutputTest, GathersTextIntoLargePieces) {
    Disk disk;
    const ReplacedImport write(nullptr, "WriteFile", Disk::Write);
    ASSERT_TRUE(Create(File()));
    AnsiOutput output(file_);
    const std::wstring line(1000, L'x');
    const size_t lines = 3 * AnsiOutput::kPiece / line.size();
    for (size_t i = 0; i < lines; ++i)
        output.Put(line);
    EXPECT_EQ(Disk::writes, 2);
    output.Flush();
    EXPECT_EQ(Disk::writes, 3);
    output.Flush();
    EXPECT_EQ(Disk::writes, 3) << "there was nothing left";
    file_.Close();
    EXPECT_EQ(Bytes(File()), std::string(lines * line.size(), 'x'));
}

TEST_F(AnsiOutputTest, WritesTheSystemsCodePageWithoutAMark) {
    ASSERT_TRUE(Create(File()));
    AnsiOutput output(file_);
    const std::wstring text = L"caf\u00e9 \u0416 \u2014 \u4e2d \U0001f600";
    output.Put(text);
    output.Put(L"");
    output.Flush();
    file_.Close();
    EXPECT_EQ(Bytes(File()), Ansi(text));
    if (GetACP() == 1252) {
        EXPECT_EQ(Bytes(File()), "caf\xe9 ? \x97 ? ??");
    }
}
