// Many writes as one.
#include <storebatch.h>
#include <storefault.h>

#include <thread>

#include "tests/objectstore/store_fixture.h"

namespace {

class BatchTest : public StoreTest {
protected:
    BatchTest() { database = Make({{kText, 0}}); }
    HANDLE database;
};

TEST_F(BatchTest, AllOfABatchIsThereAfterItsEnd) {
    ASSERT_TRUE(CeBeginBatch());
    const CEOID b = Add(database, L"b");
    const CEOID a = Add(database, L"a");
    EXPECT_EQ(Order(database), (std::vector<CEOID>{a, b})) << "the batch itself sees what it wrote";
    ASSERT_TRUE(CeCommitBatch());
    Reopen();
    EXPECT_EQ(Order(OpenBy(kText)), (std::vector<CEOID>{a, b}));
    ExpectSound();
}

TEST_F(BatchTest, NothingOfACancelledBatchStays) {
    const CEOID kept = Add(database, L"m");
    ASSERT_TRUE(CeBeginBatch());
    Add(database, L"a");
    Write(database, {TextValue(kText, L"z"), NumberValue(kNumber, 1)}, kept);
    const std::string large(5000, 'x');
    Write(database, {BlobValue(kBlob, large.data(), large.size())}, kept);
    CeCreateDatabase(L"made in the batch", 1, 0, nullptr);
    ASSERT_TRUE(CeCancelBatch());
    EXPECT_EQ(Order(database), std::vector<CEOID>{kept});
    EXPECT_EQ(ReadAt(database, kept, {kText}).Text(0), L"m");
    EXPECT_EQ(Count(Oid()), 1);
    CEOID oid = 0;
    EXPECT_EQ(CeOpenDatabase(&oid, L"made in the batch", 0, 0, nullptr), INVALID_HANDLE_VALUE);
    EXPECT_NE(Write(database, {NumberValue(kNumber, 1)}, kept), 0u) << "the new column is forgotten too";
    ExpectSound();
}

TEST_F(BatchTest, AFailedWriteLeavesTheRestOfTheBatch) {
    ASSERT_TRUE(CeBeginBatch());
    Add(database, L"a");
    EXPECT_EQ(Write(database, {TextValue(kText, nullptr)}), 0u);
    EXPECT_EQ(Write(database, {TextValue(kText, L"x")}, 999'999), 0u);
    EXPECT_FALSE(CeDeleteRecord(database, 999'999));
    Add(database, L"b");
    ASSERT_TRUE(CeCommitBatch());
    EXPECT_EQ(Count(Oid()), 2);
    ExpectSound();
}

TEST_F(BatchTest, ThereIsOneBatchAtATime) {
    EXPECT_FALSE(CeCommitBatch());
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
    EXPECT_FALSE(CeCancelBatch());
    ASSERT_TRUE(CeBeginBatch());
    EXPECT_FALSE(CeBeginBatch());
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
    EXPECT_FALSE(CeUnmountObjectStore());
    EXPECT_TRUE(CeCommitBatch());
    EXPECT_FALSE(CeCommitBatch());
}

TEST_F(BatchTest, ABatchThatCannotBeCommittedIsOver) {
    ASSERT_TRUE(CeBeginBatch());
    Add(database, L"a");
    CeFailCall("CeCommitBatch", 1, ERROR_DISK_FULL);
    EXPECT_FALSE(CeCommitBatch());
    EXPECT_EQ(GetLastError(), DWORD{ERROR_DISK_FULL});
    EXPECT_EQ(Count(Oid()), 0);
    WORD seen = 1;
    std::thread([&] { seen = Count(Oid()); }).join();
    EXPECT_EQ(seen, 0) << "other threads need not wait any longer";
}

TEST_F(BatchTest, OtherThreadsWaitForItsEnd) {
    ASSERT_TRUE(CeBeginBatch());
    Add(database, L"a");
    WORD seen = 0;
    std::thread other([&] { seen = Count(Oid()); });
    Add(database, L"b");
    ASSERT_TRUE(CeCommitBatch());
    other.join();
    EXPECT_EQ(seen, 2);
}

TEST_F(BatchTest, ThreadsMayWriteAtTheSameTime) {
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([oid = Oid()]() mutable {
            const HANDLE own = CeOpenDatabase(&oid, nullptr, kText, 0, nullptr);
            for (int i = 0; i < 25; ++i)
                EXPECT_NE(Add(own, L"x"), 0u);
            EXPECT_NE(First(own, 24), 0u);
            CloseHandle(own);
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(Count(Oid()), 100);
    ExpectSound();
}

}  // namespace
