// Every place from which the database layer reports, each with its own line number.
#include <gtest/gtest.h>

#include <fstream>

#include "tests/data/sample_database.h"

namespace {

class CeDbaseReportTest : public SampleDatabaseTest {
protected:
    void Expect(DWORD error, int line) { boxes_.Expect(kReportTitle, Report(error, line)); }
    // Nothing is open in it.
    CeDbase closed_;
};

TEST_F(CeDbaseReportTest, IsAnExclamationWithoutOwner) {
    boxes_.Expect(kReportTitle, L"Error: 1392(42)\nSomewhere");
    SetLastError(1392);
    EXPECT_EQ(base_.ReportError(42, L"Somewhere"), IDOK);
    EXPECT_EQ(GetLastError(), 1392u);
    ASSERT_EQ(boxes_.Seen().size(), 1u);
    EXPECT_EQ(boxes_.Seen()[0].icon, static_cast<UINT>(MB_ICONEXCLAMATION));
    EXPECT_EQ(boxes_.Seen()[0].buttons, static_cast<UINT>(MB_OK));
    EXPECT_EQ(boxes_.Seen()[0].owner, nullptr);
}

TEST_F(CeDbaseReportTest, TellsTheLowSixteenBitsOfTheLine) {
    boxes_.Expect(kReportTitle, L"Error: 0(57)\ncedbase");
    SetLastError(0);
    base_.ReportError(0x30000 + 57, L"cedbase");
}

TEST_F(CeDbaseReportTest, ExistsReports57ForAnyErrorButAMissingDatabase) {
    CeFailCall("CeOpenDatabase", 1, ERROR_NOT_ENOUGH_MEMORY);
    Expect(ERROR_NOT_ENOUGH_MEMORY, 57);
    EXPECT_FALSE(closed_.Exists(kSample));
    CeFailCall("CeOpenDatabase", 1, ERROR_INVALID_PARAMETER);
    Expect(ERROR_INVALID_PARAMETER, 57);
    EXPECT_FALSE(closed_.Exists(kSample));
    CeFailCall("CeOpenDatabase", 1, ERROR_FILE_NOT_FOUND);
    EXPECT_FALSE(closed_.Exists(kSample));
}

TEST_F(CeDbaseReportTest, ExistsReports57ForADamagedStore) {
    base_.Close();
    FreshStore::Reopen();
    std::ofstream(std::filesystem::path(store_.File()), std::ios::binary | std::ios::trunc) << std::string(20000, 'x');
    Expect(ERROR_FILE_CORRUPT, 57);
    EXPECT_FALSE(closed_.Exists(kSample));
}

TEST_F(CeDbaseReportTest, OpenReports87) {
    Expect(ERROR_FILE_NOT_FOUND, 87);
    EXPECT_FALSE(closed_.Open(L"\\Nowhere", 0, 0, nullptr));
    EXPECT_EQ(closed_.GetHandle(), nullptr);
    CeFailCall("CeOpenDatabase", 1, ERROR_NOT_ENOUGH_MEMORY);
    Expect(ERROR_NOT_ENOUGH_MEMORY, 87);
    EXPECT_FALSE(closed_.Open(kSample, 0, 0, nullptr));
}

TEST_F(CeDbaseReportTest, OpenIsSilentForABadParameter) {
    CeFailCall("CeOpenDatabase", 1, ERROR_INVALID_PARAMETER);
    EXPECT_FALSE(closed_.Open(kSample, 0, 0, nullptr));
    EXPECT_EQ(closed_.GetHandle(), nullptr);
}

TEST_F(CeDbaseReportTest, CreateReports111AndLeavesNoId) {
    Expect(ERROR_DUP_NAME, 111);
    EXPECT_FALSE(closed_.Create(kSample, 0, 0, nullptr));
    EXPECT_EQ(closed_.GetOid(), 0u);
    CeFailCall("CeCreateDatabase", 1, ERROR_DISK_FULL);
    Expect(ERROR_DISK_FULL, 111);
    EXPECT_FALSE(closed_.Create(L"\\Other", 0, 0, nullptr));
}

TEST_F(CeDbaseReportTest, DeleteDatabaseReports154) {
    Expect(ERROR_SHARING_VIOLATION, 154);
    EXPECT_FALSE(closed_.DeleteDatabase(base_.GetOid()));
    Expect(ERROR_INVALID_PARAMETER, 154);
    EXPECT_FALSE(closed_.DeleteDatabase(0));
}

TEST_F(CeDbaseReportTest, GetInfoReports192WhenNotOpen) {
    CEOIDINFO info{};
    SetLastError(0);
    Expect(0, 192);
    EXPECT_FALSE(closed_.GetInfo(&info));
    Expect(0, 192);
    EXPECT_EQ(closed_.GetRecordCount(), 0);
    ASSERT_TRUE(closed_.Create(L"\\Other", 0, 0, nullptr));  // an id alone is not enough
    SetLastError(0);
    Expect(0, 192);
    EXPECT_FALSE(closed_.GetInfo(&info));
}

TEST_F(CeDbaseReportTest, SortOrderOfAClosedDatabaseReports192) {
    const SORTORDERSPEC order{kText, 0};
    SetLastError(0);
    Expect(0, 192);
    EXPECT_FALSE(closed_.SetSortOrder(&order, 1));
}

TEST_F(CeDbaseReportTest, GetRecordParentReports207) {
    SetLastError(0);
    Expect(0, 207);
    EXPECT_EQ(base_.GetRecordParent(0), 0u);
    const CEOID record = Insert({1, {}, {}});
    SetLastError(0);
    Expect(0, 207);
    EXPECT_EQ(closed_.GetRecordParent(record), 0u);
}

TEST_F(CeDbaseReportTest, DeleteRecordReports326) {
    const CEOID record = Insert({1, {}, {}});
    CeFailCall("CeDeleteRecord", 1, ERROR_DISK_FULL);
    Expect(ERROR_DISK_FULL, 326);
    EXPECT_FALSE(base_.DeleteRecord(record));
    EXPECT_TRUE(base_.DeleteRecord(record));
    Expect(ERROR_INVALID_PARAMETER, 326);
    EXPECT_FALSE(base_.DeleteRecord(record));
}

TEST_F(CeDbaseReportTest, WriteRecordPropsReports484) {
    CEPROPVAL value = Number(1);
    Expect(ERROR_INVALID_PARAMETER, 484);
    EXPECT_EQ(base_.WriteRecordProps(0x7FFFFFFF, 1, &value), 0u);
    CeFailCall("CeWriteRecordProps", 1, ERROR_DISK_FULL);
    Expect(ERROR_DISK_FULL, 484);
    EXPECT_EQ(base_.WriteRecordProps(0, 1, &value), 0u);
    EXPECT_EQ(base_.GetRecordCount(), 0);
}

TEST_F(CeDbaseReportTest, ReadRecordPropsReportsByError) {
    struct Case {
        DWORD error;
        int line;  // 0: silent
    };
    const Case cases[] = {{ERROR_INVALID_PARAMETER, 514}, {ERROR_INSUFFICIENT_BUFFER, 526},
                          {ERROR_NO_DATA, 526},           {ERROR_IO_DEVICE, 541},
                          {ERROR_FILE_CORRUPT, 541},      {ERROR_INVALID_HANDLE, 541},
                          {ERROR_NO_MORE_ITEMS, 0},       {ERROR_KEY_DELETED, 0}};
    Insert({1, {}, {}});
    base_.SeekFirst();
    for (const Case& c : cases) {
        SCOPED_TRACE(c.error);
        CEPROPID ids[] = {kNumber};
        WORD count = 1;
        RecordBuffer record;
        CeFailCall("CeReadRecordProps", 1, c.error);
        if (c.line) Expect(c.error, c.line);
        EXPECT_EQ(base_.ReadRecordProps(&count, ids, record.Put()), 0u);
        EXPECT_EQ(GetLastError(), c.error);
        RecordBuffer again;
        EXPECT_NE(base_.ReadRecordProps(&count, ids, again.Put()), 0u);  // usable as before
    }
}

TEST_F(CeDbaseReportTest, ReadOfAClosedDatabaseReports514) {
    CEPROPID ids[] = {kNumber};
    WORD count = 1;
    RecordBuffer record;
    Expect(ERROR_INVALID_PARAMETER, 514);
    EXPECT_EQ(closed_.ReadRecordProps(&count, ids, record.Put()), 0u);
}

TEST_F(CeDbaseReportTest, ScanReportsAsAReadDoes) {
    InsertNumbers(3);
    const auto count = [](CEOID, WORD, const CEPROPVAL* values, void* sum) -> BOOL {
        *static_cast<long*>(sum) += values[0].val.lVal;
        return TRUE;
    };
    const CEPROPID ids[] = {kNumber};
    long sum = 0;
    CeFailCall("CeScanRecords", 1, ERROR_IO_DEVICE);
    Expect(ERROR_IO_DEVICE, 541);
    EXPECT_FALSE(base_.Scan(1, ids, count, &sum));
    EXPECT_FALSE(closed_.Scan(1, ids, count, &sum));  // silently, as it would be a seek that fails
    EXPECT_EQ(sum, 0);
    EXPECT_TRUE(base_.Scan(1, ids, count, &sum));
    EXPECT_EQ(sum, 60);
}

TEST_F(CeDbaseReportTest, SetSortOrderReports579AndGoesBackToTheOldOrder) {
    const std::vector<CEOID> oids = InsertNumbers(2);
    // The change fails for want of room, so there is no order by date to open.
    CeFailCall("CeSetDatabaseInfo", 1, ERROR_DISK_FULL);
    Expect(ERROR_DISK_FULL, 579);
    const SORTORDERSPEC order{kDate, 0};
    EXPECT_FALSE(base_.SetSortOrder(&order, 1));
    CEPROPVAL value = Number(20);
    EXPECT_EQ(base_.SeekValueFirstEqual(&value), oids[1]);
}

TEST_F(CeDbaseReportTest, SetSortOrderOpensTheNewOrderAfterAFailureThatKeptIt) {
    CeFailCall("CeSetDatabaseInfo", 1, ERROR_DISK_FULL);
    const SORTORDERSPEC order{kText, 0};  // one of the database's orders already
    EXPECT_TRUE(base_.SetSortOrder(&order, 1));
}

TEST_F(CeDbaseReportTest, SetSortOrderThatCannotReopenAtAllIsNotOpen) {
    CeFailCall("CeOpenDatabase", 1, ERROR_IO_DEVICE);
    CeFailCall("CeOpenDatabase", 2, ERROR_IO_DEVICE);
    Expect(ERROR_IO_DEVICE, 579);
    const SORTORDERSPEC order{kText, 0};
    EXPECT_FALSE(base_.SetSortOrder(&order, 1));
    EXPECT_EQ(base_.GetHandle(), nullptr);
    EXPECT_EQ(base_.GetOid(), 0u);
}

TEST_F(CeDbaseReportTest, SetSortOrderStopsWhenTheHandleCannotBeClosed) {
    ASSERT_TRUE(CloseHandle(base_.GetHandle()));
    const SORTORDERSPEC order{kText, 0};
    EXPECT_FALSE(base_.SetSortOrder(&order, 1));
    CEOIDINFO info{};
    ASSERT_TRUE(CeOidGetInfo(base_.GetOid(), &info));
    EXPECT_EQ(info.infDatabase.rgSortSpecs[0].propid, kNumber);
}

}  // namespace
