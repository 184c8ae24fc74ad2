#include <gtest/gtest.h>

#include "tests/data/sample_database.h"

namespace {

class CeDbaseFindTest : public SampleDatabaseTest {
protected:
    CEOID FirstString(const wchar_t* text, BOOL matchCase = FALSE) {
        CEPROPID ids[] = {kText, 0};
        return base_.FindFirstString(ids, text, matchCase);
    }
    CEOID NextString(CEOID start, const wchar_t* text, BOOL matchCase = FALSE) {
        CEPROPID ids[] = {kText, 0};
        return base_.FindString(start, ids, text, matchCase);
    }
    CEOID FirstDate(FILETIME date) {
        CEPROPID ids[] = {kDate, 0};
        return base_.FindFirstDate(ids, date);
    }
    CEOID NextDate(CEOID start, FILETIME date) {
        CEPROPID ids[] = {kDate, 0};
        return base_.FindDate(start, ids, date);
    }
};

TEST_F(CeDbaseFindTest, StringMatchesAnywhereWithoutRegardToCase) {
    Insert({1, L"nothing", {}});
    const CEOID oid = Insert({2, L"xxABCyy", {}});
    EXPECT_EQ(FirstString(L"abc"), oid);
    EXPECT_EQ(FirstString(L"yy"), oid);
    EXPECT_EQ(FirstString(L"abd"), 0u);
}

TEST_F(CeDbaseFindTest, StringMatchesLettersBeyondAsciiWithoutRegardToCase) {
    const CEOID oid = Insert({1,
                              L"Gr\x00FC\x00DF"
                              L"e aus K\x00D6LN",
                              {}});
    EXPECT_EQ(FirstString(L"GR\x00DC"), oid);
    EXPECT_EQ(FirstString(L"k\x00F6ln"), oid);
}

TEST_F(CeDbaseFindTest, StringWithMatchCaseDistinguishes) {
    const CEOID upper = Insert({1, L"xxABCyy", {}}), lower = Insert({2, L"xxabcyy", {}});
    EXPECT_EQ(FirstString(L"abc", TRUE), lower);
    EXPECT_EQ(FirstString(L"ABC", TRUE), upper);
    EXPECT_EQ(FirstString(L"Abc", TRUE), 0u);
}

TEST_F(CeDbaseFindTest, EmptyStringNeverMatchesNotEvenAnEmptyText) {
    Insert({1, L"", {}});
    EXPECT_EQ(FirstString(L""), 0u);
    EXPECT_EQ(FirstString(L"", TRUE), 0u);
    const CEOID filled = Insert({2, L"x", {}});
    EXPECT_EQ(FirstString(L""), filled);
}

TEST_F(CeDbaseFindTest, RecordWithoutThePropertyIsPassedOver) {
    Insert({1, {}, {}});
    const CEOID oid = Insert({2, L"abc", Date(2001, 5, 7)});
    EXPECT_EQ(FirstString(L"abc"), oid);
    EXPECT_EQ(FirstDate(Date(2001, 5, 7)), oid);
}

TEST_F(CeDbaseFindTest, FirstMatchFollowsTheSortOrder) {
    const CEOID later = Insert({20, L"abc", {}}), earlier = Insert({10, L"abc", {}});
    EXPECT_EQ(FirstString(L"abc"), earlier);
    EXPECT_EQ(NextString(earlier, L"abc"), later);
}

TEST_F(CeDbaseFindTest, StringBeginsAfterTheStartRecord) {
    const CEOID first = Insert({1, L"abc", {}}), second = Insert({2, L"abc", {}});
    EXPECT_EQ(NextString(first, L"abc"), second);
    EXPECT_EQ(NextString(second, L"abc"), 0u);
}

TEST_F(CeDbaseFindTest, StringBeginsAtTheCurrentRecordWithoutAStart) {
    Insert({1, L"abc", {}});
    const CEOID second = Insert({2, L"abc", {}});
    base_.SeekToOid(second);
    EXPECT_EQ(NextString(0, L"abc"), second);
}

TEST_F(CeDbaseFindTest, NothingIsReadAfterTheLastRecord) {
    const CEOID last = Insert({1, L"abc", {}});
    CeFailCall("CeReadRecordProps", 1, ERROR_IO_DEVICE);  // a read would report, and no box is expected
    EXPECT_EQ(NextString(last, L"abc"), 0u);
    EXPECT_EQ(NextDate(last, Date(2001, 5, 7)), 0u);
}

TEST_F(CeDbaseFindTest, StartRecordThatIsGoneEndsTheSearch) {
    Insert({1, L"abc", {}});
    EXPECT_EQ(NextString(0x7FFFFFFF, L"abc"), 0u);
}

TEST_F(CeDbaseFindTest, EmptyDatabaseHasNothingToFind) {
    EXPECT_EQ(FirstString(L"abc"), 0u);
    EXPECT_EQ(FirstDate(Date(2001, 5, 7)), 0u);
}

TEST_F(CeDbaseFindTest, UnreadableRecordIsReportedAndTheWalkGoesOn) {
    Insert({1, L"abc", {}});
    const CEOID second = Insert({2, L"abc", {}});
    CeFailCall("CeReadRecordProps", 1, ERROR_IO_DEVICE);
    boxes_.Expect(kReportTitle, Report(ERROR_IO_DEVICE, 541));
    EXPECT_EQ(FirstString(L"abc"), second);
}

TEST_F(CeDbaseFindTest, DateMatchesTheDayWhateverTheTime) {
    Insert({1, {}, Date(2001, 5, 6, 23, 59, 59)});
    const CEOID midnight = Insert({2, {}, Date(2001, 5, 7)});
    const CEOID evening = Insert({3, {}, Date(2001, 5, 7, 23, 59, 59)});
    Insert({4, {}, Date(2001, 5, 8)});
    EXPECT_EQ(FirstDate(Date(2001, 5, 7, 12)), midnight);
    EXPECT_EQ(NextDate(midnight, Date(2001, 5, 7, 12)), evening);
    EXPECT_EQ(NextDate(evening, Date(2001, 5, 7, 12)), 0u);
}

TEST_F(CeDbaseFindTest, DateComparesDayMonthAndYear) {
    Insert({1, {}, Date(2001, 5, 7)});
    EXPECT_EQ(FirstDate(Date(2001, 5, 17)), 0u);
    EXPECT_EQ(FirstDate(Date(2001, 6, 7)), 0u);
    EXPECT_EQ(FirstDate(Date(2002, 5, 7)), 0u);
}

TEST_F(CeDbaseFindTest, DateThatIsNoneMatchesNothing) {
    const FILETIME none{0xFFFFFFFF, 0xFFFFFFFF};
    Insert({1, {}, none});
    EXPECT_EQ(FirstDate(none), 0u);
    EXPECT_EQ(FirstDate(Date(2001, 5, 7)), 0u);
}

TEST_F(CeDbaseFindTest, LeavesTheMatchCurrent) {
    Insert({1, L"x", {}});
    const CEOID oid = Insert({2, L"abc", {}});
    FirstString(L"abc");
    EXPECT_EQ(base_.SeekCurrent(), oid);
}

}  // namespace
