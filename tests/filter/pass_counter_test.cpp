// Counting in pieces while the store changes.
#include "filter/pass_counter.h"

#include "data/db_journal.h"
#include "tests/filter/filter_fixture.h"

namespace {

class PassCounterTest : public FilterTest {
protected:
    PassCounterTest() {
        EXPECT_TRUE(journal_.Open(nullptr));
        for (WORD day = 1; day <= 28; ++day)
            for (WORD month = 1; month <= 4; ++month)
                Add(month, day);
        filter_.active = TRUE;
        filter_.months = 0x0003;
    }
    ~PassCounterTest() override { journal_.Close(); }

    CEOID Add(WORD month, WORD day) {
        CEPROPVAL start = {};
        start.propid = kPropStart;
        start.val.filetime = At(2001, month, day).ToFileTime();
        const CEOID id = journal_.WriteRecordProps(0, 1, &start);
        EXPECT_NE(id, 0u);
        return id;
    }
    void CountToTheEnd() {
        for (int i = 0; i < 100 && !counter_.Continue(0); ++i)
            continue;
    }

    DbJournal journal_;
    PassCounter counter_{journal_, filter_};
};

TEST_F(PassCounterTest, CountsInPieces) {
    counter_.Start();
    EXPECT_FALSE(counter_.Continue(0));
    CountToTheEnd();
    EXPECT_EQ(counter_.Total(), 112);
    EXPECT_EQ(counter_.Passed(), 56);
}

TEST_F(PassCounterTest, CountsEveryEntryOnceWhenTheOneCountedLastIsDeleted) {
    counter_.Start();
    ASSERT_FALSE(counter_.Continue(0));
    const int counted = counter_.Total();
    ASSERT_GT(counted, 0);
    ASSERT_TRUE(journal_.DeleteRecord(journal_.SeekFromBeginning(static_cast<DWORD>(counted) - 1)));
    CountToTheEnd();
    EXPECT_EQ(counter_.Total(), 111);
    EXPECT_EQ(counter_.Passed(), 55);
}

}  // namespace
