#include "platform/pim/outlook_app.h"

#include "platform/pim/appointment.h"
#include "platform/pim/contact.h"
#include "platform/pim/folder.h"
#include "platform/pim/task.h"

namespace pim {
namespace {

constexpr wchar_t kVersion[] = L"3.1";

// The kind of the item that has this object id; null when it is no item's.
const ItemKind* KindOfItem(CEOID oid) {
    CEOIDINFO info;
    if (!CeOidGetInfo(oid, &info) || info.wObjType != OBJTYPE_RECORD) return nullptr;
    if (!CeOidGetInfo(info.infRecord.oidParent, &info) || info.wObjType != OBJTYPE_DATABASE) return nullptr;
    return KindOfDatabase(info.infDatabase.szDbaseName);
}

}  // namespace

Ref<IDispatch> MakeItem(const Ref<IPOutlookApp>& application, ItemRecord record) {
    switch (record.Kind().type) {
        case olContactItem: return Ref<IDispatch>(new Contact(application, std::move(record)));
        case olAppointmentItem: return Ref<IDispatch>(new Appointment(application, std::move(record)));
        default: return Ref<IDispatch>(new Task(application, std::move(record)));
    }
}

HRESULT OutlookApp::Logon(long) noexcept {
    return loggedOn_.exchange(true) ? S_FALSE : S_OK;
}

HRESULT OutlookApp::Logoff() noexcept {
    return loggedOn_.exchange(false) ? S_OK : S_FALSE;
}

HRESULT OutlookApp::get_Version(BSTR* version) noexcept {
    if (!version) return E_POINTER;
    *version = nullptr;
    return Locked([&] { return *version = MakeBstr(kVersion), S_OK; });
}

HRESULT OutlookApp::GetDefaultFolder(int folder, IFolder** result) noexcept {
    if (!result) return E_POINTER;
    *result = nullptr;
    if (!loggedOn_) return E_UNEXPECTED;
    if (folder == olFolderCities || folder == olFolderInfrared) return E_NOTIMPL;
    const ItemKind* kind = KindOfFolder(folder);
    if (!kind) return E_INVALIDARG;
    return Locked([&] { return *result = new Folder(Self(), *kind), S_OK; });
}

HRESULT OutlookApp::CreateItem(int type, IDispatch** item) noexcept {
    if (!item) return E_POINTER;
    *item = nullptr;
    if (!loggedOn_) return E_UNEXPECTED;
    if (type == olCityItem) return E_NOTIMPL;
    const ItemKind* kind = KindOfType(type);
    if (!kind) return E_INVALIDARG;
    return Locked([&] { return *item = MakeItem(Self(), ItemRecord(*kind)).Detach(), S_OK; });
}

HRESULT OutlookApp::GetItemFromOid(CEOID oid, IDispatch** item) noexcept {
    if (!item) return E_POINTER;
    *item = nullptr;
    if (!loggedOn_) return E_UNEXPECTED;
    return Locked([&] {
        const ItemKind* kind = KindOfItem(oid);
        if (!kind) return E_INVALIDARG;
        ItemRecord record(*kind, oid);
        record.Complete();
        *item = MakeItem(Self(), std::move(record)).Detach();
        return S_OK;
    });
}

HRESULT OutlookApp::get_Application(IPOutlookApp** application) noexcept {
    if (!application) return E_POINTER;
    *application = Self().Detach();
    return S_OK;
}

HRESULT OutlookApp::SysFreeString(BSTR text) noexcept {
    ::SysFreeString(text);
    return S_OK;
}

HRESULT OutlookApp::VariantTimeToSystemTime(DATE date, SYSTEMTIME* time) noexcept {
    if (!time) return E_POINTER;
    return ::VariantTimeToSystemTime(date, time) ? S_OK : E_INVALIDARG;
}

HRESULT OutlookApp::SystemTimeToVariantTime(SYSTEMTIME* time, DATE* date) noexcept {
    if (!time || !date) return E_POINTER;
    return ::SystemTimeToVariantTime(time, date) ? S_OK : E_INVALIDARG;
}

HRESULT OutlookApp::get_OutlookCompatible(VARIANT_BOOL* compatible) noexcept {
    if (!compatible) return E_POINTER;
    *compatible = VARIANT_FALSE;
    return S_OK;
}

}  // namespace pim
