// How other programs come to Pocket Outlook: registered, made, and let go.
#include <pimstore.h>

#include <thread>

#include "tests/support/fresh_store.h"
#include "tests/support/outlook.h"

namespace {

class ServerTest : public testing::Test {
protected:
    ServerTest() { EXPECT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))); }
    ~ServerTest() override {
        EXPECT_EQ(PimRegisterServer(), S_OK);
        CoUninitialize();
    }

    static HRESULT Make(REFIID id, void** result) {
        return CoCreateInstance(CLSID_Application, nullptr, CLSCTX_INPROC_SERVER, id, result);
    }
    template <class Function>
    static Function* Exported(const char* name) {
        const auto function = reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"cehost.dll"), name));
        EXPECT_NE(function, nullptr) << name;
        return reinterpret_cast<Function*>(function);
    }
    HRESULT ClassObject(REFCLSID id, REFIID wanted, void** result) const {
        return Exported<HRESULT WINAPI(REFCLSID, REFIID, void**)>("DllGetClassObject")(id, wanted, result);
    }
    HRESULT CanUnload() const { return Exported<HRESULT WINAPI()>("DllCanUnloadNow")(); }

    FreshStore store_;
};

TEST_F(ServerTest, IsFoundOnceRegisteredAndNotFoundBefore) {
    IUnknown* object = nullptr;
    ASSERT_EQ(PimUnregisterServer(), S_OK);
    EXPECT_EQ(Make(IID_IPOutlookApp, reinterpret_cast<void**>(&object)), REGDB_E_CLASSNOTREG);
    EXPECT_EQ(object, nullptr);
    ASSERT_EQ(PimRegisterServer(), S_OK);
    ASSERT_EQ(Make(IID_IPOutlookApp, reinterpret_cast<void**>(&object)), S_OK);
    object->Release();
}

// As programs for the device begin: CoInitializeEx(nullptr, 0). Their threads may share what they get.
TEST_F(ServerTest, ThreadsWithoutAnApartmentOfTheirOwnFindAndShareIt) {
    ASSERT_EQ(PimRegisterServer(), S_OK);
    const auto work = [](IPOutlookApp* shared) {
        for (int i = 0; i < 20; ++i) {
            IDispatch* item = nullptr;
            EXPECT_EQ(shared->CreateItem(olContactItem, &item), S_OK);
            if (!item) return;
            IContact* contact = static_cast<IContact*>(item);
            EXPECT_EQ(contact->Save(), S_OK);
            contact->Release();
        }
    };
    std::thread([&] {
        ASSERT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, 0)));
        IPOutlookApp* application = nullptr;
        EXPECT_EQ(Make(IID_IPOutlookApp, reinterpret_cast<void**>(&application)), S_OK);
        if (application) {
            EXPECT_EQ(application->Logon(0), S_OK);
            std::thread other([&] { work(application); });
            work(application);
            other.join();
            IFolder* folder = nullptr;
            EXPECT_EQ(application->GetDefaultFolder(olFolderContacts, &folder), S_OK);
            IPOutlookItemCollection* items = nullptr;
            EXPECT_EQ(folder->get_Items(&items), S_OK);
            int count = 0;
            EXPECT_EQ(items->get_Count(&count), S_OK);
            EXPECT_EQ(count, 40);
            items->Release();
            folder->Release();
            application->Release();
        }
        CoUninitialize();
    }).join();
}

TEST_F(ServerTest, TheLibrarysOwnEntriesRegisterAndUnregister) {
    EXPECT_EQ(Exported<HRESULT WINAPI()>("DllUnregisterServer")(), S_OK);
    IUnknown* object = nullptr;
    EXPECT_EQ(Make(IID_IUnknown, reinterpret_cast<void**>(&object)), REGDB_E_CLASSNOTREG);
    EXPECT_EQ(Exported<HRESULT WINAPI()>("DllUnregisterServer")(), S_OK) << "nothing to take back is no failure";
    EXPECT_EQ(Exported<HRESULT WINAPI()>("DllRegisterServer")(), S_OK);
    ASSERT_EQ(Make(IID_IUnknown, reinterpret_cast<void**>(&object)), S_OK);
    object->Release();
}

TEST_F(ServerTest, IsRegisteredForThisUserWithItsLibraryAndItsThreading) {
    ASSERT_EQ(PimRegisterServer(), S_OK);
    constexpr wchar_t kKey[] = L"Software\\Classes\\CLSID\\{05058F23-20BE-11D2-8F18-0000F87A4335}\\InprocServer32";
    wchar_t text[MAX_PATH] = L"";
    DWORD size = sizeof(text);
    EXPECT_EQ(RegGetValueW(HKEY_CURRENT_USER, kKey, nullptr, RRF_RT_REG_SZ, nullptr, text, &size), ERROR_SUCCESS);
    wchar_t library[MAX_PATH] = L"";
    GetModuleFileNameW(GetModuleHandleW(L"cehost.dll"), library, MAX_PATH);
    EXPECT_STREQ(text, library);
    size = sizeof(text);
    EXPECT_EQ(RegGetValueW(HKEY_CURRENT_USER, kKey, L"ThreadingModel", RRF_RT_REG_SZ, nullptr, text, &size),
              ERROR_SUCCESS);
    EXPECT_STREQ(text, L"Both");
}

TEST_F(ServerTest, MakesTheApplicationObjectAloneAndNeverAsAPartOfAnother) {
    ASSERT_EQ(PimRegisterServer(), S_OK);
    void* object = &object;
    EXPECT_EQ(Make(IID_IContact, &object), E_NOINTERFACE);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(ClassObject(IID_IContact, IID_IClassFactory, &object), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(ClassObject(CLSID_Application, IID_IContact, &object), E_NOINTERFACE);
    EXPECT_EQ(ClassObject(CLSID_Application, IID_IClassFactory, nullptr), E_POINTER);
    IClassFactory* factory = nullptr;
    ASSERT_EQ(ClassObject(CLSID_Application, IID_IClassFactory, reinterpret_cast<void**>(&factory)), S_OK);
    EXPECT_EQ(factory->CreateInstance(factory, IID_IUnknown, &object), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
    factory->Release();
}

TEST_F(ServerTest, TheLibraryStaysWhileAnythingOfItIsHeld) {
    EXPECT_EQ(CanUnload(), S_OK);
    IClassFactory* factory = nullptr;
    ASSERT_EQ(ClassObject(CLSID_Application, IID_IClassFactory, reinterpret_cast<void**>(&factory)), S_OK);
    EXPECT_EQ(CanUnload(), S_FALSE);
    IPOutlookApp* application = nullptr;
    ASSERT_EQ(factory->CreateInstance(nullptr, IID_IPOutlookApp, reinterpret_cast<void**>(&application)), S_OK);
    factory->LockServer(TRUE);
    factory->Release();
    EXPECT_EQ(CanUnload(), S_FALSE);
    application->Logon(0);
    IDispatch* item = nullptr;
    ASSERT_EQ(application->CreateItem(olContactItem, &item), S_OK);
    EXPECT_EQ(static_cast<IContact*>(item)->Save(), S_OK);
    application->Logoff();
    EXPECT_EQ(application->Release(), 1u) << "the item's";
    EXPECT_EQ(CanUnload(), S_FALSE);
    EXPECT_EQ(item->Release(), 0u);
    EXPECT_EQ(CanUnload(), S_FALSE) << "it is locked";
    factory->LockServer(FALSE);
    EXPECT_EQ(CanUnload(), S_OK);
}

}  // namespace
