// The screen in which an entry's contacts are checked.
#include "pickers/contact_picker.h"

#include <px.h>

#include <tuple>

#include "data/contact_blob.h"
#include "tests/pickers/picker_stage.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class FakeContacts : public ContactSource {
public:
    int GetCount() override { return static_cast<int>(contacts.size()); }
    OfferedContact Get(int index) override {
        ++asked;
        return contacts.at(static_cast<size_t>(index));
    }

    std::vector<OfferedContact> contacts;
    int asked = 0;
};

class ContactPickerTest : public PickerStage {
protected:
    ContactPickerTest() {
        source_.contacts = {{L"Abel, Anna", L"Talvern"}, {L"Brook, Ben", L""}, {L"Cole; Cy", L"Acme, Inc."}};
    }

    void Hold(const wchar_t* name, const wchar_t* company) { held_.Append(DbAItem(name, company)); }
    std::wstring Held() const { return JoinContacts(held_); }
    void Open(const Script& script) { Open(source_, script); }
    void Open(ContactSource& source, const Script& script) {
        EXPECT_EQ(
            stage_.Run(IDC_CONTACT_LIST, IDOK, script,
                       [&] { return ContactPicker::Run(stage_.Owner().GetHandle(), L"Contacts", held_, source); }),
            IDOK);
    }
    HWND List() const { return Item(IDC_CONTACT_LIST); }
    bool IsChecked(int row) const { return ListView_GetCheckState(List(), static_cast<UINT>(row)) == 1; }
    int Find(int start, const wchar_t* text) const {
        LVFINDINFOW find = {};
        find.flags = LVFI_STRING | LVFI_PARTIAL | LVFI_WRAP;
        find.psz = text;
        return static_cast<int>(
            SendMessageW(List(), LVM_FINDITEMW, static_cast<WPARAM>(start), reinterpret_cast<LPARAM>(&find)));
    }

    FakeContacts source_;
    TSList<DbAItem> held_;
};

TEST_F(ContactPickerTest, ItHasTheCallersTitleAndShowsNameAndCompanyInTheOrderOffered) {
    Open([&] {
        wchar_t title[100] = L"";
        GetWindowTextW(Screen(), title, 100);
        EXPECT_STREQ(title, L"Contacts");
        EXPECT_THAT(Rows(List()), ElementsAre(L"Abel, Anna", L"Brook, Ben", L"Cole; Cy"));
        EXPECT_EQ(RowText(List(), 0, 1), L"Talvern");
        EXPECT_EQ(RowText(List(), 1, 1), L"");
        EXPECT_EQ(RowText(List(), 2, 1), L"Acme, Inc.");
        EXPECT_EQ(GetFocus(), List());
        ExpectNothingClipped();
    });
}

TEST_F(ContactPickerTest, ItHasTwoColumnsAsWideAsPlanned) {
    Open([&] {
        for (const auto& [column, title, width] : {std::tuple(0, L"FileAs", 120), std::tuple(1, L"Company", 100)}) {
            wchar_t text[50] = L"";
            LVCOLUMNW data = {};
            data.mask = LVCF_TEXT | LVCF_WIDTH;
            data.pszText = text;
            data.cchTextMax = 50;
            EXPECT_TRUE(
                SendMessageW(List(), LVM_GETCOLUMNW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&data)));
            EXPECT_STREQ(text, title);
            EXPECT_EQ(data.cx, Px(width));
        }
    });
}

TEST_F(ContactPickerTest, TheEntrysContactsAreChecked) {
    Hold(L"Cole; Cy", L"Acme, Inc.");
    Open([&] {
        EXPECT_FALSE(IsChecked(0));
        EXPECT_FALSE(IsChecked(1));
        EXPECT_TRUE(IsChecked(2));
    });
}

TEST_F(ContactPickerTest, AContactWithoutACompanyIsTheOneOfThatNameThatIsOffered) {
    Hold(L"Abel, Anna", L"");
    Hold(L"Brook, Ben", L"");
    Open([&] {
        EXPECT_THAT(Rows(List()), ElementsAre(L"Abel, Anna", L"Brook, Ben", L"Cole; Cy"));
        EXPECT_TRUE(IsChecked(0));
        EXPECT_TRUE(IsChecked(1));
        EXPECT_STREQ(held_.First()->GetCompany(), L"") << "only looked at";
        TapRow(List(), 0);
        EXPECT_FALSE(IsChecked(0));
        EXPECT_EQ(Held(), L"Brook, Ben");
        TapRow(List(), 0);
        EXPECT_TRUE(IsChecked(0));
        EXPECT_EQ(Held(), L"Brook, Ben; Abel, Anna");
        EXPECT_STREQ(held_.Find(DbAItem(L"Abel, Anna", L"Talvern"))->GetCompany(), L"Talvern");
    });
}

TEST_F(ContactPickerTest, AContactWithoutACompanyIsNoneOfSeveralOfItsName) {
    source_.contacts.insert(source_.contacts.begin(), {L"Abel, Anna", L"Acme"});
    Hold(L"Abel, Anna", L"");
    Open([&] {
        EXPECT_THAT(Rows(List()), ElementsAre(L"Abel, Anna", L"Abel, Anna", L"Abel, Anna", L"Brook, Ben", L"Cole; Cy"));
        EXPECT_TRUE(IsChecked(0));
        EXPECT_FALSE(IsChecked(1));
        EXPECT_FALSE(IsChecked(2));
    });
}

// Held both with and without the company: they are two, and each has its row.
TEST_F(ContactPickerTest, AContactHeldTwiceHasARowForEach) {
    Hold(L"Abel, Anna", L"");
    Hold(L"Abel, Anna", L"Talvern");
    Open([&] {
        EXPECT_THAT(Rows(List()), ElementsAre(L"Abel, Anna", L"Abel, Anna", L"Brook, Ben", L"Cole; Cy"));
        TapRow(List(), 1);
        EXPECT_TRUE(IsChecked(0));
        EXPECT_FALSE(IsChecked(1));
        EXPECT_STREQ(held_.First()->GetCompany(), L"");
    });
}

TEST_F(ContactPickerTest, TappingChecksInOrderAndUnchecks) {
    Open([&] {
        TapRow(List(), 2);
        TapRow(List(), 0);
        EXPECT_TRUE(IsChecked(0));
        EXPECT_TRUE(IsChecked(2));
        EXPECT_EQ(Held(), L"Cole; Cy; Abel, Anna");
        TapRow(List(), 2);
        EXPECT_FALSE(IsChecked(2));
        TapRow(List(), 1);
        TapRow(List(), 2);
    });
    EXPECT_EQ(Held(), L"Abel, Anna; Brook, Ben; Cole; Cy");
}

TEST_F(ContactPickerTest, WhatIsCheckedKnowsItsCompany) {
    Open([&] { TapRow(List(), 0); });
    ASSERT_EQ(held_.GetCount(), 1);
    EXPECT_STREQ(held_.begin()->GetCompany(), L"Talvern");
}

TEST_F(ContactPickerTest, OneOfTheSameNameInAnotherCompanyIsAnotherContact) {
    source_.contacts = {{L"Abel", L"One"}, {L"Abel", L"Two"}};
    Hold(L"Abel", L"Two");
    Open([&] {
        EXPECT_FALSE(IsChecked(0));
        EXPECT_TRUE(IsChecked(1));
        TapRow(List(), 0);
        TapRow(List(), 1);
    });
    ASSERT_EQ(held_.GetCount(), 1);
    EXPECT_STREQ(held_.begin()->GetCompany(), L"One");
}

TEST_F(ContactPickerTest, AContactThatIsNotOfferedIsNotLostAndCanBeUnchecked) {
    Hold(L"Gone, Gil", L"Old");
    Hold(L"Brook, Ben", L"");
    Open([&] {
        EXPECT_THAT(Rows(List()), ElementsAre(L"Gone, Gil", L"Abel, Anna", L"Brook, Ben", L"Cole; Cy"));
        EXPECT_TRUE(IsChecked(0));
        TapRow(List(), 1);
    });
    EXPECT_EQ(Held(), L"Gone, Gil; Brook, Ben; Abel, Anna");
    Open([&] {
        TapRow(List(), 0);
        EXPECT_EQ(ListView_GetItemCount(List()), 4);
        EXPECT_FALSE(IsChecked(0));
    });
    EXPECT_EQ(Held(), L"Brook, Ben; Abel, Anna");
}

TEST_F(ContactPickerTest, WithoutContactsItSaysSo) {
    Open(OfferedContacts(), [&] {
        EXPECT_FALSE(IsWindowVisible(List()));
        wchar_t text[200] = L"";
        GetWindowTextW(Item(IDC_NO_CONTACTS), text, 200);
        EXPECT_STREQ(text, L"No contacts.\nTo choose people here, drop a vCard file (.vcf) on the list of entries.");
        EXPECT_TRUE(IsWindowVisible(Item(IDC_NO_CONTACTS)));
        ExpectNothingClipped();
    });
}

TEST_F(ContactPickerTest, WithoutASourceTheEntrysContactsAreThereAllTheSame) {
    Hold(L"Abel, Anna", L"Talvern");
    Open(OfferedContacts(), [&] {
        EXPECT_THAT(Rows(List()), ElementsAre(L"Abel, Anna"));
        EXPECT_TRUE(IsChecked(0));
        EXPECT_FALSE(IsWindowVisible(Item(IDC_NO_CONTACTS)));
    });
    EXPECT_EQ(Held(), L"Abel, Anna");
}

TEST_F(ContactPickerTest, WhoeverOffersContactsIsAskedUntilHeEnds) {
    OfferContacts(&source_);
    EXPECT_EQ(OfferedContacts().GetCount(), 3);
    OfferContacts(nullptr);
    EXPECT_EQ(OfferedContacts().GetCount(), 0);
}

TEST_F(ContactPickerTest, TenThousandContactsAreAskedForAsTheyAreDrawn) {
    source_.contacts.clear();
    for (int i = 0; i < 10'000; ++i)
        source_.contacts.push_back({L"Contact " + std::to_wstring(10'000 + i), L"Company"});
    Open([&] {
        EXPECT_EQ(ListView_GetItemCount(List()), 10'000);
        EXPECT_LT(source_.asked, 1'000);
        TapRow(List(), 9'999);
        EXPECT_TRUE(IsChecked(9'999));
    });
    EXPECT_EQ(Held(), L"Contact 19999");
}

TEST_F(ContactPickerTest, TypingTheBeginningOfANameFindsIt) {
    Open([&] {
        EXPECT_EQ(Find(-1, L"b"), 1);
        EXPECT_EQ(Find(-1, L"COLE"), 2);
        EXPECT_EQ(Find(1, L"a"), 0);
        EXPECT_EQ(Find(-1, L"x"), -1);
    });
}

TEST_F(ContactPickerTest, TheSpaceKeyTogglesAndEnterAndEscapeAreOk) {
    Open([&] {
        SendMessageW(List(), WM_KEYDOWN, VK_SPACE, 1);
        EXPECT_TRUE(IsChecked(0));
        SendMessageW(List(), WM_KEYDOWN, VK_SPACE, 1);
        EXPECT_FALSE(IsChecked(0));
        SendMessageW(List(), WM_KEYDOWN, VK_DOWN, 1);
        SendMessageW(List(), WM_KEYDOWN, VK_SPACE, 1);
        Press(List(), VK_RETURN);
        EXPECT_FALSE(IsWindowVisible(Screen()));
    });
    EXPECT_EQ(Held(), L"Brook, Ben");
    Open([&] {
        Press(List(), VK_ESCAPE);
        EXPECT_FALSE(IsWindowVisible(Screen()));
    });
    EXPECT_EQ(Held(), L"Brook, Ben");
}

}  // namespace
