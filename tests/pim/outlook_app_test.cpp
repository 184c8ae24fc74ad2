// The application object: logging on and off, folders, items by their ids.
#include <pimdata.h>

#include "tests/support/fresh_store.h"
#include "tests/support/outlook.h"

namespace {

class OutlookAppTest : public testing::Test {
protected:
    // Not null at first, so that a failure can be seen to clear it.
    IDispatch* Junk() { return reinterpret_cast<IDispatch*>(this); }
    void ExpectNoItem(CEOID oid) {
        IDispatch* item = Junk();
        EXPECT_EQ(outlook_->GetItemFromOid(oid, &item), E_INVALIDARG) << oid;
        EXPECT_EQ(item, nullptr);
    }

    FreshStore store_;
    Outlook outlook_;
};

TEST_F(OutlookAppTest, LoggingOnTwiceAndOffTwiceIsToldApart) {
    EXPECT_EQ(outlook_->Logon(0), S_FALSE);
    EXPECT_EQ(outlook_->Logoff(), S_OK);
    EXPECT_EQ(outlook_->Logoff(), S_FALSE);
    EXPECT_EQ(outlook_->Logon(0x10001), S_OK);
}

TEST_F(OutlookAppTest, AnswersNothingBeforeLoggingOn) {
    const CEOID oid = outlook_.AddContact(L"Abel, Anna", L"");
    outlook_->Logoff();
    IDispatch* item = Junk();
    EXPECT_EQ(outlook_->GetItemFromOid(oid, &item), E_UNEXPECTED);
    EXPECT_EQ(item, nullptr);
    item = Junk();
    EXPECT_EQ(outlook_->CreateItem(olTaskItem, &item), E_UNEXPECTED);
    EXPECT_EQ(item, nullptr);
    IFolder* folder = reinterpret_cast<IFolder*>(this);
    EXPECT_EQ(outlook_->GetDefaultFolder(olFolderContacts, &folder), E_UNEXPECTED);
    EXPECT_EQ(folder, nullptr);
    outlook_->Logon(0);
}

TEST_F(OutlookAppTest, NullPointersAreRefused) {
    EXPECT_EQ(outlook_->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
    EXPECT_EQ(outlook_->GetItemFromOid(1, nullptr), E_POINTER);
    EXPECT_EQ(outlook_->CreateItem(olContactItem, nullptr), E_POINTER);
    EXPECT_EQ(outlook_->GetDefaultFolder(olFolderContacts, nullptr), E_POINTER);
    EXPECT_EQ(outlook_->get_Version(nullptr), E_POINTER);
    EXPECT_EQ(outlook_->get_Application(nullptr), E_POINTER);
    EXPECT_EQ(outlook_->get_OutlookCompatible(nullptr), E_POINTER);
    EXPECT_EQ(outlook_->VariantTimeToSystemTime(1, nullptr), E_POINTER);
    EXPECT_EQ(outlook_->SystemTimeToVariantTime(nullptr, nullptr), E_POINTER);
    EXPECT_EQ(outlook_->get_HomeCity(nullptr), E_POINTER);
}

TEST_F(OutlookAppTest, AnItemIsWhatItsIdSays) {
    const CEOID ids[] = {outlook_.AddContact(L"Abel, Anna", L"Talvern"), outlook_.AddAppointment(L"Review", 38000.5),
                         outlook_.AddTask(L"Paint", 38001, 38002)};
    const IID interfaces[] = {IID_IContact, IID_IAppointment, IID_ITask};
    for (size_t i = 0; i < 3; ++i) {
        IDispatch* item = nullptr;
        ASSERT_EQ(outlook_->GetItemFromOid(ids[i], &item), S_OK);
        for (size_t j = 0; j < 3; ++j) {
            IUnknown* typed = nullptr;
            EXPECT_EQ(item->QueryInterface(interfaces[j], reinterpret_cast<void**>(&typed)),
                      i == j ? S_OK : E_NOINTERFACE);
            if (!typed) continue;
            EXPECT_EQ(typed, item) << "callers cast the answer";
            typed->Release();
        }
        EXPECT_EQ(item->Release(), 0u);
    }
}

TEST_F(OutlookAppTest, IdsOfNoItemAreRefused) {
    const CEOID gone = outlook_.AddContact(L"Gone, Gil", L"");
    IDispatch* item = nullptr;
    ASSERT_EQ(outlook_->GetItemFromOid(gone, &item), S_OK);
    EXPECT_EQ(static_cast<IContact*>(item)->Delete(), S_OK);
    item->Release();
    ExpectNoItem(gone);
    ExpectNoItem(0);
    ExpectNoItem(0xFFFFFFFF);
    ExpectNoItem(gone + 1000);
}

TEST_F(OutlookAppTest, RecordsAndDatabasesOfOthersAreNoItems) {
    CEOID database = 0;
    const HANDLE categories = CeOpenDatabase(&database, L"\\Categories Database", 0, 0, nullptr);
    ASSERT_NE(categories, INVALID_HANDLE_VALUE);
    const CEOID category = CeSeekDatabase(categories, CEDB_SEEK_BEGINNING, 0, nullptr);
    CloseHandle(categories);
    ASSERT_NE(category, 0u);
    ExpectNoItem(category);
    ExpectNoItem(database);
}

TEST_F(OutlookAppTest, FoldersAreThoseOfTheThreeKinds) {
    const struct {
        int folder;
        int type;
    } cases[] = {{olFolderCalendar, olAppointmentItem}, {olFolderContacts, olContactItem}, {olFolderTasks, olTaskItem}};
    for (const auto& c : cases) {
        IFolder* folder = nullptr;
        ASSERT_EQ(outlook_->GetDefaultFolder(c.folder, &folder), S_OK);
        int type = 0;
        EXPECT_EQ(folder->get_DefaultItemType(&type), S_OK);
        EXPECT_EQ(type, c.type);
        EXPECT_EQ(folder->get_DefaultItemType(nullptr), E_POINTER);
        EXPECT_EQ(folder->get_Items(nullptr), E_POINTER);
        IPOutlookApp* application = nullptr;
        EXPECT_EQ(folder->get_Application(&application), S_OK);
        EXPECT_EQ(application, outlook_.operator->());
        application->Release();
        EXPECT_EQ(folder->Release(), 0u);
    }
    IFolder* none = reinterpret_cast<IFolder*>(this);
    EXPECT_EQ(outlook_->GetDefaultFolder(11, &none), E_INVALIDARG);
    EXPECT_EQ(none, nullptr);
    EXPECT_EQ(outlook_->GetDefaultFolder(olFolderInfrared, &none), E_NOTIMPL);
}

TEST_F(OutlookAppTest, ItemsOfNoKindAreNotMade) {
    for (const int type : {0, 4, -1}) {
        IDispatch* item = Junk();
        EXPECT_EQ(outlook_->CreateItem(type, &item), E_INVALIDARG);
        EXPECT_EQ(item, nullptr);
    }
}

TEST_F(OutlookAppTest, ReferencesAreCounted) {
    EXPECT_EQ(outlook_->AddRef(), 2u);
    IUnknown* same = nullptr;
    ASSERT_EQ(outlook_->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(&same)), S_OK);
    IDispatch* item = nullptr;
    ASSERT_EQ(outlook_->CreateItem(olTaskItem, &item), S_OK);
    EXPECT_EQ(outlook_->AddRef(), 5u) << "the item has one, too";
    outlook_->Release();
    item->Release();
    same->Release();
    EXPECT_EQ(outlook_->Release(), 1u);
}

TEST_F(OutlookAppTest, DatesAreConverted) {
    SYSTEMTIME time = {};
    ASSERT_EQ(outlook_->VariantTimeToSystemTime(38000.5, &time), S_OK);
    EXPECT_EQ(time.wYear, 2004);
    EXPECT_EQ(time.wHour, 12);
    DATE date = 0;
    ASSERT_EQ(outlook_->SystemTimeToVariantTime(&time, &date), S_OK);
    EXPECT_DOUBLE_EQ(date, 38000.5);
    EXPECT_EQ(outlook_->VariantTimeToSystemTime(1e9, &time), E_INVALIDARG);
}

TEST_F(OutlookAppTest, ItemsLieInTheDatabasesOfThatName) {
    const CEOID contact = outlook_.AddContact(L"Abel, Anna", L"");
    CEOIDINFO record = {};
    ASSERT_TRUE(CeOidGetInfo(contact, &record));
    CEOIDINFO database = {};
    ASSERT_TRUE(CeOidGetInfo(record.infRecord.oidParent, &database));
    EXPECT_STREQ(database.infDatabase.szDbaseName, L"\\Contacts Database");
    EXPECT_EQ(database.infDatabase.dwDbaseType, 0x18u);
}

TEST_F(OutlookAppTest, AFailingStoreIsAnHresultOfItsError) {
    const CEOID oid = outlook_.AddContact(L"Abel, Anna", L"");
    IDispatch* item = nullptr;
    ASSERT_EQ(outlook_->GetItemFromOid(oid, &item), S_OK);
    auto* contact = static_cast<IContact*>(item);
    EXPECT_EQ(contact->put_Title(Bstr(L"Dr.").Get()), S_OK);
    CeFailCall("CeWriteRecordProps", 1, ERROR_DISK_FULL);
    EXPECT_EQ(contact->Save(), HRESULT_FROM_WIN32(ERROR_DISK_FULL));
    CeClearFaults();
    EXPECT_EQ(contact->Save(), S_OK) << "nothing is lost by the failure";
    contact->Release();
}

}  // namespace
