#include "tests/app/stand_in_outlook.h"

#include <gtest/gtest.h>

class StandInOutlook::Application final : public IPOutlookApp {
public:
    explicit Application(StandInOutlook& owner) : owner_(owner) {
        // The registered server's, without COM, which would come here again.
        const auto get = reinterpret_cast<HRESULT(WINAPI*)(REFCLSID, REFIID, void**)>(
            reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"cehost.dll"), "DllGetClassObject")));
        IClassFactory* factory = nullptr;
        EXPECT_EQ(get(CLSID_Application, IID_IClassFactory, reinterpret_cast<void**>(&factory)), S_OK);
        EXPECT_EQ(factory->CreateInstance(nullptr, IID_IPOutlookApp, reinterpret_cast<void**>(&real_)), S_OK);
        factory->Release();
        real_->Logon(0);
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) override {
        *result = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IPOutlookApp) ? this : nullptr;
        if (!*result) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        if (--references_ > 0) return references_;
        delete this;
        return 0;
    }

    HRESULT STDMETHODCALLTYPE Logon(long window) override {
        owner_.calls.push_back("logon " + std::to_string(window));
        return owner_.logon;
    }
    HRESULT STDMETHODCALLTYPE Logoff() override {
        owner_.calls.push_back("logoff");
        real_->AddRef();
        owner_.heldAtLogoff.push_back(real_->Release() - 1);  // each item holds its application
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetItemFromOid(CEOID oid, IDispatch** item) override {
        owner_.calls.push_back("item " + std::to_string(oid));
        *item = nullptr;
        return FAILED(owner_.lookup) ? owner_.lookup : real_->GetItemFromOid(oid, item);
    }

    // ---- What the journal does not use ----
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return Unasked(); }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return Unasked(); }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return Unasked(); }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
        return Unasked();
    }
    HRESULT STDMETHODCALLTYPE get_Version(BSTR*) override { return Unasked(); }
    HRESULT STDMETHODCALLTYPE GetDefaultFolder(int, IFolder**) override { return Unasked(); }
    HRESULT STDMETHODCALLTYPE CreateItem(int, IDispatch**) override { return Unasked(); }
    HRESULT STDMETHODCALLTYPE get_HomeCity(ICity**) override { return Unasked(); }
    HRESULT STDMETHODCALLTYPE put_HomeCity(ICity*) override { return Unasked(); }
    HRESULT STDMETHODCALLTYPE get_VisitingCity(ICity**) override { return Unasked(); }
    HRESULT STDMETHODCALLTYPE put_VisitingCity(ICity*) override { return Unasked(); }
    HRESULT STDMETHODCALLTYPE get_CurrentCityIndex(int*) override { return Unasked(); }
    HRESULT STDMETHODCALLTYPE put_CurrentCityIndex(int) override { return Unasked(); }
    HRESULT STDMETHODCALLTYPE ReceiveFromInfrared() override { return Unasked(); }
    HRESULT STDMETHODCALLTYPE get_OutlookCompatible(VARIANT_BOOL*) override { return Unasked(); }
    HRESULT STDMETHODCALLTYPE GetTimeZoneFromIndex(int, ITimeZone**) override { return Unasked(); }
    HRESULT STDMETHODCALLTYPE GetTimeZoneInformationFromIndex(int, TIME_ZONE_INFORMATION*) override {
        return Unasked();
    }
    HRESULT STDMETHODCALLTYPE get_Application(IPOutlookApp**) override { return Unasked(); }
    HRESULT STDMETHODCALLTYPE SysFreeString(BSTR) override { return Unasked(); }
    HRESULT STDMETHODCALLTYPE VariantTimeToSystemTime(DATE, SYSTEMTIME*) override { return Unasked(); }
    HRESULT STDMETHODCALLTYPE SystemTimeToVariantTime(SYSTEMTIME*, DATE*) override { return Unasked(); }

private:
    ~Application() {
        EXPECT_EQ(real_->Release(), 0u) << "an item was not released";
        owner_.calls.push_back("gone");
    }
    static HRESULT Unasked() {
        ADD_FAILURE() << "the journal has no use for this";
        return E_NOTIMPL;
    }

    StandInOutlook& owner_;
    IPOutlookApp* real_ = nullptr;
    ULONG references_ = 1;
};

// Belongs to its owner, and is not counted.
class StandInOutlook::Factory final : public IClassFactory {
public:
    explicit Factory(StandInOutlook& owner) : owner_(owner) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) override {
        *result = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IClassFactory) ? this : nullptr;
        return *result ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID id, void** result) override {
        owner_.calls.push_back("create");
        *result = nullptr;
        if (FAILED(owner_.creation)) return owner_.creation;
        auto* application = new Application(owner_);
        const HRESULT found = application->QueryInterface(id, result);
        application->Release();
        return found;
    }

private:
    StandInOutlook& owner_;
};

StandInOutlook::StandInOutlook() : factory_(new Factory(*this)) {
    EXPECT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
    EXPECT_EQ(
        CoRegisterClassObject(CLSID_Application, factory_, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &registration_),
        S_OK);
}

StandInOutlook::~StandInOutlook() {
    EXPECT_EQ(CoRevokeClassObject(registration_), S_OK);
    CoUninitialize();
    delete factory_;
}
