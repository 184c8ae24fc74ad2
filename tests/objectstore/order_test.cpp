// Sort orders and seeks by value.
#include <storebatch.h>

#include <algorithm>
#include <random>

#include "tests/objectstore/store_fixture.h"

namespace {

class OrderTest : public StoreTest {
protected:
    // The texts in the handle's order; a record without one shows as "-".
    std::vector<std::wstring> Texts(HANDLE database) {
        std::vector<std::wstring> texts;
        for (CEOID record = First(database); record != 0; record = Step(database, 1)) {
            const ReadResult result = Read(database, {kText});
            texts.push_back(result.Has(0) ? result.Text(0) : L"-");
        }
        return texts;
    }
    std::wstring TextOf(HANDLE database, CEOID record) {
        if (record == 0) return L"none";
        SeekTo(database, record);
        return Read(database, {kText}).Text(0);
    }
    using Texts_ = std::vector<std::wstring>;
};

TEST_F(OrderTest, SortsTextByTheLocaleNotByCode) {
    const HANDLE database = Make({{kText, 0}});
    for (const wchar_t* text : {L"b", L"B", L"a", L"Z", L"\u00e4", L"", L"A"})
        Add(database, text);
    EXPECT_EQ(Texts(database), (Texts_{L"", L"a", L"A", L"\u00e4", L"b", L"B", L"Z"}));
}

TEST_F(OrderTest, SortsWithoutRegardToCase) {
    const HANDLE database = Make({{kText, CEDB_SORT_CASEINSENSITIVE}});
    for (const wchar_t* text : {L"b", L"B", L"a", L"A", L"b"})
        Add(database, text);
    EXPECT_EQ(Texts(database), (Texts_{L"a", L"A", L"b", L"B", L"b"}));
}

struct FlagCase {
    const char* label;
    DWORD flags;
    std::vector<std::wstring> expected;
};

class OrderFlagTest : public OrderTest, public testing::WithParamInterface<FlagCase> {};

TEST_P(OrderFlagTest, PlacesRecordsWithoutThePropertyAtTheirEnd) {
    const HANDLE database = Make({{kText, GetParam().flags}});
    Write(database, {NumberValue(kNumber, 1)});
    for (const wchar_t* text : {L"b", L"a", L"c", L"b"})
        Add(database, text);
    Write(database, {NumberValue(kNumber, 2)});
    EXPECT_EQ(Texts(database), GetParam().expected);
    std::vector<CEOID> order = Order(database);
    for (size_t n = 0; n < order.size(); ++n) {
        EXPECT_EQ(PlaceOf(database, order[n]), static_cast<int>(n));
        EXPECT_EQ(Last(database, static_cast<DWORD>(n)), order[order.size() - 1 - n]);
    }
    Reopen();
    EXPECT_EQ(Order(OpenBy(kText)), order) << "read anew from the file";
    ExpectSound();
}

INSTANTIATE_TEST_SUITE_P(Flags, OrderFlagTest,
                         testing::Values(FlagCase{"None", 0, {L"a", L"b", L"b", L"c", L"-", L"-"}},
                                         FlagCase{"Descending", 1, {L"c", L"b", L"b", L"a", L"-", L"-"}},
                                         FlagCase{"UnknownFirst", 4, {L"-", L"-", L"a", L"b", L"b", L"c"}},
                                         FlagCase{"DescendingUnknownFirst", 5, {L"-", L"-", L"c", L"b", L"b", L"a"}},
                                         FlagCase{"AllFlags", 15, {L"-", L"-", L"c", L"b", L"b", L"a"}}),
                         [](const auto& row) { return std::string(row.param.label); });

TEST_F(OrderTest, EqualRecordsStandInTheOrderOfTheirIds) {
    for (const DWORD flags : {DWORD{0}, DWORD{CEDB_SORT_DESCENDING}}) {
        const HANDLE database = Make({{kText, flags}}, flags ? L"down" : L"up");
        std::vector<CEOID> records;
        for (int i = 0; i < 20; ++i)
            records.push_back(Add(database, L"same"));
        EXPECT_EQ(Order(database), records);
    }
}

struct NumberCase {
    const char* label;
    CEPROPID property;
    std::vector<CEPROPVAL> ascending;
};

CEPROPVAL DoubleValue(double number) {
    CEPROPVAL value = {};
    value.propid = kDouble;
    value.val.dblVal = number;
    return value;
}

class OrderTypeTest : public StoreTest, public testing::WithParamInterface<NumberCase> {};

TEST_P(OrderTypeTest, SortsByValue) {
    for (const DWORD flags : {DWORD{0}, DWORD{CEDB_SORT_DESCENDING}}) {
        const HANDLE database = Make({{GetParam().property, flags}}, flags ? L"down" : L"up");
        std::vector<CEOID> expected(GetParam().ascending.size());
        std::vector<size_t> turn(expected.size());
        for (size_t i = 0; i < turn.size(); ++i)
            turn[i] = i;
        std::shuffle(turn.begin(), turn.end(), std::mt19937(7));
        for (const size_t i : turn)
            expected[i] = Write(database, {GetParam().ascending[i]});
        for (size_t i = 0; i < expected.size(); ++i) {
            EXPECT_EQ(SeekValue(database, CEDB_SEEK_VALUEFIRSTEQUAL, GetParam().ascending[i]), expected[i]) << i;
        }
        if (flags) std::reverse(expected.begin(), expected.end());
        EXPECT_EQ(Order(database), expected);
    }
    ExpectSound();
}

INSTANTIATE_TEST_SUITE_P(
    Types, OrderTypeTest,
    testing::Values(
        NumberCase{
            "I2",
            kShort,
            {NumberValue(kShort, -32768), NumberValue(kShort, -1), NumberValue(kShort, 0), NumberValue(kShort, 32767)}},
        NumberCase{"I4",
                   kNumber,
                   {NumberValue(kNumber, LONG_MIN), NumberValue(kNumber, -1), NumberValue(kNumber, 0),
                    NumberValue(kNumber, LONG_MAX)}},
        NumberCase{"UI2", kWord, {NumberValue(kWord, 0), NumberValue(kWord, 1), NumberValue(kWord, 0xFFFF)}},
        NumberCase{"UI4",
                   kLong,
                   {NumberValue(kLong, 0), NumberValue(kLong, 1), NumberValue(kLong, static_cast<long>(0xFFFFFFFF))}},
        NumberCase{"Bool", kBool, {NumberValue(kBool, 0), NumberValue(kBool, 1)}},
        NumberCase{
            "Time",
            kTime,
            {TimeValue(kTime, 0), TimeValue(kTime, 1), TimeValue(kTime, 0x01C0000000000000),
             TimeValue(kTime, 0x7FFFFFFFFFFFFFFF), TimeValue(kTime, 0x8000000000000000), TimeValue(kTime, ~0ull)}},
        NumberCase{"Double",
                   kDouble,
                   {DoubleValue(-1e300), DoubleValue(-1.5), DoubleValue(0), DoubleValue(2.25), DoubleValue(1e300)}},
        NumberCase{"Blob",
                   kBlob,
                   {BlobValue(kBlob, "", 0), BlobValue(kBlob, "\0", 1), BlobValue(kBlob, "\1", 1),
                    BlobValue(kBlob, "\1\1", 2), BlobValue(kBlob, "\xFF", 1)}}),
    [](const auto& row) { return std::string(row.param.label); });

TEST_F(OrderTest, FindsTheFirstOfEqualValuesAndTheNextOnes) {
    const HANDLE database = Make({{kText, 0}});
    Add(database, L"a");
    const CEOID first = Add(database, L"b");
    const CEOID second = Add(database, L"b");
    Add(database, L"c");
    EXPECT_EQ(SeekValue(database, CEDB_SEEK_VALUEFIRSTEQUAL, TextValue(kText, L"b")), first);
    EXPECT_EQ(SeekValue(database, CEDB_SEEK_VALUENEXTEQUAL, TextValue(kText, L"b")), second);
    EXPECT_EQ(SeekValue(database, CEDB_SEEK_VALUENEXTEQUAL, TextValue(kText, L"b")), 0u);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_NO_MORE_ITEMS});
    EXPECT_EQ(Read(database).error, DWORD{ERROR_NO_MORE_ITEMS}) << "the position is at the end";
}

TEST_F(OrderTest, NextEqualLooksOneRecordFurtherOnly) {
    const HANDLE database = Make({{kText, 0}});
    for (const wchar_t* text : {L"a", L"b", L"c"})
        Add(database, text);
    First(database);
    EXPECT_EQ(SeekValue(database, CEDB_SEEK_VALUENEXTEQUAL, TextValue(kText, L"c")), 0u);
    First(database, 1);
    EXPECT_NE(SeekValue(database, CEDB_SEEK_VALUENEXTEQUAL, TextValue(kText, L"c")), 0u);
}

TEST_F(OrderTest, FirstEqualSearchesFromTheStartWhereverThePositionIs) {
    const HANDLE database = Make({{kText, 0}});
    const CEOID a = Add(database, L"a");
    Add(database, L"b");
    Last(database);
    EXPECT_EQ(SeekValue(database, CEDB_SEEK_VALUEFIRSTEQUAL, TextValue(kText, L"a")), a);
    EXPECT_EQ(SeekValue(database, CEDB_SEEK_VALUEFIRSTEQUAL, TextValue(kText, L"x")), 0u);
    EXPECT_EQ(Step(database, 1), 0u) << "the position is at the end";
}

TEST_F(OrderTest, ValueSeeksFollowTheOrdersCase) {
    const HANDLE folded = Make({{kText, CEDB_SORT_CASEINSENSITIVE}, {kOtherText, 0}});
    const CEOID work = Write(folded, {TextValue(kText, L"work"), TextValue(kOtherText, L"work")});
    EXPECT_EQ(SeekValue(folded, CEDB_SEEK_VALUEFIRSTEQUAL, TextValue(kText, L"WORK")), work);
    const HANDLE exact = OpenBy(kOtherText);
    EXPECT_EQ(SeekValue(exact, CEDB_SEEK_VALUEFIRSTEQUAL, TextValue(kOtherText, L"Work")), 0u);
    EXPECT_EQ(SeekValue(exact, CEDB_SEEK_VALUEFIRSTEQUAL, TextValue(kOtherText, L"work")), work);
}

TEST_F(OrderTest, SmallerFindsTheGreatestBelow) {
    const HANDLE up = Make({{kNumber, 0}}, L"up");
    const HANDLE down = Make({{kNumber, CEDB_SORT_DESCENDING | CEDB_SORT_UNKNOWNFIRST}}, L"down");
    for (const HANDLE database : {up, down}) {
        Write(database, {TextValue(kText, L"without")});
        const CEOID ten = Add(database, 10);
        const CEOID twenty = Add(database, 20);
        const CEOID again = Add(database, 20);
        const auto seek = [&](long n) { return SeekValue(database, CEDB_SEEK_VALUESMALLER, NumberValue(kNumber, n)); };
        EXPECT_EQ(seek(10), 0u);
        EXPECT_EQ(seek(11), ten);
        EXPECT_EQ(seek(20), ten);
        EXPECT_EQ(seek(21), database == up ? again : twenty) << "the one next to where 21 would stand";
    }
}

TEST_F(OrderTest, GreaterFindsTheLeastNotBelow) {
    const HANDLE up = Make({{kNumber, 0}}, L"up");
    const HANDLE down = Make({{kNumber, CEDB_SORT_DESCENDING}}, L"down");
    for (const HANDLE database : {up, down}) {
        const CEOID ten = Add(database, 10);
        const CEOID again = Add(database, 10);
        const CEOID twenty = Add(database, 20);
        Write(database, {TextValue(kText, L"without")});
        const auto seek = [&](long n) { return SeekValue(database, CEDB_SEEK_VALUEGREATER, NumberValue(kNumber, n)); };
        EXPECT_EQ(seek(9), database == up ? ten : again) << "the one next to where 9 would stand";
        EXPECT_EQ(seek(11), twenty);
        EXPECT_EQ(seek(20), twenty);
        EXPECT_EQ(seek(21), 0u);
    }
}

TEST_F(OrderTest, AValueSeekNeedsTheSortProperty) {
    const HANDLE database = Make({{kText, 0}});
    Add(database, L"a");
    const HANDLE byId = OpenBy(0);
    const auto refused = [&](HANDLE handle, CEPROPVAL value) {
        EXPECT_EQ(SeekValue(handle, CEDB_SEEK_VALUEFIRSTEQUAL, value), 0u);
        EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
    };
    refused(database, TextValue(kOtherText, L"a"));
    refused(database, NumberValue(kNumber, 1));
    refused(database, TextValue(kText, nullptr));
    refused(byId, TextValue(kText, L"a"));
    EXPECT_EQ(CeSeekDatabase(database, CEDB_SEEK_VALUEFIRSTEQUAL, 0, nullptr), 0u);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
}

TEST_F(OrderTest, ADatabaseMayHaveFourOrders) {
    const HANDLE byText = Make({{kText, 0}, {kNumber, CEDB_SORT_DESCENDING}, {kTime, 0}, {kBlob, 0}});
    const CEOID a =
        Write(byText, {TextValue(kText, L"1"), NumberValue(kNumber, 1), TimeValue(kTime, 3), BlobValue(kBlob, "b", 1)});
    const CEOID b =
        Write(byText, {TextValue(kText, L"2"), NumberValue(kNumber, 2), TimeValue(kTime, 2), BlobValue(kBlob, "c", 1)});
    const CEOID c =
        Write(byText, {TextValue(kText, L"3"), NumberValue(kNumber, 3), TimeValue(kTime, 1), BlobValue(kBlob, "a", 1)});
    EXPECT_EQ(Order(byText), (std::vector<CEOID>{a, b, c}));
    EXPECT_EQ(Order(OpenBy(kNumber)), (std::vector<CEOID>{c, b, a}));
    EXPECT_EQ(Order(OpenBy(kTime)), (std::vector<CEOID>{c, b, a}));
    EXPECT_EQ(Order(OpenBy(kBlob)), (std::vector<CEOID>{c, a, b}));
    EXPECT_EQ(Order(OpenBy(0)), (std::vector<CEOID>{a, b, c}));
    ExpectSound();
}

// Asked for many places between two changes, the store makes a table of them; a change makes it worthless.
TEST_F(OrderTest, PlacesStayTrueThroughChangesBetweenManyQuestions) {
    const HANDLE database = Make({{kNumber, 0}});
    std::vector<CEOID> records;
    CeBeginBatch();
    for (long i = 0; i < 400; ++i)  // more than are read at either end
        records.push_back(Add(database, i * 10));
    CeCommitBatch();
    const auto askForAll = [&] {
        for (size_t place = records.size(); place-- > 0;)
            ASSERT_EQ(PlaceOf(database, records[place]), static_cast<int>(place));
    };
    askForAll();
    ASSERT_TRUE(CeDeleteRecord(database, records[100]));
    EXPECT_EQ(PlaceOf(database, records[100]), -1);
    records.erase(records.begin() + 100);
    askForAll();
    records.insert(records.begin() + 50, Add(database, 495));
    askForAll();
    ASSERT_NE(Write(database, {NumberValue(kNumber, 2005)}, records[20]), 0u);
    const CEOID moved = records[20];
    records.erase(records.begin() + 20);
    records.insert(records.begin() + 200, moved);
    askForAll();
}

// The order in memory is kept up with each write; it must stay what the file's index says. Text of every kind, keys
// that come and go, through many changes.
TEST_F(OrderTest, TheOrderInMemoryStaysThatOfTheFile) {
    std::mt19937 random(20);
    for (const DWORD flags : {0u, 1u, 2u, 4u, 7u}) {
        const std::wstring name = L"flags" + std::to_wstring(flags);
        const HANDLE database = Make({{kText, flags}, {kNumber, flags & 5u}}, name.c_str());
        const HANDLE byNumber = OpenBy(kNumber, 0, nullptr, name.c_str());
        std::vector<CEOID> records;
        const auto value = [&](CEPROPID property) {
            if (random() % 5 == 0) return Missing(property);
            static std::wstring text;
            text.assign(1, static_cast<wchar_t>(L"aAbB\u00e4\u00c4\u3042z"[random() % 8]));
            text += static_cast<wchar_t>(L'0' + random() % 3);
            return property == kText ? TextValue(kText, text.c_str())
                                     : NumberValue(kNumber, static_cast<long>(random() % 7));
        };
        CeBeginBatch();
        for (int i = 0; i < 300; ++i)
            records.push_back(Write(database, {value(kText), value(kNumber), NumberValue(kShort, 1)}));
        CeCommitBatch();
        First(database, 150);  // everything is in memory from here
        First(byNumber, 150);
        for (int i = 0; i < 60; ++i) {
            const size_t at = random() % records.size();
            switch (random() % 3) {
                case 0: records.push_back(Write(database, {value(kText), NumberValue(kShort, 1)})); break;
                case 1: ASSERT_NE(Write(database, {value(kText), value(kNumber)}, records[at]), 0u); break;
                default:
                    ASSERT_TRUE(CeDeleteRecord(database, records[at]));
                    records.erase(records.begin() + static_cast<ptrdiff_t>(at));
            }
        }
        const auto text = Order(database);
        const auto number = Order(byNumber);
        Reopen();
        EXPECT_EQ(Order(OpenBy(kText, 0, nullptr, name.c_str())), text) << flags;
        EXPECT_EQ(Order(OpenBy(kNumber, 0, nullptr, name.c_str())), number) << flags;
        EXPECT_EQ(text.size(), records.size());
    }
    ExpectSound();
}

}  // namespace
