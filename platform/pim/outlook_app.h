// The application object, from which all others come.
#pragma once

#include "platform/pim/item.h"

namespace pim {

class OutlookApp final : public ComObject<IPOutlookApp> {
public:
    HRESULT STDMETHODCALLTYPE Logon(long window) noexcept override;
    HRESULT STDMETHODCALLTYPE Logoff() noexcept override;
    HRESULT STDMETHODCALLTYPE get_Version(BSTR* version) noexcept override;
    HRESULT STDMETHODCALLTYPE GetDefaultFolder(int folder, IFolder** result) noexcept override;
    HRESULT STDMETHODCALLTYPE CreateItem(int type, IDispatch** item) noexcept override;
    HRESULT STDMETHODCALLTYPE GetItemFromOid(CEOID oid, IDispatch** item) noexcept override;
    HRESULT STDMETHODCALLTYPE get_Application(IPOutlookApp** application) noexcept override;
    HRESULT STDMETHODCALLTYPE SysFreeString(BSTR text) noexcept override;
    HRESULT STDMETHODCALLTYPE VariantTimeToSystemTime(DATE date, SYSTEMTIME* time) noexcept override;
    HRESULT STDMETHODCALLTYPE SystemTimeToVariantTime(SYSTEMTIME* time, DATE* date) noexcept override;

    // ---- What only a device has ----
    HRESULT STDMETHODCALLTYPE get_HomeCity(ICity** city) noexcept override { return None(city); }
    HRESULT STDMETHODCALLTYPE put_HomeCity(ICity*) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_VisitingCity(ICity** city) noexcept override { return None(city); }
    HRESULT STDMETHODCALLTYPE put_VisitingCity(ICity*) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_CurrentCityIndex(int*) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_CurrentCityIndex(int) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE ReceiveFromInfrared() noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_OutlookCompatible(VARIANT_BOOL* compatible) noexcept override;
    HRESULT STDMETHODCALLTYPE GetTimeZoneFromIndex(int, ITimeZone** zone) noexcept override { return None(zone); }
    HRESULT STDMETHODCALLTYPE GetTimeZoneInformationFromIndex(int, TIME_ZONE_INFORMATION*) noexcept override {
        return E_NOTIMPL;
    }

private:
    bool IsOwn(REFIID id) const noexcept override { return IsEqualIID(id, IID_IPOutlookApp); }
    Ref<IPOutlookApp> Self() { return Ref<IPOutlookApp>::Share(this); }
    template <class Interface>
    static HRESULT None(Interface** object) noexcept {
        if (!object) return E_POINTER;
        *object = nullptr;
        return E_NOTIMPL;
    }

    std::atomic<bool> loggedOn_ = false;
};

}  // namespace pim
