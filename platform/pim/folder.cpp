#include "platform/pim/folder.h"

#include "platform/pim/item_collection.h"

namespace pim {

HRESULT Folder::get_Items(IPOutlookItemCollection** items) noexcept {
    if (!items) return E_POINTER;
    *items = nullptr;
    return Locked([&] { return *items = new ItemCollection(application_, kind_), S_OK; });
}

HRESULT Folder::get_DefaultItemType(int* type) noexcept {
    if (!type) return E_POINTER;
    *type = kind_.type;
    return S_OK;
}

HRESULT Folder::get_Application(IPOutlookApp** application) noexcept {
    if (!application) return E_POINTER;
    *application = Ref(application_).Detach();
    return S_OK;
}

HRESULT Folder::ReceiveFromInfrared(IPOutlookItemCollection** items) noexcept {
    if (!items) return E_POINTER;
    *items = nullptr;
    return E_NOTIMPL;
}

}  // namespace pim
