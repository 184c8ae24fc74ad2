// How COM finds Pocket Outlook in this library.
#include "platform/pim/outlook_app.h"

namespace pim {
namespace {

class Factory final : public IClassFactory {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) noexcept override {
        if (!result) return E_POINTER;
        const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IClassFactory);
        *result = known ? static_cast<IClassFactory*>(this) : nullptr;
        if (!known) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    // The one factory lives as long as the library; who holds it keeps the library.
    ULONG STDMETHODCALLTYPE AddRef() noexcept override {
        ++liveObjects;
        return 2;
    }
    ULONG STDMETHODCALLTYPE Release() noexcept override {
        --liveObjects;
        return 1;
    }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** result) noexcept override {
        if (!result) return E_POINTER;
        *result = nullptr;
        if (outer) return CLASS_E_NOAGGREGATION;
        return Guarded([&] {
            const Ref<IPOutlookApp> application(new OutlookApp);
            return application->QueryInterface(id, result);
        });
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) noexcept override {
        liveObjects += lock ? 1 : -1;
        return S_OK;
    }
};

Factory factory;

}  // namespace
}  // namespace pim

extern "C" __declspec(dllexport) HRESULT WINAPI DllGetClassObject(REFCLSID id, REFIID wanted, void** result) {
    if (!result) return E_POINTER;
    *result = nullptr;
    if (!IsEqualCLSID(id, CLSID_Application)) return CLASS_E_CLASSNOTAVAILABLE;
    return pim::factory.QueryInterface(wanted, result);
}

// The object store is closed first: its file and its timer would outlive the library.
extern "C" __declspec(dllexport) HRESULT WINAPI DllCanUnloadNow() {
    return pim::liveObjects == 0 && CeUnmountObjectStore() ? S_OK : S_FALSE;
}
