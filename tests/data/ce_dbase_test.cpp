#include "data/ce_dbase.h"

#include <gmock/gmock.h>

#include <thread>
#include <utility>

#include "tests/data/sample_database.h"
#include "tests/support/pump.h"
#include "tests/support/replaced_import.h"

namespace {

using testing::ElementsAre;

class CeDbaseTest : public SampleDatabaseTest {};

TEST_F(CeDbaseTest, IsNotOpenAtFirst) {
    CeDbase base;
    EXPECT_EQ(base.GetHandle(), nullptr);
    EXPECT_EQ(base.GetOid(), 0u);
    EXPECT_FALSE(base.Close());
}

TEST_F(CeDbaseTest, CreateKeepsTheIdAndOpensNothing) {
    CeDbase base;
    ASSERT_TRUE(base.Create(L"\\Other", 1, 0, nullptr));
    EXPECT_NE(base.GetOid(), 0u);
    EXPECT_EQ(base.GetHandle(), nullptr);
    const CEOID made = base.GetOid();
    ASSERT_TRUE(base.Open(L"\\Other", 0, 0, nullptr));
    EXPECT_EQ(base.GetOid(), made);
    EXPECT_TRUE(base.Close());
    EXPECT_EQ(base.GetOid(), 0u);
    EXPECT_EQ(base.GetHandle(), nullptr);
}

TEST_F(CeDbaseTest, DestructorLeavesTheDatabaseOpen) {
    HANDLE handle;
    {
        CeDbase base;
        ASSERT_TRUE(base.Open(kSample, kNumber, 0, nullptr));
        handle = base.GetHandle();
    }
    EXPECT_TRUE(CloseHandle(handle));
}

TEST_F(CeDbaseTest, MissingDatabaseDoesNotExistAndNothingIsShown) {
    EXPECT_FALSE(base_.Exists(L"\\Nowhere"));
    EXPECT_TRUE(base_.Exists(kSample));
    EXPECT_EQ(base_.GetRecordCount(), 0);  // and the object is as open as before
}

TEST_F(CeDbaseTest, OpenOnAPropertyThatIsNoSortOrderFailsInSilence) {
    CeDbase base;
    EXPECT_FALSE(base.Open(kSample, kDate, 0, nullptr));
    EXPECT_EQ(base.GetHandle(), nullptr);
    EXPECT_EQ(base.GetOid(), 0u);
}

TEST_F(CeDbaseTest, DeleteDatabaseWithoutIdClosesAndDeletesItsOwn) {
    ASSERT_TRUE(base_.DeleteDatabase(0));
    EXPECT_EQ(base_.GetHandle(), nullptr);
    EXPECT_EQ(base_.GetOid(), 0u);
    EXPECT_FALSE(base_.Exists(kSample));
}

TEST_F(CeDbaseTest, DeleteDatabaseDeletesOneThatWasCreatedAndNeverOpened) {
    CeDbase base;
    ASSERT_TRUE(base.Create(L"\\Other", 1, 0, nullptr));
    EXPECT_TRUE(base.DeleteDatabase(0));
    EXPECT_FALSE(base.Exists(L"\\Other"));
}

TEST_F(CeDbaseTest, DeleteDatabaseByIdLeavesItsOwnOpen) {
    CeDbase other;
    ASSERT_TRUE(other.Create(L"\\Other", 1, 0, nullptr));
    EXPECT_TRUE(base_.DeleteDatabase(other.GetOid()));
    EXPECT_NE(base_.GetHandle(), nullptr);
    EXPECT_FALSE(base_.Exists(L"\\Other"));
}

TEST_F(CeDbaseTest, InfoTellsNameOrdersAndCount) {
    InsertNumbers(3);
    CEOIDINFO info{};
    ASSERT_TRUE(base_.GetInfo(&info));
    EXPECT_EQ(info.wObjType, OBJTYPE_DATABASE);
    EXPECT_STREQ(info.infDatabase.szDbaseName, kSample);
    EXPECT_EQ(info.infDatabase.wNumSortOrder, 2);
    EXPECT_EQ(base_.GetRecordCount(), 3);
}

TEST_F(CeDbaseTest, SortOrdersAreCopiedAsFarAsThereAreAny) {
    SORTORDERSPEC orders[4] = {{1, 1}, {2, 2}, {3, 3}, {4, 4}};
    base_.GetSortOrders(orders);
    EXPECT_EQ(orders[0].propid, kNumber);
    EXPECT_EQ(orders[1].propid, kText);
    EXPECT_EQ(orders[2].propid, 3u);
    EXPECT_EQ(orders[3].dwFlags, 4u);
}

TEST_F(CeDbaseTest, RecordKnowsItsDatabase) {
    const CEOID record = Insert({1, {}, {}});
    EXPECT_EQ(base_.GetRecordParent(record), base_.GetOid());
    EXPECT_EQ(base_.GetRecordParent(base_.GetOid()), 0u);  // a database is no record
    EXPECT_EQ(base_.GetRecordParent(0x7FFFFFFF), 0u);
}

TEST_F(CeDbaseTest, SeeksMoveOneSharedPosition) {
    const std::vector<CEOID> oids = InsertNumbers(4);
    EXPECT_EQ(base_.SeekFirst(), oids[0]);
    EXPECT_EQ(base_.SeekNext(), oids[1]);
    EXPECT_EQ(base_.SeekCurrent(), oids[1]);
    EXPECT_EQ(base_.SeekFromBeginning(3), oids[3]);
    EXPECT_EQ(base_.SeekPrevious(), oids[2]);
    EXPECT_EQ(base_.SeekToOid(oids[1]), oids[1]);
    EXPECT_EQ(base_.SeekNext(), oids[2]);
}

TEST_F(CeDbaseTest, SeeksBeyondTheEndsAnswerZeroInSilence) {
    const std::vector<CEOID> oids = InsertNumbers(2);
    EXPECT_EQ(base_.SeekFromBeginning(2), 0u);
    base_.SeekToOid(oids[1]);
    EXPECT_EQ(base_.SeekNext(), 0u);
    base_.SeekFirst();
    EXPECT_EQ(base_.SeekPrevious(), 0u);
    EXPECT_EQ(base_.SeekToOid(0x7FFFFFFF), 0u);
}

TEST_F(CeDbaseTest, SeeksOnAClosedDatabaseAnswerZeroInSilence) {
    CeDbase base;
    CEPROPVAL value = Number(1);
    EXPECT_EQ(base.SeekFirst() | base.SeekNext() | base.SeekPrevious() | base.SeekCurrent() | base.SeekToOid(1), 0u);
    EXPECT_EQ(base.SeekValueFirstEqual(&value) | base.SeekValueNextEqual(0, &value), 0u);
    EXPECT_EQ(base.SeekToOidIndex(1), -1);
}

TEST_F(CeDbaseTest, IndexIsThePlaceInTheOpenOrder) {
    const CEOID high = Insert({30, {}, {}}), low = Insert({10, {}, {}});
    EXPECT_EQ(base_.SeekToOidIndex(low), 0);
    EXPECT_EQ(base_.SeekToOidIndex(high), 1);
    EXPECT_EQ(base_.SeekCurrent(), high);
    EXPECT_EQ(base_.SeekToOidIndex(0x7FFFFFFF), -1);
    EXPECT_EQ(base_.SeekToOidIndex(0), -1);
}

TEST_F(CeDbaseTest, ValueSeeksWalkTheEqualRecords) {
    Insert({10, {}, {}});
    const CEOID first = Insert({20, {}, {}}), second = Insert({20, {}, {}});
    Insert({30, {}, {}});
    CEPROPVAL twenty = Number(20), fifteen = Number(15);
    base_.SeekFromBeginning(3);  // the first-equal seek starts from the beginning by itself
    EXPECT_EQ(base_.SeekValueFirstEqual(&twenty), first);
    EXPECT_EQ(base_.SeekValueNextEqual(0, &twenty), second);
    EXPECT_EQ(base_.SeekValueNextEqual(0, &twenty), 0u);
    EXPECT_EQ(base_.SeekValueNextEqual(first, &twenty), second);
    EXPECT_EQ(base_.SeekValueFirstEqual(&fifteen), 0u);
}

TEST_F(CeDbaseTest, ReadAnswersTheRecordAndFlagsWhatItLacks) {
    const CEOID oid = Insert({5, L"five", {}});
    base_.SeekToOid(oid);
    CEPROPID ids[] = {kText, kDate, kNumber};
    WORD count = 3;
    RecordBuffer record;
    ASSERT_EQ(base_.ReadRecordProps(&count, ids, record.Put()), oid);
    EXPECT_EQ(count, 3);
    EXPECT_STREQ(record[0].val.lpwstr, L"five");
    EXPECT_FALSE(record.Has(1));
    EXPECT_EQ(record[1].wFlags & CEDB_PROPNOTFOUND, CEDB_PROPNOTFOUND);
    EXPECT_EQ(record[2].val.lVal, 5);
}

TEST_F(CeDbaseTest, ReadOfOnlyMissingPropertiesSucceeds) {
    const CEOID oid = Insert({5, {}, {}});
    base_.SeekToOid(oid);
    CEPROPID ids[] = {kDate};
    WORD count = 1;
    RecordBuffer record;
    EXPECT_EQ(base_.ReadRecordProps(&count, ids, record.Put()), oid);
    EXPECT_FALSE(record.Has(0));
}

TEST_F(CeDbaseTest, ReadWithoutIdsAnswersAllProperties) {
    base_.SeekToOid(Insert({5, L"five", Date(2001, 5, 7)}));
    CEPROPID none[] = {0, kText};
    for (CEPROPID* ids : {static_cast<CEPROPID*>(nullptr), none}) {
        WORD count = 0;
        RecordBuffer record;
        EXPECT_NE(base_.ReadRecordProps(&count, ids, record.Put()), 0u);
        EXPECT_EQ(count, 3);
        EXPECT_EQ(record[0].propid, kNumber);
    }
}

TEST_F(CeDbaseTest, ReadIntoABlockOfTheCallersMakesItLarger) {
    base_.SeekToOid(Insert({5, std::wstring(5000, L'x'), {}}));
    BYTE* buffer = static_cast<BYTE*>(LocalAlloc(LMEM_FIXED, 16));
    CEPROPID ids[] = {kText};
    WORD count = 1;
    EXPECT_NE(base_.ReadRecordProps(&count, ids, &buffer), 0u);
    EXPECT_EQ(wcslen(reinterpret_cast<CEPROPVAL*>(buffer)->val.lpwstr), 5000u);
    LocalFree(buffer);
}

TEST_F(CeDbaseTest, EndsOfAWalkAreReadInSilence) {
    const std::vector<CEOID> oids = InsertNumbers(1);
    CEPROPID ids[] = {kNumber};
    WORD count = 1;
    RecordBuffer past, gone;
    base_.SeekFromBeginning(1);
    EXPECT_EQ(base_.ReadRecordProps(&count, ids, past.Put()), 0u);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_NO_MORE_ITEMS));
    base_.SeekToOid(oids[0]);
    ASSERT_TRUE(CeDeleteRecord(base_.GetHandle(), oids[0]));
    EXPECT_EQ(base_.ReadRecordProps(&count, ids, gone.Put()), 0u);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_KEY_DELETED));
}

TEST_F(CeDbaseTest, WriteChangesOnlyWhatItNames) {
    const CEOID oid = Insert({5, L"five", {}});
    CEPROPVAL six = Number(6);
    EXPECT_EQ(base_.WriteRecordProps(oid, 1, &six), oid);
    base_.SeekToOid(oid);
    CEPROPID ids[] = {kNumber, kText};
    WORD count = 2;
    RecordBuffer record;
    base_.ReadRecordProps(&count, ids, record.Put());
    EXPECT_EQ(record[0].val.lVal, 6);
    EXPECT_STREQ(record[1].val.lpwstr, L"five");
}

TEST_F(CeDbaseTest, DeleteLeavesThePositionOnTheFirstRecord) {
    const std::vector<CEOID> oids = InsertNumbers(3);
    base_.SeekToOid(oids[2]);
    EXPECT_TRUE(base_.DeleteRecord(oids[1]));
    EXPECT_EQ(base_.SeekCurrent(), oids[0]);
    EXPECT_EQ(base_.GetRecordCount(), 2);
}

TEST_F(CeDbaseTest, FailedDeleteLeavesThePositionOnTheFirstRecordToo) {
    const std::vector<CEOID> oids = InsertNumbers(3);
    base_.SeekToOid(oids[2]);
    boxes_.Expect(kReportTitle, Report(ERROR_INVALID_PARAMETER, 326));
    EXPECT_FALSE(base_.DeleteRecord(0x7FFFFFFF));
    EXPECT_EQ(base_.SeekCurrent(), oids[0]);
    EXPECT_EQ(base_.GetRecordCount(), 3);
}

TEST_F(CeDbaseTest, SetSortOrderGoesOnInTheNewOrder) {
    const CEOID b = Insert({1, L"b", {}}), a = Insert({2, L"a", {}});
    const CEOID oid = base_.GetOid();
    const SORTORDERSPEC order{kText, 0};
    ASSERT_TRUE(base_.SetSortOrder(&order, 1));
    EXPECT_EQ(base_.GetOid(), oid);
    EXPECT_EQ(base_.SeekFirst(), a);
    EXPECT_EQ(base_.SeekNext(), b);
    CEOIDINFO info{};
    ASSERT_TRUE(base_.GetInfo(&info));
    EXPECT_EQ(info.infDatabase.wNumSortOrder, 1);
    EXPECT_EQ(info.infDatabase.rgSortSpecs[0].propid, kText);
    EXPECT_STREQ(info.infDatabase.szDbaseName, kSample);
}

TEST_F(CeDbaseTest, SetSortOrderTakesItsFlags) {
    const std::vector<CEOID> oids = InsertNumbers(3);
    const SORTORDERSPEC order{kNumber, CEDB_SORT_DESCENDING};
    ASSERT_TRUE(base_.SetSortOrder(&order, 1));
    EXPECT_EQ(base_.SeekFirst(), oids[2]);
}

TEST_F(CeDbaseTest, SetSortOrderWhileAnotherHoldsTheDatabaseKeepsTheOldOrder) {
    const std::vector<CEOID> oids = InsertNumbers(2);
    CeDbase other;
    ASSERT_TRUE(other.Open(kSample, kNumber, 0, nullptr));
    boxes_.Expect(L"Database Error", L"Database Inuse by another process\nOperation halted!");
    const SORTORDERSPEC order{kText, 0};
    EXPECT_FALSE(base_.SetSortOrder(&order, 1));
    ASSERT_EQ(boxes_.Seen().size(), 1u);
    EXPECT_EQ(boxes_.Seen()[0].icon, static_cast<UINT>(MB_ICONHAND));
    EXPECT_EQ(boxes_.Seen()[0].owner, nullptr);
    EXPECT_EQ(base_.SeekFirst(), oids[0]);
    CEPROPVAL value = Number(20);
    EXPECT_EQ(base_.SeekValueFirstEqual(&value), oids[1]);  // seeks by number still work
    EXPECT_TRUE(other.Close());
}

TEST_F(CeDbaseTest, SetSortOrderReopensByTheDatabasesFirstOrder) {
    // Open on the second order; the way back is to the first.
    CeDbase other;
    ASSERT_TRUE(other.Open(kSample, kText, 0, nullptr));
    boxes_.Expect(L"Database Error", L"Database Inuse by another process\nOperation halted!");
    const SORTORDERSPEC order{kDate, 0};
    EXPECT_FALSE(other.SetSortOrder(&order, 1));
    const CEOID oid = Insert({10, {}, {}});
    CEPROPVAL value = Number(10);
    EXPECT_EQ(other.SeekValueFirstEqual(&value), oid);
    EXPECT_TRUE(other.Close());
}

// Stands in for a box, and counts the records behind it.
struct Box {
    static inline CeDbase* behind = nullptr;
    static inline std::vector<WORD> counts;
    static int WINAPI Show(HWND, LPCWSTR, LPCWSTR, UINT) {
        if (CeDbase* database = std::exchange(behind, nullptr)) {  // a count that fails shows a box as well
            counts.push_back(database->GetHandle() ? database->GetRecordCount() : WORD{0});
            behind = database;
        }
        return IDOK;
    }
};

// Behind the box, which nobody owns, windows go on drawing what they read.
TEST_F(CeDbaseTest, BehindTheBoxOfAFailedSortOrderTheDatabaseCanBeRead) {
    InsertNumbers(2);
    CeDbase other;
    ASSERT_TRUE(other.Open(kSample, kNumber, 0, nullptr));
    Box::behind = &base_;
    const ReplacedImport box(L"ORVANE.DLL", "MessageBoxW", Box::Show);
    const SORTORDERSPEC order{kText, 0};
    EXPECT_FALSE(base_.SetSortOrder(&order, 1));
    EXPECT_TRUE(other.Close());
    CeFailCall("CeSetDatabaseInfo", 1, ERROR_DISK_FULL);
    const SORTORDERSPEC missing{kDate, 0};
    EXPECT_FALSE(base_.SetSortOrder(&missing, 1));
    EXPECT_EQ(Box::counts, (std::vector<WORD>{2, 2}));
}

// A window that counts the messages of changed databases.
class ChangeCounter {
public:
    ChangeCounter() : window_(CreateWindowW(L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr)) {}
    ~ChangeCounter() { DestroyWindow(window_); }
    ChangeCounter(const ChangeCounter&) = delete;
    ChangeCounter& operator=(const ChangeCounter&) = delete;

    HWND Window() const { return window_; }
    bool CameWithin(unsigned milliseconds) const {
        const ULONGLONG end = GetTickCount64() + milliseconds;
        do {
            MSG message;
            if (PeekMessageW(&message, window_, DB_CEOID_CREATED, DB_CEOID_CREATED, PM_REMOVE)) return true;
            MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
        } while (GetTickCount64() < end);
        return false;
    }

private:
    HWND window_;
};

TEST_F(CeDbaseTest, NotifyWindowStaysThroughASortOrderChange) {
    const ChangeCounter counter;
    CeDbase watched;
    base_.Close();
    ASSERT_TRUE(watched.Open(kSample, kNumber, 0, counter.Window()));
    const SORTORDERSPEC order{kText, 0};
    ASSERT_TRUE(watched.SetSortOrder(&order, 1));
    std::thread([] {
        CeDbase other;
        ASSERT_TRUE(other.Open(kSample, kText, 0, nullptr));
        CEPROPVAL value = Number(1);
        EXPECT_NE(other.WriteRecordProps(0, 1, &value), 0u);
        other.Close();
    }).join();
    EXPECT_TRUE(counter.CameWithin(kPatience));
    watched.Close();
}

}  // namespace
