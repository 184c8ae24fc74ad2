// The quick subjects in the registry, value by value.
#include "pickers/quick_subjects.h"

#include <gmock/gmock.h>

#include <map>

#include "tests/support/letters.h"
#include "tests/support/message_boxes.h"
#include "tests/support/private_registry.h"
#include "ui/application.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::SizeIs;
using testing::UnorderedElementsAre;

namespace {

std::wstring SystemText(DWORD error) {
    wchar_t text[300] = L"";
    FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error, 0, text, 300, nullptr);
    std::wstring trimmed = text;
    trimmed.erase(trimmed.find_last_not_of(L"\r\n") + 1);
    return trimmed;
}

class QuickSubjectsTest : public testing::Test {
protected:
    // What stands in the options: numbers as they are written, texts in quotes.
    std::map<std::wstring, std::wstring> Stored() const {
        std::map<std::wstring, std::wstring> stored;
        HKEY key = nullptr;
        if (RegOpenKeyExW(HKEY_CURRENT_USER, L"Software\\Talvern\\Journal\\Options", 0, KEY_READ, &key)) return stored;
        for (DWORD index = 0;; ++index) {
            wchar_t name[100] = L"";
            DWORD length = 100;
            DWORD type = 0;
            wchar_t data[300] = L"";
            DWORD size = sizeof data;
            if (RegEnumValueW(key, index, name, &length, nullptr, &type, reinterpret_cast<BYTE*>(data), &size)) break;
            stored[name] = type == REG_DWORD ? std::to_wstring(*reinterpret_cast<const int*>(data))
                                             : L"\"" + std::wstring(data) + L"\"";
        }
        RegCloseKey(key);
        return stored;
    }
    void Store(const std::vector<std::wstring>& subjects) {
        int place = 0;
        for (const std::wstring& subject : subjects)
            application_.WriteString(L"Options", L"subj" + std::to_wstring(place++), subject);
        application_.WriteInt(L"Options", L"scount", place);
    }
    void StoreCount(int count) { application_.WriteInt(L"Options", L"scount", count); }

    PrivateRegistry registry_;
    MessageBoxes boxes_;
    Application application_{L"Software\\Talvern\\Journal"};
};

// ---- Reading ----

TEST_F(QuickSubjectsTest, WithoutACountThereAreNone) {
    EXPECT_THAT(QuickSubjects(), IsEmpty());
    application_.WriteString(L"Options", L"subj0", L"Left over");
    EXPECT_THAT(QuickSubjects(), IsEmpty());
}

TEST_F(QuickSubjectsTest, ACountOfZeroIsNone) {
    application_.WriteString(L"Options", L"subj0", L"Left over");
    StoreCount(0);
    EXPECT_THAT(QuickSubjects(), IsEmpty());
}

TEST_F(QuickSubjectsTest, TheyComeInTheirOrderAndUnsorted) {
    Store({L"Zebra", L"apple", L"Mango", L"apple"});
    EXPECT_THAT(QuickSubjects(), ElementsAre(L"Zebra", L"apple", L"Mango", L"apple"));
}

TEST_F(QuickSubjectsTest, NoLetterIsLost) {
    const std::wstring letters = AllLetters(1, L"");
    std::vector<std::wstring> subjects;
    for (size_t from = 0; from < letters.size(); from += 98) {
        subjects.push_back(letters.substr(from, 98));
        ASSERT_TRUE(AddQuickSubject(subjects.back()));
    }
    EXPECT_TRUE(QuickSubjects() == subjects);
}

TEST_F(QuickSubjectsTest, ATextThatIsMissingCountsAsEmpty) {
    application_.WriteString(L"Options", L"subj1", L"Second");
    StoreCount(3);
    EXPECT_THAT(QuickSubjects(), ElementsAre(L"", L"Second", L""));
}

TEST_F(QuickSubjectsTest, ATextOfAnotherTypeCountsAsEmpty) {
    application_.WriteInt(L"Options", L"subj0", 7);
    StoreCount(1);
    EXPECT_THAT(QuickSubjects(), ElementsAre(L""));
}

TEST_F(QuickSubjectsTest, ALongTextIsCutToNinetyNineCharacters) {
    Store({std::wstring(120, L'x')});
    EXPECT_THAT(QuickSubjects(), ElementsAre(std::wstring(99, L'x')));
}

TEST_F(QuickSubjectsTest, ATextLongerThanTheSettingsReadIsShownAsAnErrorAndCountsAsEmpty) {
    Store({std::wstring(10'000, L'x'), L"Second"});
    boxes_.Expect(L"Error", SystemText(ERROR_MORE_DATA));
    EXPECT_THAT(QuickSubjects(), ElementsAre(L"", L"Second"));
}

// ---- Counts that somebody else wrote ----

TEST_F(QuickSubjectsTest, ANegativeCountIsNoneAndTheFirstToBeAddedIsNumberedZero) {
    StoreCount(-5);
    EXPECT_THAT(QuickSubjects(), IsEmpty());
    EXPECT_TRUE(AddQuickSubject(L"First"));
    EXPECT_THAT(Stored(), UnorderedElementsAre(Pair(L"scount", L"1"), Pair(L"subj0", L"\"First\"")));
}

TEST_F(QuickSubjectsTest, ACountOfAnotherTypeIsNone) {
    application_.WriteString(L"Options", L"scount", L"2");
    EXPECT_THAT(QuickSubjects(), IsEmpty());
    EXPECT_TRUE(AddQuickSubject(L"First"));
    EXPECT_THAT(Stored(), UnorderedElementsAre(Pair(L"scount", L"1"), Pair(L"subj0", L"\"First\"")));
}

TEST_F(QuickSubjectsTest, AHugeCountIsNotBelieved) {
    Store({L"One", L"Two"});
    for (const int huge : {10'001, 2'147'483'647}) {
        StoreCount(huge);
        EXPECT_THAT(QuickSubjects(), ElementsAre(L"One", L"Two"));
    }
    EXPECT_TRUE(AddQuickSubject(L"Three"));
    EXPECT_THAT(QuickSubjects(), ElementsAre(L"One", L"Two", L"Three"));
    EXPECT_EQ(Stored()[L"scount"], L"3");
}

// ---- Adding ----

TEST_F(QuickSubjectsTest, TheFirstIsNumberedZero) {
    EXPECT_TRUE(AddQuickSubject(L"Stand-up"));
    EXPECT_THAT(Stored(), UnorderedElementsAre(Pair(L"scount", L"1"), Pair(L"subj0", L"\"Stand-up\"")));
}

TEST_F(QuickSubjectsTest, OneThatIsAddedBecomesTheLast) {
    Store({L"b"});
    EXPECT_TRUE(AddQuickSubject(L"a"));
    EXPECT_THAT(QuickSubjects(), ElementsAre(L"b", L"a"));
}

TEST_F(QuickSubjectsTest, EmptyAndDoubledTextsAreStoredUnchanged) {
    for (const wchar_t* text : {L"", L"twice", L"twice", L"  blanks, commas; and semicolons  "})
        EXPECT_TRUE(AddQuickSubject(text));
    EXPECT_THAT(Stored(), UnorderedElementsAre(Pair(L"scount", L"4"), Pair(L"subj0", L"\"\""),
                                               Pair(L"subj1", L"\"twice\""), Pair(L"subj2", L"\"twice\""),
                                               Pair(L"subj3", L"\"  blanks, commas; and semicolons  \"")));
}

TEST_F(QuickSubjectsTest, NoMoreIsStoredOfALongTextThanIsRead) {
    EXPECT_TRUE(AddQuickSubject(std::wstring(10'000, L'y')));
    EXPECT_EQ(Stored()[L"subj0"], L"\"" + std::wstring(99, L'y') + L"\"");
}

TEST_F(QuickSubjectsTest, AFullListTakesNoMore) {
    StoreCount(10'000);
    EXPECT_FALSE(AddQuickSubject(L"One too many"));
    EXPECT_THAT(Stored(), UnorderedElementsAre(Pair(L"scount", L"10000")));
}

// ---- Modifying ----

TEST_F(QuickSubjectsTest, AModifiedOneKeepsItsPlace) {
    Store({L"One", L"Two", L"Three"});
    EXPECT_TRUE(ModifyQuickSubject(1, L"Zwei"));
    EXPECT_THAT(QuickSubjects(), ElementsAre(L"One", L"Zwei", L"Three"));
}

TEST_F(QuickSubjectsTest, APlaceThatIsNoneIsNotModified) {
    Store({L"One"});
    const auto before = Stored();
    EXPECT_FALSE(ModifyQuickSubject(-1, L"x"));
    EXPECT_FALSE(ModifyQuickSubject(1, L"x"));
    EXPECT_EQ(Stored(), before);
}

TEST_F(QuickSubjectsTest, ACharacterOfTwoUnitsIsNotCutInHalf) {
    const std::wstring heron = L"\xD83E\xDDA4";
    const std::wstring text = std::wstring(98, L'x') + heron;
    Store({text, L"One"});
    EXPECT_THAT(QuickSubjects(), ElementsAre(std::wstring(98, L'x'), L"One"));
    EXPECT_TRUE(ModifyQuickSubject(1, text));
    EXPECT_TRUE(AddQuickSubject(text));
    EXPECT_EQ(Stored()[L"subj1"], L"\"" + std::wstring(98, L'x') + L"\"");
    EXPECT_EQ(Stored()[L"subj2"], L"\"" + std::wstring(98, L'x') + L"\"");
    EXPECT_TRUE(AddQuickSubject(std::wstring(97, L'x') + heron + L"y"));
    EXPECT_EQ(Stored()[L"subj3"], L"\"" + std::wstring(97, L'x') + heron + L"\"");
}

// ---- Deleting ----

TEST_F(QuickSubjectsTest, LongOnesKeepTheirTextWhenAnEarlierOneIsDeleted) {
    std::vector<std::wstring> subjects = {L"One"};
    for (const size_t length : {99, 100, 101, 154, 155})
        subjects.push_back(std::wstring(length - 1, L'x') + static_cast<wchar_t>(L'a' + length % 26));
    Store(subjects);
    EXPECT_TRUE(DeleteQuickSubject(L"One"));
    for (size_t i = 1; i < subjects.size(); ++i)
        EXPECT_EQ(Stored()[L"subj" + std::to_wstring(i - 1)], L"\"" + subjects[i] + L"\"");
    EXPECT_TRUE(DeleteQuickSubject(subjects[2].substr(0, 99)));  // as the list shows it
    EXPECT_EQ(Stored()[L"scount"], L"4");
    EXPECT_EQ(Stored()[L"subj1"], L"\"" + subjects[3] + L"\"");
}

TEST_F(QuickSubjectsTest, TheLaterOnesMoveUpAndAnEmptyTextIsLeftBehind) {
    Store({L"One", L"Two", L"Three"});
    EXPECT_TRUE(DeleteQuickSubject(L"One"));
    EXPECT_THAT(Stored(), UnorderedElementsAre(Pair(L"scount", L"2"), Pair(L"subj0", L"\"Two\""),
                                               Pair(L"subj1", L"\"Three\""), Pair(L"subj2", L"\"\"")));
}

TEST_F(QuickSubjectsTest, DeletingTheLastOfThreeLeavesAnEmptyTextAtNumberTwo) {
    Store({L"One", L"Two", L"Three"});
    EXPECT_TRUE(DeleteQuickSubject(L"Three"));
    EXPECT_THAT(Stored(), UnorderedElementsAre(Pair(L"scount", L"2"), Pair(L"subj0", L"\"One\""),
                                               Pair(L"subj1", L"\"Two\""), Pair(L"subj2", L"\"\"")));
}

TEST_F(QuickSubjectsTest, OfTwoEqualOnesTheFirstIsDeleted) {
    Store({L"a", L"twice", L"b", L"twice"});
    EXPECT_TRUE(DeleteQuickSubject(L"twice"));
    EXPECT_THAT(QuickSubjects(), ElementsAre(L"a", L"b", L"twice"));
}

TEST_F(QuickSubjectsTest, AnEmptyOneCanBeDeleted) {
    Store({L"a", L"", L"b"});
    EXPECT_TRUE(DeleteQuickSubject(L""));
    EXPECT_THAT(QuickSubjects(), ElementsAre(L"a", L"b"));
}

TEST_F(QuickSubjectsTest, WhatIsNoSubjectIsNotDeleted) {
    Store({L"One", L"two"});
    const auto before = Stored();
    EXPECT_FALSE(DeleteQuickSubject(L"Two"));
    EXPECT_FALSE(DeleteQuickSubject(L""));
    EXPECT_EQ(Stored(), before);
}

TEST_F(QuickSubjectsTest, ALongOneIsFoundByWhatIsReadOfIt) {
    Store({std::wstring(120, L'x'), L"kept"});
    EXPECT_TRUE(DeleteQuickSubject(QuickSubjects()[0]));
    EXPECT_THAT(QuickSubjects(), ElementsAre(L"kept"));
}

TEST_F(QuickSubjectsTest, TheNumberThatWasLeftBehindIsUsedAgain) {
    Store({L"One", L"Two"});
    EXPECT_TRUE(DeleteQuickSubject(L"Two"));
    EXPECT_TRUE(AddQuickSubject(L"New"));
    EXPECT_THAT(Stored(),
                UnorderedElementsAre(Pair(L"scount", L"2"), Pair(L"subj0", L"\"One\""), Pair(L"subj1", L"\"New\"")));
}

TEST_F(QuickSubjectsTest, ALeftOverTextBehindTheLastMovesUpToo) {
    Store({L"One", L"Two", L"Left over"});
    StoreCount(2);
    EXPECT_TRUE(DeleteQuickSubject(L"One"));
    EXPECT_THAT(Stored(), UnorderedElementsAre(Pair(L"scount", L"1"), Pair(L"subj0", L"\"Two\""),
                                               Pair(L"subj1", L"\"Left over\""), Pair(L"subj2", L"\"Left over\"")));
}

}  // namespace
