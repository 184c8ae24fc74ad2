// What a search finds, in which order, and from where on.
#include "find/entry_search.h"

#include "tests/find/find_fixture.h"
#include "tests/support/letters.h"
#include "tests/support/other_program.h"

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

class EntrySearchTest : public FindTest {
protected:
    using Ids = std::vector<CEOID>;

    const Ids& Search(CEOID current = 0, const EntrySearch::GoOn& goOn = {}) {
        EntrySearch search(journal_, [this](const CEBLOB& note, std::wstring& text) {
            read_.emplace_back(reinterpret_cast<const char*>(note.lpb), note.dwCount);
            text = textOfOthers_;
        });
        const int found = search.Run(request_, current, goOn);
        EXPECT_EQ(found, std::ssize(request_.results));
        return request_.results;
    }
    const Ids& FindSubject(const wchar_t* text, bool matchCase = true) {
        request_.searchBy = SearchBy::kSubject;
        request_.text = text;
        request_.matchCase = matchCase;
        return Search();
    }
    const Ids& FindNote(const wchar_t* text, bool matchCase = true) {
        request_.searchBy = SearchBy::kEntry;
        request_.text = text;
        request_.matchCase = matchCase;
        return Search();
    }
    const Ids& FindDate(const DateTime& date) {
        request_.searchBy = SearchBy::kDate;
        request_.date = date;
        return Search();
    }
    void SortBy(CEPROPID property, DWORD flags = 0) {
        const SORTORDERSPEC order = {property, flags};
        ASSERT_TRUE(journal_.SetSortOrder(&order, 1));
    }

    std::vector<std::string> read_;             // notes whose text had to be read
    std::wstring textOfOthers_ = L"read text";  // what that was
};

// ---- Letters ----

TEST_F(EntrySearchTest, EveryLetterIsFoundInSubjectAndNote) {
    const std::wstring letters = AllLetters(1, L"");
    constexpr size_t kGroup = 3'000;
    std::vector<std::wstring> groups;
    Ids ids;
    for (size_t from = 0; from < letters.size(); from += kGroup) {
        groups.push_back(letters.substr(from, kGroup));
        const std::wstring text = L"a" + groups.back() + L"b";
        ids.push_back(Add(At(2001, 5, 7), text.c_str(), Note(text)));
    }
    for (size_t i = 0; i < groups.size(); ++i) {
        for (const bool matchCase : {false, true}) {
            EXPECT_THAT(FindSubject(groups[i].c_str(), matchCase), ElementsAre(ids[i]));
            EXPECT_THAT(FindNote(groups[i].c_str(), matchCase), ElementsAre(ids[i]));
        }
    }
    EXPECT_THAT(read_, IsEmpty());
}

// ---- By date ----

TEST_F(EntrySearchTest, ADateIsFoundWhateverTheTimeOfDayOnBothSides) {
    const CEOID midnight = Add(At(2001, 5, 7, 0, 0), L"midnight");
    const CEOID last = Add(DateTime(SYSTEMTIME{2001, 5, 0, 7, 23, 59, 59, 999}), L"last millisecond");
    Add(DateTime(SYSTEMTIME{2001, 5, 0, 6, 23, 59, 59, 999}), L"the day before");
    Add(At(2001, 5, 8, 0, 0), L"the day after");
    for (const DateTime& date : {At(2001, 5, 7, 0, 0), At(2001, 5, 7, 12, 34), At(2001, 5, 7, 23, 59)})
        EXPECT_THAT(FindDate(date), ElementsAre(midnight, last));
}

TEST_F(EntrySearchTest, TheSameDayOfAnotherMonthOrYearIsNotFound) {
    Add(At(2001, 6, 7), L"month");
    Add(At(2002, 5, 7), L"year");
    EXPECT_THAT(FindDate(At(2001, 5, 7)), IsEmpty());
}

TEST_F(EntrySearchTest, AStartThatNamesNoDateIsNotFound) {
    Add(DateTime(0xFFFFFFFF, 0xFFFFFFFF), L"no date");
    EXPECT_THAT(FindDate(DateTime(0xFFFFFFFF, 0xFFFFFFFF)), IsEmpty());
    EXPECT_THAT(FindDate(At(2001, 5, 7)), IsEmpty());
}

TEST_F(EntrySearchTest, AnEntryWithoutAStartIsSkipped) {
    CEPROPVAL subject = {};
    subject.propid = kPropSubject;
    subject.val.lpwstr = const_cast<wchar_t*>(L"no start");
    ASSERT_NE(journal_.WriteRecordProps(0, 1, &subject), 0u);
    EXPECT_THAT(FindDate(DateTime()), IsEmpty());
}

// ---- By subject ----

TEST_F(EntrySearchTest, ASubjectIsFoundByAPartOfIt) {
    const Ids ids = AddDays({L"Garden plan", L"Lunch", L"The garden"});
    EXPECT_THAT(FindSubject(L"arden"), ElementsAre(ids[0], ids[2]));
    EXPECT_THAT(FindSubject(L"Garden"), ElementsAre(ids[0]));
    EXPECT_THAT(FindSubject(L"Gardens"), IsEmpty());
}

TEST_F(EntrySearchTest, WithoutMatchCaseBothAreBroughtToUpperCase) {
    const Ids ids = AddDays({L"Garden plan", L"Lunch", L"The GARDEN"});
    EXPECT_THAT(FindSubject(L"gArDeN", false), ElementsAre(ids[0], ids[2]));
}

TEST_F(EntrySearchTest, ForeignAlphabetsAreFoundInEitherCase) {
    const Ids ids = AddDays({L"Café", L"Ёлка", L"Σχέδιο"});
    EXPECT_THAT(FindSubject(L"CAFÉ", false), ElementsAre(ids[0]));
    EXPECT_THAT(FindSubject(L"ёлка", false), ElementsAre(ids[1]));
    EXPECT_THAT(FindSubject(L"ΣΧΈΔΙΟ", false), ElementsAre(ids[2]));
}

TEST_F(EntrySearchTest, ASearchTextWithSignsOfPatternsIsTakenAsItIs) {
    const Ids ids = AddDays({L"100 % of it", L"100 of it"});
    EXPECT_THAT(FindSubject(L"0 %", false), ElementsAre(ids[0]));
    EXPECT_THAT(FindSubject(L"_", false), IsEmpty());
    EXPECT_THAT(FindSubject(L"*", false), IsEmpty());
}

TEST_F(EntrySearchTest, AnEntryWithoutASubjectIsSkippedAndAnEmptyOneHoldsNoTextAlone) {
    Add(At(2001, 5, 7), nullptr);
    const CEOID empty = Add(At(2001, 5, 8), L"");
    const CEOID lunch = Add(At(2001, 5, 9), L"Lunch");
    EXPECT_THAT(FindSubject(L""), ElementsAre(empty, lunch));
    EXPECT_THAT(FindSubject(L"", false), ElementsAre(empty, lunch));
    EXPECT_THAT(FindSubject(L"L"), ElementsAre(lunch));
}

TEST_F(EntrySearchTest, ALongSubjectIsFoundByItsEnd) {
    const std::wstring subject = std::wstring(5'000, L'x') + L" end";
    const CEOID entry = Add(At(2001, 5, 7), subject.c_str());
    EXPECT_THAT(FindSubject(L" END", false), ElementsAre(entry));
}

// ---- By note ----

TEST_F(EntrySearchTest, ANoteIsFoundByAPartOfItsText) {
    const CEOID first = Add(At(2001, 5, 7), L"one", Note(L"Two herons\r\nat the weir"));
    Add(At(2001, 5, 8), L"herons", Note(L"nothing"));
    EXPECT_THAT(FindNote(L"herons"), ElementsAre(first));
    EXPECT_THAT(FindNote(L"HERONS"), IsEmpty());
    EXPECT_THAT(FindNote(L"HERONS", false), ElementsAre(first));
    EXPECT_THAT(read_, IsEmpty());
}

TEST_F(EntrySearchTest, TheFormOfANoteIsNotItsText) {
    Add(At(2001, 5, 7), L"one", Note(L"plain"));
    for (const wchar_t* word : {L"rtf", L"Tahoma", L"plainnote"})
        EXPECT_THAT(FindNote(word), IsEmpty()) << word;
}

TEST_F(EntrySearchTest, ForeignAlphabetsInANoteAreFound) {
    const CEOID entry = Add(At(2001, 5, 7), L"one", Note(L"Прогулка у реки, café"));
    EXPECT_THAT(FindNote(L"ПРОГУЛКА", false), ElementsAre(entry));
    EXPECT_THAT(FindNote(L"CAFÉ", false), ElementsAre(entry));
}

TEST_F(EntrySearchTest, EntriesWithoutABodyNeverMatch) {
    Add(At(2001, 5, 7), L"no body");
    CEPROPVAL body = {};
    body.propid = kPropBody;
    ASSERT_NE(journal_.WriteRecordProps(0, 1, &body), 0u);  // an empty one
    EXPECT_THAT(FindNote(L"body"), IsEmpty());
    EXPECT_THAT(FindNote(L""), IsEmpty());
    EXPECT_THAT(read_, IsEmpty());
}

TEST_F(EntrySearchTest, AnEmptyNoteNeverMatchesAndAnyOtherContainsNoText) {
    Add(At(2001, 5, 7), L"empty", Note(L""));
    const CEOID written = Add(At(2001, 5, 8), L"written", Note(L"words"));
    EXPECT_THAT(FindNote(L""), ElementsAre(written));
}

TEST_F(EntrySearchTest, ANoteThatDoesNotTellItsTextIsRead) {
    const CEOID own = Add(At(2001, 5, 7), L"own", Note(L"a text"));
    const std::string foreign = ForeignNote(L"another text");
    const CEOID other = Add(At(2001, 5, 6), L"foreign", foreign);
    EXPECT_THAT(FindNote(L"text"), ElementsAre(other, own));
    EXPECT_THAT(read_, ElementsAre(foreign));
}

TEST_F(EntrySearchTest, ANoteThatIsNoNoteIsNotFound) {
    Add(At(2001, 5, 7), L"odd", "no rich text");
    textOfOthers_.clear();
    EXPECT_THAT(FindNote(L""), IsEmpty());
    EXPECT_THAT(FindNote(L"rich"), IsEmpty());
}

TEST_F(EntrySearchTest, WithoutAReaderNotesThatDoNotTellTheirTextAreNotFound) {
    const CEOID own = Add(At(2001, 5, 7), L"own", Note(L"a text"));
    Add(At(2001, 5, 6), L"foreign", ForeignNote(L"another text"));
    request_.searchBy = SearchBy::kEntry;
    request_.text = L"text";
    EntrySearch(journal_, {}).Run(request_, 0);
    EXPECT_THAT(request_.results, ElementsAre(own));
}

// ---- Order, and where it starts ----

// Few results among many entries are put in order in another way than many.
class OrderTest : public EntrySearchTest, public testing::WithParamInterface<int> {
protected:
    void SetUp() override {
        for (int i = 0; i < GetParam(); ++i)
            Add(At(2001, 5, static_cast<WORD>(1 + i % 20), 12), L"lunch");
    }
};

INSTANTIATE_TEST_SUITE_P(OtherEntries, OrderTest, testing::Values(0, 40));

TEST_P(OrderTest, ResultsStandInTheJournalsOrder) {
    const CEOID c = Add(At(2001, 5, 9), L"plan c");
    const CEOID a = Add(At(2001, 5, 7), L"plan b");
    const CEOID b = Add(At(2001, 5, 8), L"plan a");
    EXPECT_THAT(FindSubject(L"plan"), ElementsAre(a, b, c));
    SortBy(kPropStart, CEDB_SORT_DESCENDING);
    EXPECT_THAT(FindSubject(L"plan"), ElementsAre(c, b, a));
    SortBy(kPropSubject);
    EXPECT_THAT(FindSubject(L"plan"), ElementsAre(b, a, c));
}

TEST_F(EntrySearchTest, ManyResultsStandInTheJournalsOrder) {
    Ids ids;
    for (WORD i = 0; i < 300; ++i)
        ids.push_back(Add(At(2001, 5, 7, static_cast<WORD>(i * 7 % 24), static_cast<WORD>(i % 60)), L"plan"));
    Ids ordered;
    for (CEOID id = journal_.SeekFirst(); id != 0; id = journal_.SeekNext())
        ordered.push_back(id);
    EXPECT_THAT(FindSubject(L"plan"), ElementsAreArray(ordered));
}

TEST_P(OrderTest, ASearchFromTheCurrentEntryStartsBehindIt) {
    const Ids ids = AddDays({L"plan", L"plan", L"lunch", L"plan"});
    request_.searchBy = SearchBy::kSubject;
    request_.text = L"plan";
    request_.searchFrom = SearchFrom::kCurrent;
    EXPECT_THAT(Search(ids[0]), ElementsAre(ids[1], ids[3]));
    EXPECT_THAT(Search(ids[2]), ElementsAre(ids[3]));
    EXPECT_THAT(Search(ids[3]), IsEmpty());
    request_.searchFrom = SearchFrom::kTop;
    EXPECT_THAT(Search(ids[2]), ElementsAre(ids[0], ids[1], ids[3]));
}

TEST_P(OrderTest, BehindIsMeantInTheJournalsOrder) {
    const Ids ids = AddDays({L"plan", L"plan", L"plan"});
    SortBy(kPropStart, CEDB_SORT_DESCENDING);
    request_.searchBy = SearchBy::kSubject;
    request_.text = L"plan";
    request_.searchFrom = SearchFrom::kCurrent;
    EXPECT_THAT(Search(ids[1]), ElementsAre(ids[0]));
}

class EveryModeTest : public EntrySearchTest, public testing::WithParamInterface<SearchBy> {};

TEST_P(EveryModeTest, FromCurrentOnTheLastEntryFindsNothing) {
    for (const WORD hour : {WORD{8}, WORD{9}, WORD{10}})
        Add(At(2001, 5, 7, hour), L"plan", Note(L"plan"));
    const CEOID last = journal_.SeekFromBeginning(2);
    request_.searchBy = GetParam();
    request_.date = At(2001, 5, 7);
    request_.text = L"plan";
    EXPECT_EQ(Search().size(), 3u);
    request_.searchFrom = SearchFrom::kCurrent;
    EXPECT_THAT(Search(last), IsEmpty());
}

TEST_P(EveryModeTest, AnEmptyJournalHoldsNothing) {
    request_.searchBy = GetParam();
    request_.date = At(2001, 5, 7);
    request_.text = L"plan";
    request_.results = {1, 2, 3};
    EXPECT_THAT(Search(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Modes, EveryModeTest, testing::Values(SearchBy::kDate, SearchBy::kSubject, SearchBy::kEntry));

TEST_P(OrderTest, WithoutACurrentEntryAllAreSearched) {
    const Ids ids = AddDays({L"plan", L"plan"});
    request_.searchBy = SearchBy::kSubject;
    request_.text = L"plan";
    request_.searchFrom = SearchFrom::kCurrent;
    EXPECT_THAT(Search(0), ElementsAreArray(ids));
    DeleteElsewhere(ids[0]);
    EXPECT_THAT(Search(ids[0]), ElementsAre(ids[1]));
}

// ---- While others are at work ----

TEST_F(EntrySearchTest, AnEntryDeletedByAnotherProgramDuringTheSearchIsLeftOut) {
    Ids ids;
    for (int i = 0; i < 40; ++i)
        ids.push_back(Add(At(2001, 5, 7), L"plan", ForeignNote(L"plan")));
    request_.searchBy = SearchBy::kEntry;
    request_.text = L"read";
    bool deleted = false;
    Search(0, [&] {
        // Three notes have been read: the pass over all is behind.
        if (!deleted && read_.size() == 3) DeleteElsewhere(ids[0]), deleted = true;
        return true;
    });
    EXPECT_TRUE(deleted);
    EXPECT_EQ(request_.results.size(), 39u);
    EXPECT_THAT(request_.results, testing::Not(testing::Contains(ids[0])));
}

TEST_F(EntrySearchTest, AnEntryDeletedBeforeItsNoteIsReadIsLeftOut) {
    const CEOID first = Add(At(2001, 5, 7), L"plan", ForeignNote(L"plan"));
    const CEOID second = Add(At(2001, 5, 8), L"plan", ForeignNote(L"plan"));
    request_.searchBy = SearchBy::kEntry;
    request_.text = L"read";
    Search(0, [&] {
        if (read_.size() == 1) DeleteElsewhere(second);
        return true;
    });
    EXPECT_THAT(request_.results, ElementsAre(first));
    EXPECT_EQ(read_.size(), 1u);
}

// The pass over all entries goes on with what there was when it began.
TEST_P(OrderTest, AnotherProcessMayWriteDuringTheSearch) {
    const Ids ids = AddDays(std::vector<std::wstring>(40, L"plan"));
    request_.searchBy = SearchBy::kSubject;
    request_.text = L"plan";
    bool changed = false;
    Search(0, [&] {
        if (std::exchange(changed, true)) return true;
        EXPECT_EQ(RunOtherProgram(L"journal_helper.exe", L"delete " + std::to_wstring(ids[3])), 1u);
        EXPECT_EQ(RunOtherProgram(L"journal_helper.exe", L"delete " + std::to_wstring(ids[39])), 1u);
        EXPECT_EQ(RunOtherProgram(L"journal_helper.exe", L"rename " + std::to_wstring(ids[38]) + L" lunch"), 1u);
        EXPECT_NE(RunOtherProgram(L"journal_helper.exe", L"add plan"), 0u);
        return true;
    });
    ASSERT_TRUE(changed);
    Ids expected = ids;
    expected.erase(expected.begin() + 39);
    expected.erase(expected.begin() + 3);
    EXPECT_EQ(request_.results, expected);
}

TEST_F(EntrySearchTest, ASearchThatIsGivenUpFindsNothing) {
    AddDays(std::vector<std::wstring>(40, L"plan"));
    request_.searchBy = SearchBy::kSubject;
    request_.text = L"plan";
    int asked = 0;
    EXPECT_THAT(Search(0, [&] { return ++asked < 2; }), IsEmpty());
    EXPECT_EQ(asked, 2);
}

// Both while the entries are passed and while notes that do not tell their text are read.
TEST_F(EntrySearchTest, ASearchInNotesThatIsGivenUpFindsNothing) {
    for (int i = 0; i < 20; ++i)
        Add(At(2001, 5, 7), L"own", Note(L"plan"));
    for (int i = 0; i < 5; ++i)
        Add(At(2001, 5, 8), L"foreign", ForeignNote(L"plan"));
    textOfOthers_ = L"plan";
    request_.searchBy = SearchBy::kEntry;
    request_.text = L"plan";
    EXPECT_THAT(Search(0, [&] { return false; }), IsEmpty());
    EXPECT_THAT(read_, IsEmpty());
    EXPECT_THAT(Search(0, [&] { return read_.size() < 3; }), IsEmpty());
    EXPECT_EQ(read_.size(), 3u);
    EXPECT_EQ(Search().size(), 25u);
}

TEST_F(EntrySearchTest, TellsHowManyWereFoundSoFar) {
    AddDays(std::vector<std::wstring>(40, L"plan"));
    request_.searchBy = SearchBy::kSubject;
    request_.text = L"plan";
    EntrySearch search(journal_, {});
    std::vector<int> told;
    search.Run(request_, 0, [&] { return told.push_back(search.FoundSoFar()), true; });
    EXPECT_THAT(told, ElementsAre(16, 32));
}

TEST_F(EntrySearchTest, AJournalClosedDuringTheSearchEndsIt) {
    AddDays(std::vector<std::wstring>(40, L"plan"));
    request_.searchBy = SearchBy::kSubject;
    request_.text = L"plan";
    EXPECT_THAT(Search(0, [&] { return journal_.Close(), false; }), IsEmpty());
}

TEST_F(EntrySearchTest, TheJournalMayBeReadDuringTheSearch) {
    const Ids ids = AddDays(std::vector<std::wstring>(40, L"plan"));
    request_.searchBy = SearchBy::kSubject;
    request_.text = L"plan";
    EXPECT_THAT(Search(0,
                       [&] {
                           TSList<DbJItem> fields;
                           EXPECT_EQ(journal_.Read(ids[5], &fields), ids[5]);
                           return true;
                       }),
                ElementsAreArray(ids));
}

}  // namespace
