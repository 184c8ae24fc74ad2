// Many processes at work on one store: whoever reads gets an answer, and a true one.
#include <storebatch.h>
#include <storescan.h>

#include <atomic>
#include <future>
#include <memory>

#include "tests/objectstore/other_process.h"
#include "tests/objectstore/store_fixture.h"

namespace {

constexpr int kWriters = 5;
constexpr int kCalls = 60;     // of each writer
constexpr long kKept = 1'000;  // entries that nobody touches

// What a pass has visited, and what the store counts meanwhile: the same snapshot.
struct Tally {
    CEOID database;
    DWORD visited = 0;
    DWORD counted = 0;
};

BOOL CALLBACK Visit(CEOID, WORD, const CEPROPVAL*, void* context) {
    auto& tally = *static_cast<Tally*>(context);
    CEOIDINFO info = {};
    if (++tally.visited == 1 && CeOidGetInfo(tally.database, &info)) tally.counted = info.infDatabase.wNumRecords;
    return TRUE;
}

class CrowdTest : public StoreTest {
protected:
    CrowdTest() {
        database = Make({{kText, CEDB_SORT_CASEINSENSITIVE}});
        EXPECT_TRUE(CeBeginBatch());
        for (long i = 0; i < kKept; ++i)
            Add(database, (L"kept " + std::to_wstring(i)).c_str());
        EXPECT_TRUE(CeCommitBatch());
    }

    // Every question that a list asks; a failure names the first that got no or a wrong answer.
    void AskEverything() {
        CEOIDINFO info = {};
        ASSERT_TRUE(CeOidGetInfo(Oid(), &info)) << "error " << GetLastError();
        ASSERT_GE(info.infDatabase.wNumRecords, kKept);
        ASSERT_NE(First(database), 0u) << "error " << GetLastError();
        ASSERT_NE(First(database, kKept / 2), 0u) << "error " << GetLastError();
        ASSERT_NE(Last(database), 0u) << "error " << GetLastError();
        ASSERT_NE(Read(database, {kText}).record, 0u) << "error " << GetLastError();
        Tally tally{Oid()};
        ASSERT_TRUE(CeScanRecords(database, 0, nullptr, Visit, &tally)) << "error " << GetLastError();
        ASSERT_GE(tally.visited, DWORD{kKept});
        ASSERT_EQ(tally.visited, tally.counted);
        CEOID oid = 0;
        const DatabaseHandle another(CeOpenDatabase(&oid, L"\\Test", kText, 0, nullptr));
        ASSERT_NE(another, INVALID_HANDLE_VALUE) << "error " << GetLastError();
    }

    HANDLE database;
};

TEST_F(CrowdTest, EveryQuestionIsAnsweredWhileFiveProcessesWrite) {
    std::vector<std::unique_ptr<OtherProcess>> writers;
    for (int i = 0; i < kWriters; ++i) {
        writers.push_back(std::make_unique<OtherProcess>());
        ASSERT_EQ(writers.back()->Do("open \\Test 1001F"), std::to_string(Oid()));
    }
    std::atomic<int> working = kWriters;
    std::vector<std::future<std::string>> answers;
    for (int i = 0; i < kWriters; ++i) {
        answers.push_back(std::async(std::launch::async, [&working, &writer = *writers[static_cast<size_t>(i)], i] {
            std::string answer = writer.Do("busy " + std::to_string(i) + " " + std::to_string(kCalls));
            --working;
            return answer;
        }));
    }
    int rounds = 0;
    while (working > 0 && !HasFailure()) {
        AskEverything();
        ++rounds;
    }
    for (auto& answer : answers)
        EXPECT_EQ(answer.get(), "done");
    EXPECT_GT(rounds, 0);
    AskEverything();
    ExpectSound();
}

}  // namespace
