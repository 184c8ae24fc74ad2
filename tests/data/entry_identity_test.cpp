// An entry's UID and the time of its last change.
#include "data/entry_identity.h"

#include <set>

#include "data/field_ids.h"
#include "data/record_buffer.h"
#include "tests/support/fresh_store.h"
#include "tests/support/message_boxes.h"

namespace {

class EntryIdentityTest : public testing::Test {
protected:
    EntryIdentityTest() { EXPECT_TRUE(journal_.Open(nullptr)); }

    CEOID WriteNew() {
        TSList<DbJItem> fields;
        journal_.Read(0, &fields);
        return journal_.Write(0, &fields);
    }
    // 0 for none.
    ULONGLONG ChangedOf(CEOID entry) {
        CEPROPID ids[] = {kPropChanged};
        WORD count = 1;
        RecordBuffer record;
        EXPECT_EQ(journal_.SeekToOid(entry), entry);
        EXPECT_EQ(journal_.ReadRecordProps(&count, ids, record.Put()), entry);
        if (!record.Has(0)) return 0;
        const FILETIME time = record[0].val.filetime;
        return ULONGLONG{time.dwHighDateTime} << 32 | time.dwLowDateTime;
    }

    FreshStore store_;
    MessageBoxes boxes_;
    DbJournal journal_;
};

TEST_F(EntryIdentityTest, UidsAreVersionFourAndDiffer) {
    std::set<std::wstring> uids;
    for (int i = 0; i < 100; ++i) {
        const std::wstring uid = NewUid();
        ASSERT_EQ(uid.size(), 36u);
        for (const size_t dash : {8, 13, 18, 23})
            EXPECT_EQ(uid[dash], L'-');
        EXPECT_EQ(uid[14], L'4');
        EXPECT_NE(std::wstring(L"89ab").find(uid[19]), std::wstring::npos) << std::string(uid.begin(), uid.end());
        EXPECT_EQ(uid.find_first_not_of(L"0123456789abcdef-"), std::wstring::npos);
        uids.insert(uid);
    }
    EXPECT_EQ(uids.size(), 100u);
}

TEST_F(EntryIdentityTest, AnEntryGetsItsUidWhenItIsAskedForAndKeepsItThroughEdits) {
    const CEOID entry = WriteNew();
    EXPECT_EQ(FindUid(journal_, entry), L"");
    const std::wstring uid = NeedUid(journal_, entry);
    EXPECT_EQ(uid.size(), 36u);
    TSList<DbJItem> fields;
    ASSERT_EQ(journal_.Read(entry, &fields), entry);
    FindFieldByPropID(fields, kPropSubject)->SetStrValue(L"changed");
    ASSERT_EQ(journal_.Write(entry, &fields), entry);
    ASSERT_EQ(journal_.SetFlags(entry, 3), entry);
    EXPECT_EQ(NeedUid(journal_, entry), uid);
    EXPECT_EQ(FindUid(journal_, entry), uid);
}

TEST_F(EntryIdentityTest, BeingGivenAUidIsNoChangeOfTheEntry) {
    const CEOID entry = WriteNew();
    CEPROPVAL past{};
    past.propid = kPropChanged;
    past.val.filetime = {7, 0};
    ASSERT_EQ(journal_.WriteRecordProps(entry, 1, &past), entry);
    ASSERT_NE(NeedUid(journal_, entry), L"");
    EXPECT_EQ(ChangedOf(entry), 7u);
}

TEST_F(EntryIdentityTest, AnEntryWithoutATimeOfChangeStaysWithoutWhenItGetsAUid) {
    const CEOID entry = WriteNew();
    CEPROPVAL none{};
    none.propid = kPropChanged;
    none.wFlags = CEDB_PROPDELETE;
    ASSERT_EQ(journal_.WriteRecordProps(entry, 1, &none), entry);
    ASSERT_NE(NeedUid(journal_, entry), L"");
    EXPECT_EQ(ChangedOf(entry), 0u);
}

TEST_F(EntryIdentityTest, EveryWriteOfAnEntrySetsTheTimeOfItsChange) {
    const CEOID entry = WriteNew();
    const ULONGLONG written = ChangedOf(entry);
    EXPECT_NE(written, 0u);
    ASSERT_EQ(journal_.SetFlags(entry, 3), entry);
    EXPECT_GE(ChangedOf(entry), written);
}

TEST_F(EntryIdentityTest, AnEntryThatIsNotThereHasNone) {
    EXPECT_EQ(FindUid(journal_, 0), L"");
    EXPECT_EQ(NeedUid(journal_, 0), L"");
    EXPECT_EQ(NeedUid(journal_, 123456), L"");
}

}  // namespace
