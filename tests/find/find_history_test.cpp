// The last ten texts in the settings.
#include "find/find_history.h"

#include <gmock/gmock.h>

#include "tests/support/letters.h"
#include "tests/support/message_boxes.h"
#include "tests/support/private_registry.h"
#include "ui/registry_key.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Texts = std::vector<std::wstring>;

constexpr wchar_t kOptions[] = L"Software\\Talvern\\Journal\\Options";

class FindHistoryTest : public testing::Test {
protected:
    // Texts "0", "1"... as values Find0, Find1...
    Texts Store(int count) {
        Texts texts;
        for (int place = 0; place < count; ++place) {
            texts.push_back(std::to_wstring(place));
            settings_.WriteString(L"Options", L"Find" + std::to_wstring(place), texts.back());
        }
        return texts;
    }
    Texts History() const { return ReadFindHistory(settings_); }
    static void SetValue(const wchar_t* name, DWORD type, const void* data, size_t size) {
        EXPECT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER, kOptions, name, type, data, static_cast<DWORD>(size)),
                  ERROR_SUCCESS);
    }

    MessageBoxes boxes_;
    PrivateRegistry registry_;
    RegistryKey settings_{L"Software\\Talvern\\Journal"};
};

TEST_F(FindHistoryTest, IsEmptyAtFirst) {
    EXPECT_THAT(History(), IsEmpty());
    EXPECT_EQ(ReadLastFound(settings_), L"");
}

TEST_F(FindHistoryTest, PutsANewTextBeforeTheOlder) {
    WriteFindHistory(settings_, L"new", Store(2));
    EXPECT_THAT(History(), ElementsAre(L"new", L"0", L"1"));
}

TEST_F(FindHistoryTest, MovesAnOlderTextToTheFrontAndRemovesItsOlderCopy) {
    WriteFindHistory(settings_, L"2", Store(4));
    EXPECT_THAT(History(), ElementsAre(L"2", L"0", L"1", L"3"));
}

TEST_F(FindHistoryTest, TheFirstTextAgainChangesNothing) {
    const Texts before = Store(3);
    WriteFindHistory(settings_, L"0", before);
    EXPECT_EQ(History(), before);
}

TEST_F(FindHistoryTest, NoLetterIsLost) {
    const std::wstring letters = AllLetters(1, L"");
    for (size_t from = 0; from < letters.size(); from += 100) {
        WriteFindHistory(settings_, letters.substr(from, 100), {L"older"});
        ASSERT_TRUE(History() == (Texts{letters.substr(from, 100), L"older"})) << from;
    }
}

TEST_F(FindHistoryTest, TextsOfAnotherCaseAreOthers) {
    WriteFindHistory(settings_, L"Plan", {L"plan"});
    EXPECT_THAT(History(), ElementsAre(L"Plan", L"plan"));
}

TEST_F(FindHistoryTest, AnEleventhTextPushesTheOldestOut) {
    WriteFindHistory(settings_, L"new", Store(10));
    EXPECT_THAT(History(), ElementsAre(L"new", L"0", L"1", L"2", L"3", L"4", L"5", L"6", L"7", L"8"));
    EXPECT_FALSE(settings_.HasValue(L"Options", L"Find10"));
}

TEST_F(FindHistoryTest, TheLastOfTenMovedToTheFrontPushesNothingOut) {
    WriteFindHistory(settings_, L"9", Store(10));
    EXPECT_THAT(History(), ElementsAre(L"9", L"0", L"1", L"2", L"3", L"4", L"5", L"6", L"7", L"8"));
}

TEST_F(FindHistoryTest, ReadsNoMoreThanTen) {
    Store(10);
    settings_.WriteString(L"Options", L"Find10", L"one too many");
    EXPECT_EQ(History().size(), 10u);
}

TEST_F(FindHistoryTest, EndsAtAMissingOrEmptyValue) {
    Store(5);
    settings_.DeleteValue(L"Options", L"Find3");
    EXPECT_THAT(History(), ElementsAre(L"0", L"1", L"2"));
    settings_.WriteString(L"Options", L"Find1", L"");
    EXPECT_THAT(History(), ElementsAre(L"0"));
}

TEST_F(FindHistoryTest, ATextOfTenThousandCharactersIsAnErrorThatIsShownAndTheEnd) {
    Store(3);
    const std::wstring text(10'000, L'x');
    SetValue(L"Find1", REG_SZ, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
    boxes_.Expect(L"Error", MessageBoxes::SystemText(ERROR_MORE_DATA));
    EXPECT_THAT(History(), ElementsAre(L"0"));
}

TEST_F(FindHistoryTest, AValueOfAnotherTypeIsTheEnd) {
    Store(3);
    const DWORD number = 42;
    SetValue(L"Find1", REG_DWORD, &number, sizeof number);
    EXPECT_THAT(History(), ElementsAre(L"0"));
    SetValue(L"Find0", REG_BINARY, &number, sizeof number);
    EXPECT_THAT(History(), IsEmpty());
}

TEST_F(FindHistoryTest, AValueThatCannotBeReadIsMendedByTheNextText) {
    const std::wstring text(10'000, L'x');
    Store(2);
    SetValue(L"Find0", REG_SZ, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
    boxes_.Expect(L"Error", MessageBoxes::SystemText(ERROR_MORE_DATA));
    WriteFindHistory(settings_, L"new", History());
    EXPECT_THAT(History(), ElementsAre(L"new", L"1"));
}

TEST_F(FindHistoryTest, TheLastTextIsOnlyRead) {
    settings_.WriteString(L"Options", L"Last", L"kept");
    WriteFindHistory(settings_, L"new", {});
    EXPECT_EQ(ReadLastFound(settings_), L"kept");
}

}  // namespace
