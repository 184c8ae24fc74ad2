#include "data/db_journal.h"

#include <gmock/gmock.h>
#include <storefault.h>

#include <cstring>
#include <string>
#include <vector>

#include "data/field_ids.h"
#include "data/record_buffer.h"
#include "tests/support/fresh_store.h"
#include "tests/support/message_boxes.h"

namespace {

std::vector<BYTE> Bytes(const DItemObject& item) {
    const CEBLOB* blob = item.GetBlob();
    return {blob->lpb, blob->lpb + blob->dwCount};
}

void SetBytes(DItemObject* item, std::vector<BYTE> bytes) {
    const CEBLOB blob{static_cast<DWORD>(bytes.size()), bytes.data()};
    item->SetBlob(&blob);
}

class DbJournalTest : public testing::Test {
protected:
    DbJournalTest() { EXPECT_TRUE(journal_.Open(nullptr)); }

    DbJItem* Field(CEPROPID propid) { return FindFieldByPropID(fields_, propid); }
    void NewEntry(const wchar_t* subject) {
        EXPECT_EQ(journal_.Read(0, &fields_), 0u);
        Field(kPropSubject)->SetStrValue(subject);
    }
    CEOID WriteNew(const wchar_t* subject) {
        NewEntry(subject);
        const CEOID oid = journal_.Write(0, &fields_);
        EXPECT_NE(oid, 0u);
        return oid;
    }
    void ExpectUnset() {
        ASSERT_EQ(fields_.GetCount(), 10);
        for (const DbJItem& field : fields_) {
            SCOPED_TRACE(field.GetID());
            const FILETIME time = field.GetFileTime();
            EXPECT_STREQ(field.GetStrValue(), L"");
            EXPECT_EQ(field.GetBlob()->dwCount, 0u);
            EXPECT_EQ(time.dwLowDateTime | time.dwHighDateTime, 0u);
            if (TypeFromPropID(field.GetPropID()) == CEVT_I2) {
                EXPECT_EQ(field.GetShort(), -1);
            }
        }
    }

    FreshStore store_;
    MessageBoxes boxes_;
    DbJournal journal_;
    TSList<DbJItem> fields_;
};

TEST_F(DbJournalTest, ReadingValuesLeavesNothingOfTheEntryBefore) {
    const CEOID oid = WriteNew(L"next");
    Field(kPropCategories)->Categories().Append(DbCItem(kPropCategoryName, L"Business"));
    Field(kPropContacts)->Contacts().Append(DbAItem());
    Field(kPropCompany)->SetStrValue(L"Acme");
    ASSERT_EQ(journal_.ReadValues(oid, &fields_), oid);
    EXPECT_STREQ(Field(kPropSubject)->GetStrValue(), L"next");
    EXPECT_STREQ(Field(kPropCompany)->GetStrValue(), L"");
    EXPECT_TRUE(Field(kPropCategories)->Categories().IsEmpty());
    EXPECT_TRUE(Field(kPropContacts)->Contacts().IsEmpty());
}

TEST_F(DbJournalTest, DefinitionsStandInTheOrderOfTheForm) {
    struct Definition {
        WORD id;
        CEPROPID propid;
        const wchar_t* label;
        int control;
        bool sortable;
        const wchar_t* defaultText;
    };
    const Definition definitions[] = {
        {102, 0x0066001F, L"Subject", 6, true, L"No Subject"},
        {105, 0x00690002, L"Entry Type", 6, true, L""},
        {101, 0x00650040, L"Start", 7, true, L""},
        {109, 0x006D0040, L"Duration", 6, true, L""},
        {107, 0x006B0002, L"Priority", 6, true, L""},
        {108, 0x006C0002, L"Sensitivity", 6, true, L""},
        {111, 0x006F001F, L"Company", 1, true, L"None"},
        {110, 0x006E0041, L"Contacts", 2, true, L"None"},
        {104, 0x00680041, L"Categories", 2, true, L"None"},
        {103, 0x00670041, L"Note", 2, false, L"None"},
    };
    ASSERT_TRUE(DbJournal().Initialize(&fields_));  // needs no open database
    ExpectUnset();
    const DbJItem* field = fields_.First();
    for (const Definition& expected : definitions) {
        SCOPED_TRACE(expected.id);
        EXPECT_EQ(field->GetID(), expected.id);
        EXPECT_EQ(field->GetPropID(), expected.propid);
        EXPECT_STREQ(field->GetLabel(), expected.label);
        EXPECT_EQ(field->GetCtrlType(), expected.control);
        EXPECT_EQ(field->IsFlag(kFieldSortable), expected.sortable);
        EXPECT_FALSE(field->IsFlag(kFieldExported));
        EXPECT_NE(field->GetItemType(), kItemLabelOnly);
        EXPECT_STREQ(field->GetDefaultText(), expected.defaultText);
        field = fields_.Next();
    }
    EXPECT_EQ(field, nullptr);
}

TEST_F(DbJournalTest, OpenMakesTheDatabaseSortedByStart) {
    SORTORDERSPEC orders[4] = {};
    journal_.GetSortOrders(orders);
    EXPECT_EQ(orders[0].propid, kPropStart);
    EXPECT_EQ(orders[0].dwFlags, 0u);
    EXPECT_TRUE(journal_.Exists(L"\\Journal Database"));
    EXPECT_EQ(journal_.GetRecordCount(), 0);
}

TEST_F(DbJournalTest, OpenFindsTheEntriesAndTheOrderAgain) {
    const CEOID b = WriteNew(L"b"), a = WriteNew(L"A");
    const SORTORDERSPEC order{kPropSubject, CEDB_SORT_CASEINSENSITIVE | CEDB_SORT_DESCENDING};
    ASSERT_TRUE(journal_.SetSortOrder(&order, 1));
    journal_.Close();
    FreshStore::Reopen();
    ASSERT_TRUE(journal_.Open(nullptr));
    EXPECT_EQ(journal_.SeekFirst(), b);
    EXPECT_EQ(journal_.SeekNext(), a);
    SORTORDERSPEC orders[4] = {};
    journal_.GetSortOrders(orders);
    EXPECT_EQ(orders[0].propid, order.propid);
    EXPECT_EQ(orders[0].dwFlags, order.dwFlags);
}

TEST_F(DbJournalTest, OpenTwiceHoldsOneHandle) {
    ASSERT_TRUE(journal_.Open(nullptr));
    const SORTORDERSPEC order{kPropSubject, 0};
    EXPECT_TRUE(journal_.SetSortOrder(&order, 1));  // a handle left behind would refuse it
}

TEST_F(DbJournalTest, DestructorClosesTheDatabase) {
    { DbJournal().Open(nullptr); }
    journal_.Close();
    EXPECT_TRUE(CeUnmountObjectStore());
}

TEST_F(DbJournalTest, OpenAnswersZeroWhenTheStoreFails) {
    journal_.Close();
    CeFailCall("CeOpenDatabase", 1, ERROR_IO_DEVICE);
    boxes_.Expect(L"CE Database Error", L"Error: 1117(57)\ncedbase");
    EXPECT_EQ(journal_.Open(nullptr), 0);
    EXPECT_EQ(journal_.GetHandle(), nullptr);
    for (const DWORD call : {2, 4}) {  // the third only keeps the order from being changed meanwhile
        SCOPED_TRACE(call);
        CeFailCall("CeOpenDatabase", call, ERROR_IO_DEVICE);
        boxes_.Expect(L"CE Database Error", L"Error: 1117(87)\ncedbase");
        EXPECT_EQ(journal_.Open(nullptr), 0);
        EXPECT_EQ(journal_.GetHandle(), nullptr);
    }
    EXPECT_NE(journal_.Open(nullptr), 0);
}

TEST_F(DbJournalTest, OpenAnswersZeroWhenTheDatabaseCannotBeMade) {
    ASSERT_TRUE(journal_.DeleteDatabase(0));
    CeFailCall("CeCreateDatabase", 1, ERROR_DISK_FULL);
    boxes_.Expect(L"CE Database Error", L"Error: 112(111)\ncedbase");
    EXPECT_EQ(journal_.Open(nullptr), 0);
    EXPECT_NE(journal_.Open(nullptr), 0);
}

TEST_F(DbJournalTest, EntryZeroIsNewAndNeedsNoDatabase) {
    DbJournal closed;
    EXPECT_EQ(closed.Read(0, &fields_), 0u);
    ExpectUnset();
}

TEST_F(DbJournalTest, ReadReplacesWhatTheListHeld) {
    const CEOID oid = WriteNew(L"kept");
    Field(kPropSubject)->SetStrValue(L"changed and not saved");
    Field(kPropCategories)->Categories().Append(DbCItem(kPropCategoryName, L"x"));
    ASSERT_EQ(journal_.Read(oid, &fields_), oid);
    EXPECT_EQ(fields_.GetCount(), 10);
    EXPECT_STREQ(Field(kPropSubject)->GetStrValue(), L"kept");
    EXPECT_TRUE(Field(kPropCategories)->Categories().IsEmpty());
    journal_.Read(0, &fields_);
    ExpectUnset();
}

TEST_F(DbJournalTest, EveryFieldIsReadAsItWasWritten) {
    NewEntry(L"Lunch with \x4E2D\x6587 \xD83D\xDE00 guests");
    Field(kPropEntryType)->SetShort(14);
    Field(kPropStart)->SetFileTime({0x89ABCDEF, 0x01C0D6D1});
    Field(kPropDuration)->SetFileTime({0x61C46800, 8});
    Field(kPropPriority)->SetShort(2);
    Field(kPropSensitivity)->SetShort(3);
    Field(kPropCompany)->SetStrValue(L"Talvern");
    SetBytes(Field(kPropContacts), {1, 0, 2, 0, 0, 0});
    SetBytes(Field(kPropCategories), {9, 0, 0, 0});
    SetBytes(Field(kPropBody), {'{', 0, 0xFF, '}'});
    TSList<DbJItem> written = fields_;

    const CEOID oid = journal_.Write(0, &fields_);
    ASSERT_NE(oid, 0u);
    journal_.Close();
    FreshStore::Reopen();
    ASSERT_TRUE(journal_.Open(nullptr));
    ASSERT_EQ(journal_.Read(oid, &fields_), oid);
    for (DbJItem& field : fields_) {
        SCOPED_TRACE(field.GetID());
        EXPECT_TRUE(field == *FindFieldByPropID(written, field.GetPropID()));
    }
    EXPECT_STREQ(Field(kPropSubject)->GetStrValue(), L"Lunch with \x4E2D\x6587 \xD83D\xDE00 guests");
    EXPECT_EQ(Bytes(*Field(kPropBody)), (std::vector<BYTE>{'{', 0, 0xFF, '}'}));
}

TEST_F(DbJournalTest, UnsetValuesAreReadAsUnset) {
    NewEntry(L"");
    const CEOID oid = journal_.Write(0, &fields_);
    ASSERT_EQ(journal_.Read(oid, &fields_), oid);
    ExpectUnset();
}

TEST_F(DbJournalTest, FieldsTheRecordLacksAreUnset) {
    CEPROPVAL value{};
    value.propid = kPropRecordFlags;
    const CEOID oid = journal_.WriteRecordProps(0, 1, &value);
    ASSERT_EQ(journal_.Read(oid, &fields_), oid);
    ExpectUnset();
}

TEST_F(DbJournalTest, LargeBodyIsKeptWhole) {
    std::vector<BYTE> body(5 * 1024 * 1024);
    for (size_t i = 0; i < body.size(); ++i)
        body[i] = static_cast<BYTE>(i * 2654435761u >> 13);
    NewEntry(L"inked");
    SetBytes(Field(kPropBody), body);
    const CEOID oid = journal_.Write(0, &fields_);
    ASSERT_EQ(journal_.Read(oid, &fields_), oid);
    EXPECT_TRUE(Bytes(*Field(kPropBody)) == body);
}

TEST_F(DbJournalTest, WriteWithAnIdReplacesThatEntry) {
    const CEOID oid = WriteNew(L"before");
    SetBytes(Field(kPropBody), {1, 2, 3});
    ASSERT_EQ(journal_.Write(oid, &fields_), oid);
    Field(kPropSubject)->SetStrValue(L"");
    Field(kPropBody)->SetBlob(nullptr);
    EXPECT_EQ(journal_.Write(oid, &fields_), oid);
    EXPECT_EQ(journal_.GetRecordCount(), 1);
    ASSERT_EQ(journal_.Read(oid, &fields_), oid);
    ExpectUnset();
}

TEST_F(DbJournalTest, WriteToADeletedEntryAnswersZero) {
    const CEOID oid = WriteNew(L"gone");
    ASSERT_TRUE(journal_.DeleteRecord(oid));
    boxes_.Expect(L"CE Database Error", L"Error: 87(484)\ncedbase");
    EXPECT_EQ(journal_.Write(oid, &fields_), 0u);
    EXPECT_EQ(journal_.GetRecordCount(), 0);
}

TEST_F(DbJournalTest, FailedWriteAnswersZeroAndKeepsTheOldEntry) {
    const CEOID oid = WriteNew(L"before");
    Field(kPropSubject)->SetStrValue(L"after");
    CeFailCall("CeWriteRecordProps", 1, ERROR_DISK_FULL);
    boxes_.Expect(L"CE Database Error", L"Error: 112(484)\ncedbase");
    EXPECT_EQ(journal_.Write(oid, &fields_), 0u);
    journal_.Read(oid, &fields_);
    EXPECT_STREQ(Field(kPropSubject)->GetStrValue(), L"before");
}

TEST_F(DbJournalTest, ReadOfADeletedEntryFailsInSilenceWithUnsetFields) {
    const CEOID oid = WriteNew(L"gone");
    ASSERT_TRUE(journal_.DeleteRecord(oid));
    EXPECT_NE(journal_.Read(oid, &fields_), oid);
    ExpectUnset();
    EXPECT_NE(journal_.Read(journal_.GetOid(), &fields_), journal_.GetOid());  // the database itself is no entry
}

TEST_F(DbJournalTest, ReadThatTheStoreFailsAnswersZero) {
    const CEOID oid = WriteNew(L"there");
    CeFailCall("CeReadRecordProps", 1, ERROR_IO_DEVICE);
    boxes_.Expect(L"CE Database Error", L"Error: 1117(541)\ncedbase");
    EXPECT_EQ(journal_.Read(oid, &fields_), 0u);
    ExpectUnset();
}

TEST_F(DbJournalTest, FlagsAreAPropertyBesideTheFields) {
    const CEOID oid = WriteNew(L"flagged");
    EXPECT_EQ(journal_.SetFlags(oid, 3), oid);
    ASSERT_EQ(journal_.Read(oid, &fields_), oid);
    EXPECT_STREQ(Field(kPropSubject)->GetStrValue(), L"flagged");
    journal_.Write(oid, &fields_);  // leaves the flags alone
    journal_.SeekToOid(oid);
    CEPROPID ids[] = {kPropRecordFlags};
    WORD count = 1;
    RecordBuffer record;
    ASSERT_EQ(journal_.ReadRecordProps(&count, ids, record.Put()), oid);
    ASSERT_TRUE(record.Has(0));
    EXPECT_EQ(record[0].val.ulVal, 3u);
    EXPECT_EQ(TypeFromPropID(kPropRecordFlags), CEVT_UI4);
    EXPECT_TRUE(HIWORD(kPropRecordFlags) < 101 || HIWORD(kPropRecordFlags) > 111);
}

TEST_F(DbJournalTest, FlagsOfNoEntryMakeNone) {
    EXPECT_EQ(journal_.SetFlags(0, 3), 0u);
    EXPECT_EQ(journal_.GetRecordCount(), 0);
}

TEST_F(DbJournalTest, SecondJournalSeesWhatTheFirstWrites) {
    DbJournal view;
    ASSERT_TRUE(view.Open(nullptr));
    const CEOID oid = WriteNew(L"seen");
    TSList<DbJItem> fields;
    ASSERT_EQ(view.Read(oid, &fields), oid);
    EXPECT_STREQ(FindFieldByPropID(fields, kPropSubject)->GetStrValue(), L"seen");
}

// Between looking for the database and making it another process may make it.
TEST_F(DbJournalTest, AJournalThatSomebodyMadeMeanwhileIsOpened) {
    const CEOID oid = journal_.GetOid();
    DbJournal late;
    CeFailCall("CeOpenDatabase", 1, ERROR_FILE_NOT_FOUND);  // so it looks to the one who comes second
    ASSERT_TRUE(late.Open(nullptr));
    EXPECT_EQ(late.GetOid(), oid);
}

TEST_F(DbJournalTest, AJournalThatCannotBeMadeIsToldAndNotOpened) {
    DbJournal late;
    CeFailCall("CeOpenDatabase", 1, ERROR_FILE_NOT_FOUND);
    CeFailCall("CeCreateDatabase", 1, ERROR_DISK_FULL);
    boxes_.Expect(L"CE Database Error", L"Error: 112(111)\ncedbase");
    EXPECT_FALSE(late.Open(nullptr));
}

TEST_F(DbJournalTest, EntriesStandInTheOrderOfTheirStart) {
    NewEntry(L"later");
    Field(kPropStart)->SetFileTime({0, 0x90000000});  // compared without sign
    const CEOID later = journal_.Write(0, &fields_);
    Field(kPropStart)->SetFileTime({5, 0x10000000});
    const CEOID earlier = journal_.Write(0, &fields_);
    EXPECT_EQ(journal_.SeekToOidIndex(earlier), 0);
    EXPECT_EQ(journal_.SeekToOidIndex(later), 1);
}

}  // namespace
