// Entries that other programs ask for: message 1126 and what becomes of it.
#include <gmock/gmock.h>

#include "res/ids.h"
#include "tests/app/app_fixture.h"
#include "tests/app/fake_options.h"
#include "tests/app/stand_in_outlook.h"
#include "tests/support/modal_stage.h"
#include "tests/support/outlook.h"
#include "tests/support/pad_visits.h"
#include "tests/support/pump.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr DATE kNoonOn7May2004 = 38114.5;

DateTime Noon() {
    return DateTime(SYSTEMTIME{2004, 5, 5, 7, 12, 0, 0, 0});
}

class LinkTest : public AppFixture {
protected:
    ~LinkTest() override { FakeOptions::meanwhile = nullptr; }

    void Request(WORD kind, CEOID item, WORD unused = 0) {
        EXPECT_EQ(window_->SendMessage(1126, MAKEWPARAM(kind, unused), static_cast<LPARAM>(item)), 0);
    }
    std::vector<std::wstring> Begun() {
        std::vector<std::wstring> subjects;
        for (const PimData& item : FakeEditor::items)
            subjects.push_back(item.subject);
        return subjects;
    }
    // The posted messages that are in the queue.
    void Settle() { PumpOnce(); }
};

// ---- With the real Pocket Outlook ----

TEST_F(LinkTest, AContactsNameAndCompanyBeginAnEntryWithoutADate) {
    ASSERT_TRUE(Start());
    const CEOID oid = Outlook().AddContact(L"Abel, Anna", L"Talvern");
    Request(0, oid);
    ASSERT_THAT(FakeEditor::items, SizeIs(1));
    const PimData& item = FakeEditor::items[0];
    EXPECT_EQ(item.tag, L"PIMDATA");
    EXPECT_EQ(item.itemId, oid);
    EXPECT_EQ(item.subject, L"Abel, Anna");
    EXPECT_EQ(item.company, L"Talvern");
    EXPECT_EQ(item.start, DateTime());
}

TEST_F(LinkTest, AnAppointmentsSubjectAndStartBeginAnEntry) {
    ASSERT_TRUE(Start());
    const CEOID oid = Outlook().AddAppointment(L"Review", kNoonOn7May2004);
    Request(1, oid);
    ASSERT_THAT(FakeEditor::items, SizeIs(1));
    const PimData& item = FakeEditor::items[0];
    EXPECT_EQ(item.itemId, oid);
    EXPECT_EQ(item.subject, L"Review");
    EXPECT_EQ(item.company, L"");
    EXPECT_EQ(item.start, Noon());
}

TEST_F(LinkTest, ATaskBeginsAnEntryAtItsStartElseWhenItIsDueElseNow) {
    ASSERT_TRUE(Start());
    const struct {
        DATE start;
        DATE due;
        DateTime expected;
    } cases[] = {
        {kNoonOn7May2004, 39000, Noon()}, {DATE_NONE, kNoonOn7May2004, Noon()}, {DATE_NONE, DATE_NONE, DateTime()}};
    for (const auto& c : cases) {
        FakeEditor::items.clear();
        Request(2, Outlook().AddTask(L"Paint", c.start, c.due));
        ASSERT_THAT(FakeEditor::items, SizeIs(1));
        EXPECT_EQ(FakeEditor::items[0].subject, L"Paint");
        EXPECT_EQ(FakeEditor::items[0].start, c.expected);
    }
}

TEST_F(LinkTest, ADateOutsideOf1980To2107IsNone) {
    ASSERT_TRUE(Start());
    Request(1, Outlook().AddAppointment(L"Moon", 25405));  // 1969
    ASSERT_THAT(FakeEditor::items, SizeIs(1));
    EXPECT_EQ(FakeEditor::items[0].start, DateTime());
}

TEST_F(LinkTest, TheHighWordMeansNothing) {
    ASSERT_TRUE(Start());
    Request(1, Outlook().AddAppointment(L"Review", kNoonOn7May2004), 0x7777);
    EXPECT_THAT(Begun(), ElementsAre(L"Review"));
}

TEST_F(LinkTest, TheListShowsTheNewEntrySelected) {
    Write({L"one"});
    ASSERT_TRUE(Start());
    FakeEditor::editItem = [this](const PimData& item) { return Write({item.subject})[0]; };
    Request(0, Outlook().AddContact(L"Abel, Anna", L""));
    EXPECT_THAT(Subjects(), ElementsAre(L"one", L"Abel, Anna"));
    EXPECT_EQ(List().GetItemState(1, LVIS_SELECTED | LVIS_FOCUSED), static_cast<UINT>(LVIS_SELECTED | LVIS_FOCUSED));
}

TEST_F(LinkTest, AnyOtherKindBeginsAnEmptyEntry) {
    ASSERT_TRUE(Start());
    for (const WORD kind : {WORD{3}, WORD{4}, WORD{0xFFFF}}) {
        FakeEditor::items.clear();
        Request(kind, 4711);
        ASSERT_THAT(FakeEditor::items, SizeIs(1));
        EXPECT_EQ(FakeEditor::items[0].itemId, 4711u);
        EXPECT_EQ(FakeEditor::items[0].subject, L"");
        EXPECT_EQ(FakeEditor::items[0].company, L"");
        EXPECT_EQ(FakeEditor::items[0].start, DateTime());
    }
}

TEST_F(LinkTest, AnUnknownItemIsToldByItsKindAndOpensNoEditor) {
    ASSERT_TRUE(Start());
    const wchar_t* const texts[] = {L"Can't create journal entry for Contact",
                                    L"Can't create journal entry for Appointment",
                                    L"Can't create journal entry for Task"};
    for (WORD kind = 0; kind < 3; ++kind) {
        for (const CEOID oid : {CEOID{0}, CEOID{999'999}}) {
            boxes_.Expect(L"Interal PIM Error", texts[kind]);
            Request(kind, oid);
            EXPECT_EQ(boxes_.Seen().back().icon, 0u);
            EXPECT_EQ(boxes_.Seen().back().buttons, static_cast<UINT>(MB_OK));
            EXPECT_EQ(boxes_.Seen().back().owner, window_->GetHandle());
        }
    }
    EXPECT_THAT(FakeEditor::items, IsEmpty());
}

TEST_F(LinkTest, AnItemOfAnotherKindIsUnknown) {
    ASSERT_TRUE(Start());
    const CEOID contact = Outlook().AddContact(L"Abel, Anna", L"Talvern");
    boxes_.Expect(L"Interal PIM Error", L"Can't create journal entry for Task");
    Request(2, contact);
    EXPECT_THAT(FakeEditor::items, IsEmpty());
}

TEST_F(LinkTest, AnEntryOfTheJournalIsNoItem) {
    const CEOID entry = Write({L"one"})[0];
    ASSERT_TRUE(Start());
    boxes_.Expect(L"Interal PIM Error", L"Can't create journal entry for Contact");
    Request(0, entry);
    EXPECT_THAT(FakeEditor::items, IsEmpty());
}

TEST_F(LinkTest, WithoutPocketOutlookNothingHappens) {
    ASSERT_TRUE(Start());
    const CEOID oid = Outlook().AddContact(L"Abel, Anna", L"Talvern");
    ASSERT_EQ(PimUnregisterServer(), S_OK);
    for (const WORD kind : {WORD{0}, WORD{1}, WORD{2}, WORD{3}})
        Request(kind, oid);
    EXPECT_THAT(FakeEditor::items, IsEmpty());
    EXPECT_EQ(PimRegisterServer(), S_OK);
}

TEST_F(LinkTest, TheProgramRegistersPocketOutlookWhenItStarts) {
    ASSERT_EQ(PimUnregisterServer(), S_OK);
    ASSERT_TRUE(Start());
    Request(3, 0);
    EXPECT_THAT(FakeEditor::items, SizeIs(1));
}

// ---- While something else is going on ----

TEST_F(LinkTest, WhileThePasswordIsAskedForItIsIgnored) {
    app_->WriteString(L"Options", L"vacc", L"1204");
    app_->WriteInt(L"Options", L"pwActive", 1);
    PadVisits pads;
    pads.Expect([&] {
        EXPECT_EQ(SendMessageW(FindWindowW(L"JCLASS", nullptr), 1126, 3, 0), 1);
        pads.Tap(L"1204");
    });
    ASSERT_TRUE(Start());
    Settle();
    EXPECT_THAT(FakeEditor::items, IsEmpty());
}

TEST_F(LinkTest, WhileAScreenIsOpenItWaitsForItsEnd) {
    ASSERT_TRUE(Start());
    const CEOID first = Outlook().AddContact(L"Abel, Anna", L"");
    const CEOID second = Outlook().AddContact(L"Brook, Ben", L"");
    // What the options screen does as every modal one.
    FakeOptions::meanwhile = [&] {
        EnableWindow(window_->GetHandle(), FALSE);
        Request(0, first);
        Request(0, second);
        Request(0, first);  // each request is an entry
        Settle();
        EXPECT_THAT(FakeEditor::items, IsEmpty());
        EnableWindow(window_->GetHandle(), TRUE);
    };
    // And the editor.
    FakeEditor::editItem = [&](const PimData&) {
        EnableWindow(window_->GetHandle(), FALSE);
        EnableWindow(window_->GetHandle(), TRUE);
        return CEOID{0};
    };
    Command(IDM_OPTIONS);
    Settle();
    EXPECT_THAT(Begun(), ElementsAre(L"Abel, Anna", L"Brook, Ben", L"Abel, Anna"));
}

TEST_F(LinkTest, ManyThatWaitAreAllBegunAndWhatIsTooManyIsTold) {
    ASSERT_TRUE(Start());
    const CEOID oid = Outlook().AddContact(L"Abel, Anna", L"");
    EnableWindow(window_->GetHandle(), FALSE);
    for (int request = 0; request < 203; ++request)
        Request(0, oid);
    FakeEditor::editItem = [&](const PimData&) {
        EnableWindow(window_->GetHandle(), FALSE);
        EnableWindow(window_->GetHandle(), TRUE);
        return CEOID{0};
    };
    boxes_.Expect(L"Quillon Journal", L"3 requests for entries could not be kept: too many were waiting.");
    EnableWindow(window_->GetHandle(), TRUE);
    EXPECT_TRUE(PumpUntil([] { return FakeEditor::items.size() == 200; }));
    Settle();
    EXPECT_THAT(FakeEditor::items, SizeIs(200));
}

TEST_F(LinkTest, BehindAMessageBoxItWaits) {
    Write({L"one"});
    ASSERT_TRUE(Start());
    const CEOID oid = Outlook().AddContact(L"Abel, Anna", L"");
    boxes_.Expect(L"Interal PIM Error", L"Can't create journal entry for Task");
    PostMessageW(window_->GetHandle(), 1126, 0, static_cast<LPARAM>(oid));  // comes in the box's message loop
    Request(2, 999'999);
    Settle();
    EXPECT_THAT(Begun(), ElementsAre(L"Abel, Anna"));
}

TEST_F(LinkTest, AnOpenMenuIsClosedForIt) {
    ASSERT_TRUE(Start());
    const CEOID oid = Outlook().AddContact(L"Abel, Anna", L"");
    const HMENU menu = CreatePopupMenu();
    AppendMenuW(menu, MF_STRING, 1, L"One");
    PostMessageW(window_->GetHandle(), 1126, 0, static_cast<LPARAM>(oid));
    TrackPopupMenu(menu, 0, 10, 10, 0, window_->GetHandle(), nullptr);
    DestroyMenu(menu);
    EXPECT_TRUE(PumpUntil([] { return !FakeEditor::items.empty(); }));
    EXPECT_THAT(Begun(), ElementsAre(L"Abel, Anna"));
}

// ---- With a Pocket Outlook that fails, and says what it was asked ----

class StandInTest : public LinkTest {
protected:
    StandInTest() { oid_ = Outlook().AddAppointment(L"Review", kNoonOn7May2004); }
    std::string LogonCall() {
        return "logon " + std::to_string(static_cast<long>(reinterpret_cast<LONG_PTR>(window_->GetHandle())));
    }

    CEOID oid_ = 0;
};

TEST_F(StandInTest, LogsOnWithTheMainWindowAndOffAfterTheEditor) {
    StandInOutlook outlook;
    ASSERT_TRUE(Start());
    FakeEditor::editItem = [&](const PimData&) {
        EXPECT_THAT(outlook.calls, ElementsAre("create", LogonCall(), "item " + std::to_string(oid_)));
        return CEOID{0};
    };
    Request(1, oid_);
    EXPECT_THAT(outlook.calls, ElementsAre("create", LogonCall(), "item " + std::to_string(oid_), "logoff", "gone"));
    EXPECT_THAT(outlook.heldAtLogoff, ElementsAre(0u)) << "the item goes first";
    EXPECT_THAT(Begun(), ElementsAre(L"Review"));
}

TEST_F(StandInTest, OneThatCannotBeMadeEndsItSilently) {
    StandInOutlook outlook;
    outlook.creation = E_OUTOFMEMORY;
    ASSERT_TRUE(Start());
    Request(1, oid_);
    Request(3, oid_);
    EXPECT_THAT(outlook.calls, ElementsAre("create", "create"));
    EXPECT_THAT(FakeEditor::items, IsEmpty());
}

TEST_F(StandInTest, OneThatLetsNobodyInEndsItSilentlyAndIsReleased) {
    StandInOutlook outlook;
    outlook.logon = E_FAIL;
    ASSERT_TRUE(Start());
    Request(1, oid_);
    EXPECT_THAT(outlook.calls, ElementsAre("create", LogonCall(), "gone"));
    EXPECT_THAT(FakeEditor::items, IsEmpty());
}

TEST_F(StandInTest, OneThatSomebodyIsLoggedOnToServesAllTheSame) {
    StandInOutlook outlook;
    outlook.logon = S_FALSE;
    ASSERT_TRUE(Start());
    Request(1, oid_);
    EXPECT_THAT(Begun(), ElementsAre(L"Review"));
}

TEST_F(StandInTest, AFailedLookupIsToldAndLogsOff) {
    StandInOutlook outlook;
    outlook.lookup = E_FAIL;
    ASSERT_TRUE(Start());
    boxes_.Expect(L"Interal PIM Error", L"Can't create journal entry for Appointment");
    Request(1, oid_);
    EXPECT_THAT(outlook.calls, ElementsAre("create", LogonCall(), "item " + std::to_string(oid_), "logoff", "gone"));
    EXPECT_THAT(FakeEditor::items, IsEmpty());
}

TEST_F(StandInTest, AnotherKindLooksNothingUp) {
    StandInOutlook outlook;
    ASSERT_TRUE(Start());
    Request(3, oid_);
    EXPECT_THAT(outlook.calls, ElementsAre("create", LogonCall(), "logoff", "gone"));
    EXPECT_THAT(FakeEditor::items, SizeIs(1));
}

TEST_F(StandInTest, ClosedTogetherWithTheEditorItStillLogsOff) {
    StandInOutlook outlook;
    ASSERT_TRUE(Start());
    FakeEditor::editItem = [&](const PimData&) {
        window_->SendMessage(WM_CLOSE);
        return CEOID{0};
    };
    SendMessageW(window_->GetHandle(), 1126, 1, static_cast<LPARAM>(oid_));
    EXPECT_FALSE(window_->IsWindow());
    EXPECT_EQ(outlook.calls.back(), "gone");
}

}  // namespace
