// A folder's items: counted, ordered, looked for, added and removed.
#include <gmock/gmock.h>
#include <pimdata.h>

#include <vector>

#include "tests/support/fresh_store.h"
#include "tests/support/outlook.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CollectionTest : public testing::Test {
protected:
    ~CollectionTest() override { EXPECT_EQ(items_ ? items_->Release() : 0, 0u); }

    void Open(OlDefaultFolders which) {
        IFolder* folder = nullptr;
        ASSERT_EQ(outlook_->GetDefaultFolder(which, &folder), S_OK);
        IPOutlookItemCollection* items = nullptr;
        ASSERT_EQ(folder->get_Items(&items), S_OK);
        folder->Release();
        ASSERT_EQ(items->QueryInterface(IID_IPOlItems, reinterpret_cast<void**>(&items_)), S_OK);
        items->Release();
    }
    void OpenContacts() {
        outlook_.AddContact(L"cole, Cy", L"Acme");
        outlook_.AddContact(L"Abel, Anna", L"Talvern");
        outlook_.AddContact(L"Brook, Ben", L"Acme");
        Open(olFolderContacts);
    }
    int Count() {
        int count = -1;
        EXPECT_EQ(items_->get_Count(&count), S_OK);
        return count;
    }
    static std::wstring NameOf(IDispatch* item) { return TextOf(static_cast<IContact*>(item), &IContact::get_FileAs); }
    static std::vector<std::wstring> Names(IPOutlookItemCollection* items) {
        std::vector<std::wstring> names;
        IDispatch* item = nullptr;
        for (int i = 1; items->Item(i, &item) == S_OK; ++i) {
            names.push_back(NameOf(item));
            item->Release();
        }
        return names;
    }
    std::vector<std::wstring> Restricted(const wchar_t* restriction) {
        IPOutlookItemCollection* some = nullptr;
        EXPECT_EQ(items_->Restrict(Bstr(restriction).Get(), &some), S_OK) << restriction;
        if (!some) return {};
        std::vector<std::wstring> names = Names(some);
        some->Release();
        return names;
    }

    FreshStore store_;
    Outlook outlook_;
    IPOlItems* items_ = nullptr;
};

TEST_F(CollectionTest, AnEmptyFolderHasNoItems) {
    Open(olFolderTasks);
    EXPECT_EQ(Count(), 0);
    IDispatch* item = reinterpret_cast<IDispatch*>(this);
    EXPECT_EQ(items_->Item(1, &item), E_INVALIDARG);
    EXPECT_EQ(item, nullptr);
    EXPECT_EQ(items_->Remove(1), E_INVALIDARG);
}

TEST_F(CollectionTest, ContactsComeAsTheyAreFiledWithoutRegardToCase) {
    OpenContacts();
    EXPECT_EQ(Count(), 3);
    EXPECT_THAT(Names(items_), ElementsAre(L"Abel, Anna", L"Brook, Ben", L"cole, Cy"));
}

TEST_F(CollectionTest, IndexesCountFromOne) {
    OpenContacts();
    IDispatch* item = nullptr;
    EXPECT_EQ(items_->Item(0, &item), E_INVALIDARG);
    EXPECT_EQ(items_->Item(-1, &item), E_INVALIDARG);
    EXPECT_EQ(items_->Item(4, &item), E_INVALIDARG);
    EXPECT_EQ(items_->Item(1, nullptr), E_POINTER);
    EXPECT_EQ(items_->get_Count(nullptr), E_POINTER);
}

TEST_F(CollectionTest, FollowsWhatOthersChangeInTheFolder) {
    OpenContacts();
    EXPECT_EQ(Count(), 3);
    outlook_.AddContact(L"Aaron, Al", L"");
    EXPECT_THAT(Names(items_), ElementsAre(L"Aaron, Al", L"Abel, Anna", L"Brook, Ben", L"cole, Cy"));
}

TEST_F(CollectionTest, AddedItemsAreThereOnceSavedAndRemovedOnesAreGone) {
    OpenContacts();
    IDispatch* item = nullptr;
    ASSERT_EQ(items_->Add(&item), S_OK);
    EXPECT_EQ(items_->Add(nullptr), E_POINTER);
    auto* contact = static_cast<IContact*>(item);
    contact->put_FileAs(Bstr(L"Dove, Di").Get());
    EXPECT_EQ(Count(), 3);
    Outlook::SaveAndRelease(contact);
    EXPECT_EQ(Count(), 4);
    EXPECT_EQ(items_->Remove(2), S_OK);
    EXPECT_THAT(Names(items_), ElementsAre(L"Abel, Anna", L"cole, Cy", L"Dove, Di"));
}

TEST_F(CollectionTest, IsSortedByAnyProperty) {
    OpenContacts();
    EXPECT_EQ(items_->Sort(Bstr(L"[FileAs]").Get(), VARIANT_TRUE), S_OK);
    EXPECT_THAT(Names(items_), ElementsAre(L"cole, Cy", L"Brook, Ben", L"Abel, Anna"));
    EXPECT_EQ(items_->Sort(Bstr(L"companyname").Get(), VARIANT_FALSE), S_OK);
    EXPECT_THAT(Names(items_), ElementsAre(L"cole, Cy", L"Brook, Ben", L"Abel, Anna"));
    EXPECT_EQ(items_->Sort(Bstr(L"[Shoe size]").Get(), VARIANT_FALSE), E_INVALIDARG);
    EXPECT_EQ(items_->Sort(nullptr, VARIANT_FALSE), E_INVALIDARG);
    EXPECT_THAT(Names(items_), ElementsAre(L"cole, Cy", L"Brook, Ben", L"Abel, Anna"));
    EXPECT_EQ(items_->Sort(Bstr(L"[FileAs]").Get(), VARIANT_FALSE), S_OK);
    EXPECT_THAT(Names(items_), ElementsAre(L"Abel, Anna", L"Brook, Ben", L"cole, Cy"));
}

TEST_F(CollectionTest, AppointmentsComeByTheirStart) {
    const CEOID late = outlook_.AddAppointment(L"late", 38002);
    const CEOID early = outlook_.AddAppointment(L"early", 38000);
    Open(olFolderCalendar);
    for (const auto& [index, oid] : {std::pair(1, early), std::pair(2, late)}) {
        IDispatch* item = nullptr;
        ASSERT_EQ(items_->Item(index, &item), S_OK);
        long found = 0;
        EXPECT_EQ(static_cast<IAppointment*>(item)->get_Oid(&found), S_OK);
        EXPECT_EQ(static_cast<CEOID>(found), oid);
        item->Release();
    }
}

TEST_F(CollectionTest, RestrictionsChooseItems) {
    OpenContacts();
    EXPECT_THAT(Restricted(L"[CompanyName] = \"acme\""), ElementsAre(L"Brook, Ben", L"cole, Cy"));
    EXPECT_THAT(Restricted(L"[CompanyName] <> 'Acme'"), ElementsAre(L"Abel, Anna"));
    EXPECT_THAT(Restricted(L"[FileAs] >= \"B\" AND [companyname]=\"Acme\""), ElementsAre(L"Brook, Ben", L"cole, Cy"));
    EXPECT_THAT(Restricted(L"[FileAs]<\"B\" or [FileAs]>\"C\" and [CompanyName]=\"Acme\""),
                ElementsAre(L"Abel, Anna", L"cole, Cy"));
    EXPECT_THAT(Restricted(L"[FileAs] <= \"Brook, Ben\""), ElementsAre(L"Abel, Anna", L"Brook, Ben"));
    EXPECT_THAT(Restricted(L"[FileAs] < \"Brook, Ben\""), ElementsAre(L"Abel, Anna"));
    EXPECT_THAT(Restricted(L"[FileAs] > \"Brook, Ben\""), ElementsAre(L"cole, Cy"));
    EXPECT_THAT(Restricted(L"[Title] = \"\""), ElementsAre(L"Abel, Anna", L"Brook, Ben", L"cole, Cy"));
    EXPECT_THAT(Restricted(L"[Birthday] < \"1/1/1970\""), IsEmpty());
}

TEST_F(CollectionTest, RestrictionsThatMakeNoSenseAreRefused) {
    OpenContacts();
    for (const wchar_t* text :
         {L"", L"FileAs = \"x\"", L"[FileAs", L"[FileAs]", L"[FileAs] = ", L"[FileAs] = \"x", L"[Shoe] = 3",
          L"[FileAs] = \"x\" xor [FileAs] = \"y\"", L"[FileAs] = \"x\" and", L"[Birthday] = \"never\""}) {
        IPOutlookItemCollection* some = reinterpret_cast<IPOutlookItemCollection*>(this);
        EXPECT_EQ(items_->Restrict(Bstr(text).Get(), &some), E_INVALIDARG) << text;
        EXPECT_EQ(some, nullptr);
    }
    EXPECT_EQ(items_->Restrict(Bstr(L"[FileAs]=\"x\"").Get(), nullptr), E_POINTER);
}

TEST_F(CollectionTest, FindGoesFromOneFittingItemToTheNext) {
    OpenContacts();
    IDispatch* item = nullptr;
    EXPECT_EQ(items_->FindNext(&item), E_INVALIDARG) << "nothing was looked for";
    ASSERT_EQ(items_->Find(Bstr(L"[CompanyName] = \"Acme\"").Get(), &item), S_OK);
    EXPECT_EQ(NameOf(item), L"Brook, Ben");
    item->Release();
    ASSERT_EQ(items_->FindNext(&item), S_OK);
    EXPECT_EQ(NameOf(item), L"cole, Cy");
    item->Release();
    EXPECT_EQ(items_->FindNext(&item), S_FALSE);
    EXPECT_EQ(item, nullptr);
    EXPECT_EQ(items_->FindNext(&item), S_FALSE);
}

TEST_F(CollectionTest, ItemsCanBeEnumerated) {
    OpenContacts();
    IUnknown* unknown = nullptr;
    ASSERT_EQ(items_->get__NewEnum(&unknown), S_OK);
    IEnumVARIANT* all = nullptr;
    ASSERT_EQ(unknown->QueryInterface(IID_IEnumVARIANT, reinterpret_cast<void**>(&all)), S_OK);
    unknown->Release();
    EXPECT_EQ(all->Skip(1), S_OK);
    VARIANT found[3];
    ULONG count = 0;
    EXPECT_EQ(all->Next(3, found, &count), S_FALSE);
    ASSERT_EQ(count, 2u);
    EXPECT_EQ(NameOf(found[0].pdispVal), L"Brook, Ben");
    EXPECT_EQ(NameOf(found[1].pdispVal), L"cole, Cy");
    for (ULONG i = 0; i < count; ++i)
        VariantClear(&found[i]);
    EXPECT_EQ(all->Skip(1), S_FALSE);
    EXPECT_EQ(all->Reset(), S_OK);
    EXPECT_EQ(all->Next(1, found, nullptr), S_OK);
    VariantClear(&found[0]);
    IEnumVARIANT* rest = nullptr;
    ASSERT_EQ(all->Clone(&rest), S_OK);
    EXPECT_EQ(rest->Next(1, found, nullptr), S_OK);
    EXPECT_EQ(NameOf(found[0].pdispVal), L"Brook, Ben");
    VariantClear(&found[0]);
    EXPECT_EQ(rest->Release(), 0u);
    EXPECT_EQ(all->Release(), 0u);
}

TEST_F(CollectionTest, ColumnsAreReadAtOnceAndTheRestWhenItIsAskedFor) {
    OpenContacts();
    EXPECT_EQ(items_->SetColumns(Bstr(L"FileAs, CompanyName, Title").Get()), S_OK);
    EXPECT_EQ(items_->SetColumns(Bstr(L"FileAs, Shoe").Get()), E_INVALIDARG);
    EXPECT_EQ(Count(), 3);
    IDispatch* item = nullptr;
    ASSERT_EQ(items_->Item(1, &item), S_OK);
    auto* contact = static_cast<IContact*>(item);
    CeFailCall("CeOpenDatabase", 1, ERROR_GEN_FAILURE);  // no column needs the store
    EXPECT_EQ(NameOf(contact), L"Abel, Anna");
    EXPECT_EQ(TextOf(contact, &IContact::get_CompanyName), L"Talvern");
    EXPECT_EQ(TextOf(contact, &IContact::get_Title), L"");
    Bstr body;
    EXPECT_EQ(contact->get_Body(body.Put()), HRESULT_FROM_WIN32(ERROR_GEN_FAILURE));
    EXPECT_EQ(contact->get_Body(body.Put()), S_OK);
    contact->Release();
}

TEST_F(CollectionTest, AFailingStoreIsAnHresultAndTheNextCallReadsAgain) {
    OpenContacts();
    int count = -1;
    CeFailCall("CeScanRecords", 1, ERROR_FILE_CORRUPT);
    EXPECT_EQ(items_->get_Count(&count), HRESULT_FROM_WIN32(ERROR_FILE_CORRUPT));
    EXPECT_EQ(count, 0);
    EXPECT_EQ(Count(), 3);
}

}  // namespace
