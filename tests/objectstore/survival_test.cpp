// A process that is killed while it writes: whatever it was told is written is there, whole, and nothing else.
#include <map>
#include <random>
#include <set>
#include <sstream>

#include "tests/objectstore/other_process.h"
#include "tests/objectstore/store_fixture.h"

namespace {

constexpr int kKills = 60;

class SurvivalTest : public StoreTest {
protected:
    struct Seen {
        std::set<long> there;   // written, and the write returned
        std::set<long> either;  // under way when it was killed
    };

    // Lets the other process write until it has told `lines` lines and a moment more, kills it, and adds up what it
    // told.
    void WriteAndKill(unsigned seed, int lines, unsigned moment) {
        OtherProcess other;
        ASSERT_EQ(other.Do("open \\Test 1001F"), std::to_string(Oid()));
        other.Send("write " + std::to_string(seed));
        std::vector<std::string> told;
        for (int i = 0; i < lines; ++i) {
            auto line = other.ReadLine();
            ASSERT_TRUE(line);
            told.push_back(*line);
        }
        LARGE_INTEGER frequency = {};
        LARGE_INTEGER start = {};
        LARGE_INTEGER now = {};
        QueryPerformanceFrequency(&frequency);
        QueryPerformanceCounter(&start);
        do {
            QueryPerformanceCounter(&now);
        } while ((now.QuadPart - start.QuadPart) * 1'000'000 / frequency.QuadPart < moment);
        other.Kill();
        while (auto line = other.ReadLine())
            told.push_back(*line);

        std::set<long> pending;
        for (const std::string& line : told) {
            std::istringstream words(line);
            std::string word;
            long number = 0;
            if (!(words >> word >> number)) continue;  // cut off in the middle
            if (word == "begin" || word == "undo") {
                pending = {number};
                seen.there.erase(number);
            } else {
                ASSERT_NE(word, "failed") << line;
                pending.clear();
                if (word == "done") seen.there.insert(number);
            }
        }
        seen.either.insert(pending.begin(), pending.end());
    }

    void ExpectWhatWasTold() {
        const HANDLE database = OpenBy(kText, CEDB_AUTOINCREMENT);
        std::set<long> found;
        for (;;) {
            const ReadResult read = Read(database, {kText, kNumber, kBlob});
            if (read.record == 0) break;
            const long number = read[1].val.lVal;
            EXPECT_EQ(read.Text(0), L"entry " + std::to_wstring(number));
            const std::string body(static_cast<size_t>(number % 7) * 900, static_cast<char>('a' + number % 26));
            EXPECT_EQ(std::string(reinterpret_cast<char*>(read[2].val.blob.lpb), read[2].val.blob.dwCount), body);
            EXPECT_TRUE(found.insert(number).second) << number << " is there twice";
        }
        for (const long number : seen.there)
            EXPECT_TRUE(found.contains(number)) << number << " is lost";
        for (const long number : found) {
            EXPECT_TRUE(seen.there.contains(number) || seen.either.contains(number)) << number << " was never written";
        }
        CloseHandle(database);
    }

    Seen seen;
};

TEST_F(SurvivalTest, EveryAcknowledgedEntryOutlivesTheWriter) {
    Make({{kText, CEDB_SORT_CASEINSENSITIVE}, {kNumber, 0}});
    Reopen();
    std::mt19937 random(2024);
    for (int kill = 1; kill <= kKills && !HasFailure(); ++kill) {
        WriteAndKill(static_cast<unsigned>(kill), static_cast<int>(1 + random() % 60), random() % 3000);
        if (kill % 10 == 0) {
            ExpectWhatWasTold();
            ExpectSound();
            Reopen();
        }
    }
    EXPECT_GT(seen.there.size(), 200u);
    RecordProperty("entries", static_cast<int>(seen.there.size()));
}

}  // namespace
