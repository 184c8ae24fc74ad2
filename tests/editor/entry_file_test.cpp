// Entries in a file: everything comes back, and whatever happens to the file, nothing worse than a missing entry.
#include "editor/entry_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "data/db_journal.h"
#include "data/field_ids.h"
#include "tests/support/temp_folder.h"

namespace {

EntryFields Entry(const std::wstring& subject, size_t noteBytes) {
    EntryFields fields;
    DbJournal().Initialize(&fields);
    FindFieldByPropID(fields, kPropSubject)->SetStrValue(subject.c_str());
    FindFieldByPropID(fields, kPropCompany)->SetStrValue(L"Ω ł 🦤");
    FindFieldByPropID(fields, kPropPriority)->SetShort(2);
    FindFieldByPropID(fields, kPropStart)->SetFileTime({4711, 30'000'000});
    std::vector<BYTE> note(noteBytes, 0xA5);
    const CEBLOB blob = {static_cast<DWORD>(note.size()), note.data()};
    FindFieldByPropID(fields, kPropBody)->SetBlob(&blob);
    return fields;
}

bool Same(const EntryFields& one, const EntryFields& other) {
    auto field = other.begin();
    for (const DbJItem& mine : one) {
        if (field == other.end() || !(mine == *field)) return false;
        ++field;
    }
    return field == other.end();
}

class EntryFileTest : public testing::Test {
protected:
    std::string Bytes() const {
        std::ifstream file(std::filesystem::path(path_), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    void Put(const std::string& bytes) const { std::ofstream(std::filesystem::path(path_), std::ios::binary) << bytes; }
    bool Exists(const std::wstring& path) const { return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES; }

    TempFolder folder_;
    std::wstring path_ = folder_.File(L"entries");
    std::deque<EntryFields> read_;
};

}  // namespace

TEST_F(EntryFileTest, EverythingComesBack) {
    const std::deque<EntryFields> entries = {Entry(L"Lunch", 1'000'000), Entry(L"", 0),
                                             Entry(std::wstring(9999, L'x'), 1)};
    ASSERT_TRUE(WriteEntryFile(path_, entries));
    EXPECT_FALSE(Exists(path_ + L".new"));
    ASSERT_TRUE(ReadEntryFile(path_, &read_));
    ASSERT_EQ(read_.size(), 3u);
    for (size_t i = 0; i < 3; ++i)
        EXPECT_TRUE(Same(read_[i], entries[i])) << i;
}

TEST_F(EntryFileTest, AMissingFileHasNoEntriesAndIsSound) {
    EXPECT_TRUE(ReadEntryFile(path_, &read_));
    EXPECT_TRUE(ReadEntryFile(folder_.File(L"no\\folder"), &read_));
    EXPECT_TRUE(read_.empty());
}

TEST_F(EntryFileTest, NoEntriesAreNoFile) {
    EXPECT_TRUE(WriteEntryFile(path_, {}));
    ASSERT_TRUE(WriteEntryFile(path_, {Entry(L"Lunch", 5)}));
    EXPECT_TRUE(WriteEntryFile(path_, {}));
    EXPECT_FALSE(Exists(path_));
}

TEST_F(EntryFileTest, AFileThatCannotBeWrittenStaysAsItWas) {
    ASSERT_TRUE(WriteEntryFile(path_, {Entry(L"Lunch", 5)}));
    const std::string before = Bytes();
    CreateDirectoryW((path_ + L".new").c_str(), nullptr);
    EXPECT_FALSE(WriteEntryFile(path_, {Entry(L"Dinner", 5)}));
    EXPECT_EQ(Bytes(), before);
}

TEST_F(EntryFileTest, CutOffAnywhereItGivesTheEntriesBefore) {
    ASSERT_TRUE(WriteEntryFile(path_, {Entry(L"Lunch", 5)}));
    const size_t one = Bytes().size();
    ASSERT_TRUE(WriteEntryFile(path_, {Entry(L"Lunch", 5), Entry(L"Dinner", 7)}));
    const std::string whole = Bytes();
    for (size_t size = 0; size < whole.size(); ++size) {
        Put(whole.substr(0, size));
        read_.clear();
        EXPECT_EQ(ReadEntryFile(path_, &read_), size == 8 || size == one) << size;
        EXPECT_EQ(read_.size(), size >= one ? 1u : 0u) << size;
    }
}

TEST_F(EntryFileTest, AChangedByteCostsItsEntryAtMost) {
    ASSERT_TRUE(WriteEntryFile(path_, {Entry(L"Lunch", 5)}));
    const size_t one = Bytes().size();
    ASSERT_TRUE(WriteEntryFile(path_, {Entry(L"Lunch", 5), Entry(L"Dinner", 7)}));
    const std::string whole = Bytes();
    constexpr size_t kHeader = 8;
    constexpr size_t kSize = 4;  // of an entry: where the next begins is not known without it
    for (size_t at = 0; at < whole.size(); ++at) {
        std::string damaged = whole;
        damaged[at] = static_cast<char>(damaged[at] ^ 0x55);
        Put(damaged);
        read_.clear();
        EXPECT_FALSE(ReadEntryFile(path_, &read_)) << at;
        if (at < kHeader + kSize) continue;
        ASSERT_EQ(read_.size(), 1u) << at;
        const wchar_t* left = at < one ? L"Dinner" : L"Lunch";
        EXPECT_EQ(std::wstring(FindFieldByPropID(read_.front(), kPropSubject)->GetStrValue()), left) << at;
    }
}

TEST_F(EntryFileTest, AnythingElseIsNoEntries) {
    for (const std::string& bytes : {std::string("QJENTRY2"), std::string("hello"), std::string(100'000, '\xFF'),
                                     std::string("QJENTRY1") + std::string(12, '\xFF')}) {
        Put(bytes);
        EXPECT_FALSE(ReadEntryFile(path_, &read_));
        EXPECT_TRUE(read_.empty());
    }
}
