// The contacts picker on the people in Pocket Outlook.
#include "outlook/outlook_contacts.h"

#include <storebatch.h>

#include "data/contact_blob.h"
#include "pickers/contact_picker.h"
#include "tests/pickers/picker_stage.h"
#include "tests/support/outlook.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class OutlookContactsTest : public PickerStage {
protected:
    ~OutlookContactsTest() override { PimRegisterServer(); }

    // Runs the picker as the editor does, on whatever is offered.
    void Pick(const Script& script) {
        EXPECT_EQ(
            stage_.Run(
                IDC_CONTACT_LIST, IDOK, script,
                [&] { return ContactPicker::Run(stage_.Owner().GetHandle(), L"Contacts", held_, OfferedContacts()); }),
            IDOK);
    }
    HWND List() const { return Item(IDC_CONTACT_LIST); }
    std::wstring Held() const { return JoinContacts(held_); }

    OutlookContacts contacts_;
    TSList<DbAItem> held_;
};

TEST_F(OutlookContactsTest, PeopleAreOfferedByNameWithTheirCompany) {
    {
        const Outlook outlook;
        outlook.AddContact(L"cole, Cy", L"Acme");
        outlook.AddContact(L"Abel, Anna", L"Talvern");
        outlook.AddContact(L"Brook, Ben", L"");
    }
    Pick([&] {
        EXPECT_THAT(Rows(List()), ElementsAre(L"Abel, Anna", L"Brook, Ben", L"cole, Cy"));
        EXPECT_EQ(RowText(List(), 0, 1), L"Talvern");
        EXPECT_EQ(RowText(List(), 1, 1), L"");
        TapRow(List(), 2);
        TapRow(List(), 0);
    });
    EXPECT_EQ(Held(), L"cole, Cy; Abel, Anna");
    EXPECT_STREQ(held_.begin()->GetCompany(), L"Acme");
}

TEST_F(OutlookContactsTest, EachTimeItOpensItHasThePeopleOfThatTime) {
    Pick([&] { EXPECT_THAT(Rows(List()), IsEmpty()); });
    Outlook().AddContact(L"Abel, Anna", L"Talvern");
    Pick([&] { EXPECT_THAT(Rows(List()), ElementsAre(L"Abel, Anna")); });
}

TEST_F(OutlookContactsTest, WhatIsCheckedStaysCheckedInItsOrder) {
    {
        const Outlook outlook;
        for (const wchar_t* name : {L"Abel", L"Brook", L"Cole"})
            outlook.AddContact(name, L"Talvern");
    }
    for (const wchar_t* name : {L"Cole", L"Abel"})
        held_.Append(DbAItem(name, L"Talvern"));
    Pick([&] {
        EXPECT_THAT(Rows(List()), ElementsAre(L"Abel", L"Brook", L"Cole"));
        TapRow(List(), 0);
        TapRow(List(), 1);
        TapRow(List(), 0);
    });
    EXPECT_EQ(Held(), L"Cole; Brook; Abel");
}

TEST_F(OutlookContactsTest, WithoutPocketOutlookThereAreNoPeople) {
    Outlook().AddContact(L"Abel, Anna", L"Talvern");
    ASSERT_EQ(PimUnregisterServer(), S_OK);
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    Pick([&] { EXPECT_TRUE(IsWindowVisible(Item(IDC_NO_CONTACTS))); });
    CoUninitialize();
}

TEST_F(OutlookContactsTest, TenThousandPeopleAreReadOnceAndShownWhereTheyAreLookedAt) {
    {
        const Outlook outlook;
        ASSERT_TRUE(CeBeginBatch());
        for (int i = 0; i < 10'000; ++i)
            outlook.AddContact((L"Contact " + std::to_wstring(19'999 - i)).c_str(), L"Talvern");
        ASSERT_TRUE(CeCommitBatch());
    }
    held_.Append(DbAItem(L"Contact 15000", L"Talvern"));
    held_.Append(DbAItem(L"Nobody", L""));
    Pick([&] {
        EXPECT_EQ(ListView_GetItemCount(List()), 10'001);
        CeFailCall("CeReadRecordProps", 1, ERROR_GEN_FAILURE);  // nothing more is read
        CeFailCall("CeScanRecords", 1, ERROR_GEN_FAILURE);
        EXPECT_EQ(RowText(List(), 0), L"Nobody");
        EXPECT_EQ(RowText(List(), 1), L"Contact 10000");
        EXPECT_EQ(RowText(List(), 10'000), L"Contact 19999");
        TapRow(List(), 10'000);
        CeClearFaults();
    });
    EXPECT_EQ(Held(), L"Contact 15000; Nobody; Contact 19999");
}

}  // namespace
