#include <gmock/gmock.h>

#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "data/category_blob.h"
#include "data/contact_blob.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The bytes at the end of a block that can't be read beyond, so that one byte too many crashes.
class GuardedBytes {
public:
    explicit GuardedBytes(const std::vector<BYTE>& bytes) {
        constexpr size_t page = 4096;
        const size_t pages = bytes.size() / page + 2;
        base_ = static_cast<BYTE*>(VirtualAlloc(nullptr, pages * page, MEM_RESERVE, PAGE_NOACCESS));
        VirtualAlloc(base_, (pages - 1) * page, MEM_COMMIT, PAGE_READWRITE);
        blob_.dwCount = static_cast<DWORD>(bytes.size());
        blob_.lpb = base_ + (pages - 1) * page - bytes.size();
        if (!bytes.empty()) std::memcpy(blob_.lpb, bytes.data(), bytes.size());
    }
    ~GuardedBytes() { VirtualFree(base_, 0, MEM_RELEASE); }
    GuardedBytes(const GuardedBytes&) = delete;
    GuardedBytes& operator=(const GuardedBytes&) = delete;

    const CEBLOB& Blob() const { return blob_; }

private:
    BYTE* base_;
    CEBLOB blob_;
};

TSList<DbAItem> Contacts(const CEBLOB& blob) {
    TSList<DbAItem> contacts;
    ReadContactBlob(blob, &contacts);
    return contacts;
}

TSList<DbAItem> SomeContacts() {
    TSList<DbAItem> contacts;
    contacts.Append(DbAItem(L"Lee, Ann", L"Talvern"));
    contacts.Append(DbAItem(L"M\x00FCller", L""));
    contacts.Append(DbAItem(L"", L"Quillon"));
    return contacts;
}

TEST(CategoryBlobTest, IdsComeBackInTheirOrder) {
    const std::vector<CEOID> ids = {0x01020304, 7, 0xFFFFFFFF, 7};
    const GuardedBytes bytes(MakeCategoryBlob(ids));
    EXPECT_EQ(bytes.Blob().dwCount, 16u);
    EXPECT_EQ(bytes.Blob().lpb[0], 0x04);  // least significant byte first
    EXPECT_EQ(ReadCategoryBlob(bytes.Blob()), ids);
}

TEST(CategoryBlobTest, NoBytesAreNoCategories) {
    EXPECT_THAT(ReadCategoryBlob(CEBLOB{0, nullptr}), IsEmpty());
    EXPECT_THAT(ReadCategoryBlob(CEBLOB{8, nullptr}), IsEmpty());
    EXPECT_THAT(MakeCategoryBlob({}), IsEmpty());
}

TEST(CategoryBlobTest, ZerosAreNoCategories) {
    const GuardedBytes bytes(MakeCategoryBlob(std::vector<CEOID>{0, 5, 0}));
    EXPECT_THAT(ReadCategoryBlob(bytes.Blob()), ElementsAre(5));
}

TEST(CategoryBlobTest, CutAtAnyByteTheWholeIdsRemain) {
    const std::vector<CEOID> ids = {11, 22, 33};
    const std::vector<BYTE> whole = MakeCategoryBlob(ids);
    for (size_t length = 0; length <= whole.size(); ++length) {
        SCOPED_TRACE(length);
        const GuardedBytes cut({whole.begin(), whole.begin() + static_cast<ptrdiff_t>(length)});
        const std::vector<CEOID> expected(ids.begin(), ids.begin() + static_cast<ptrdiff_t>(length / 4));
        EXPECT_EQ(ReadCategoryBlob(cut.Blob()), expected);
    }
}

TEST(ContactBlobTest, IsNameAndCompanyEachWithItsNul) {
    TSList<DbAItem> contacts;
    contacts.Append(DbAItem(L"A", L"BC"));
    const wchar_t expected[] = L"A\0BC";
    const std::vector<BYTE> bytes = MakeContactBlob(contacts);
    ASSERT_EQ(bytes.size(), sizeof(expected));
    EXPECT_EQ(std::memcmp(bytes.data(), expected, sizeof(expected)), 0);
}

TEST(ContactBlobTest, ContactsComeBackInTheirOrder) {
    const GuardedBytes bytes(MakeContactBlob(SomeContacts()));
    TSList<DbAItem> contacts = Contacts(bytes.Blob());
    TSList<DbAItem> expected = SomeContacts();
    ASSERT_EQ(contacts.GetCount(), 3);
    for (DbAItem *got = contacts.First(), *want = expected.First(); want; got = contacts.Next(), want = expected.Next())
        EXPECT_TRUE(*got == *want);
}

TEST(ContactBlobTest, NoBytesAreNoContacts) {
    EXPECT_TRUE(Contacts(CEBLOB{0, nullptr}).IsEmpty());
    EXPECT_TRUE(Contacts(CEBLOB{8, nullptr}).IsEmpty());
    EXPECT_THAT(MakeContactBlob({}), IsEmpty());
}

TEST(ContactBlobTest, ContactWithNeitherNameNorCompanyIsNone) {
    EXPECT_TRUE(Contacts(GuardedBytes(std::vector<BYTE>(1000)).Blob()).IsEmpty());
}

TEST(ContactBlobTest, CutAtAnyByteWhatIsWholeRemains) {
    const std::vector<BYTE> whole = MakeContactBlob(SomeContacts());
    // Byte lengths at which the name, then the company, of each contact is complete.
    const size_t firstName = 18, firstCompany = 34, secondName = 48, thirdName = 52;
    ASSERT_EQ(whole.size(), thirdName + 16);
    for (size_t length = 0; length <= whole.size(); ++length) {
        SCOPED_TRACE(length);
        const GuardedBytes cut({whole.begin(), whole.begin() + static_cast<ptrdiff_t>(length)});
        TSList<DbAItem> contacts = Contacts(cut.Blob());
        const int expected = length < firstName ? 0 : length < secondName ? 1 : length < whole.size() ? 2 : 3;
        EXPECT_EQ(contacts.GetCount(), expected);
        if (const DbAItem* first = contacts.First()) {
            EXPECT_STREQ(first->GetStrValue(), L"Lee, Ann");
            EXPECT_STREQ(first->GetCompany(), length < firstCompany ? L"" : L"Talvern");
        }
    }
}

TEST(ContactBlobTest, AnyBytesAreReadWithoutHarm) {
    std::mt19937 random(20010507);
    for (int round = 0; round < 500; ++round) {
        std::vector<BYTE> bytes(random() % 300);
        for (BYTE& byte : bytes)
            byte = static_cast<BYTE>(random() % 3 ? 0 : random());
        const GuardedBytes guarded(bytes);
        const TSList<DbAItem> contacts = Contacts(guarded.Blob());
        // What was understood is written and understood again in the same way.
        const GuardedBytes again(MakeContactBlob(contacts));
        EXPECT_EQ(MakeContactBlob(Contacts(again.Blob())), MakeContactBlob(contacts));
        ReadCategoryBlob(guarded.Blob());
    }
}

TEST(ContactBlobTest, NamesAreJoinedWithSemicolons) {
    TSList<DbAItem> contacts;
    EXPECT_EQ(JoinContacts(contacts), L"");
    contacts.Append(DbAItem(L"Ann", L"Talvern"));
    EXPECT_EQ(JoinContacts(contacts), L"Ann");
    contacts.Append(DbAItem(L"Bob", L""));
    EXPECT_EQ(JoinContacts(contacts), L"Ann; Bob");
}

}  // namespace
