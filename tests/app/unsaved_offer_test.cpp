// Entries that could not be stored: closing asks, the next start offers them.
#include "editor/unsaved_entries.h"

#include "tests/app/app_fixture.h"
#include "tests/support/pad_visits.h"
#include "tests/support/pump.h"

namespace {

class UnsavedOfferTest : public AppFixture {
protected:
    void Keep(const wchar_t* subject) {
        TSList<DbJItem> fields;
        DbJournal().Initialize(&fields);
        FindFieldByPropID(fields, kPropSubject)->SetStrValue(subject);
        KeepUnsaved(fields);
    }
    void Forget() {
        TSList<DbJItem> fields;
        while (ReadUnsaved(&fields))
            ForgetUnsaved();
    }
};

constexpr wchar_t kTitle[] = L"Quillon Journal";
constexpr wchar_t kClosing[] = L"Not stored: Lunch\nThe next start offers it again.\nClose all the same?";
constexpr wchar_t kOffer[] = L"Not stored: Lunch\nGo on with it now?";

TEST_F(UnsavedOfferTest, ClosingAsksAndStaysOpenUnlessToldTo) {
    ASSERT_TRUE(Start());
    PumpOnce();
    Keep(L"Lunch");
    boxes_.Expect(kTitle, kClosing, IDNO);
    window_->SendMessage(WM_CLOSE);
    EXPECT_TRUE(window_->IsWindow());
    boxes_.Expect(kTitle, kClosing, IDYES);
    window_->SendMessage(WM_CLOSE);
    EXPECT_FALSE(window_->IsWindow());
    TSList<DbJItem> fields;
    EXPECT_TRUE(ReadUnsaved(&fields));
}

TEST_F(UnsavedOfferTest, AnEntryThatFailsToBeStoredWhileClosingIsAskedFor) {
    ASSERT_TRUE(Start());
    FakeEditor::finish = [&] { Keep(L"Lunch"); };
    boxes_.Expect(kTitle, kClosing, IDYES);
    window_->SendMessage(WM_CLOSE);
    EXPECT_FALSE(window_->IsWindow());
}

TEST_F(UnsavedOfferTest, ClosedAgainBehindTheQuestionItAsksOnce) {
    ASSERT_TRUE(Start());
    PumpOnce();
    Keep(L"Lunch");
    boxes_.Expect(kTitle, kClosing, IDNO);
    window_->PostMessage(WM_CLOSE);
    window_->SendMessage(WM_CLOSE);
    PumpOnce();
    EXPECT_EQ(boxes_.Seen().size(), 1u);
    EXPECT_TRUE(window_->IsWindow());
    Forget();
}

TEST_F(UnsavedOfferTest, ShortOfMemoryTheProgramClosesUnasked) {
    ASSERT_TRUE(Start());
    PumpOnce();
    Keep(L"Lunch");
    window_->SendMessage(MainWindow::kHibernate);
    EXPECT_FALSE(window_->IsWindow());
}

TEST_F(UnsavedOfferTest, TheNextStartOffersIt) {
    Keep(L"Lunch");
    boxes_.Expect(kTitle, kOffer, IDYES);
    ASSERT_TRUE(Start());
    EXPECT_TRUE(PumpUntil([] { return !FakeEditor::opened.empty(); }));
    EXPECT_EQ(FakeEditor::opened, std::vector<CEOID>{0});
    Forget();
}

TEST_F(UnsavedOfferTest, RefusedItIsKept) {
    Keep(L"Lunch");
    boxes_.Expect(kTitle, kOffer, IDNO);
    ASSERT_TRUE(Start());
    EXPECT_TRUE(PumpUntil([&] { return boxes_.Seen().size() == 1; }));
    PumpOnce();
    EXPECT_TRUE(FakeEditor::opened.empty());
    TSList<DbJItem> fields;
    EXPECT_TRUE(ReadUnsaved(&fields));
    Forget();
}

TEST_F(UnsavedOfferTest, BehindThePasswordNothingIsTold) {
    Keep(L"Lunch");
    app_->WriteString(L"Options", L"vacc", L"1204");
    app_->WriteInt(L"Options", L"pwActive", 1);
    PadVisits pads;
    pads.Expect([] {
        const HWND main = FindWindowW(L"JCLASS", nullptr);
        SendMessageW(main, MainWindow::kOfferUnsaved, 0, 0);
        SendMessageW(main, WM_CLOSE, 0, 0);
    });
    EXPECT_FALSE(Start());
    EXPECT_EQ(FindWindowW(L"JCLASS", nullptr), nullptr);
    Forget();
}

}  // namespace
