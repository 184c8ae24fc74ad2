// The folder of one kind of items.
#pragma once

#include "platform/pim/com_object.h"
#include "platform/pim/item_kind.h"

namespace pim {

class Folder final : public ComObject<IFolder> {
public:
    Folder(Ref<IPOutlookApp> application, const ItemKind& kind) : application_(std::move(application)), kind_(kind) {}

    HRESULT STDMETHODCALLTYPE get_Items(IPOutlookItemCollection** items) noexcept override;
    HRESULT STDMETHODCALLTYPE get_DefaultItemType(int* type) noexcept override;
    HRESULT STDMETHODCALLTYPE get_Application(IPOutlookApp** application) noexcept override;
    HRESULT STDMETHODCALLTYPE AddItemToInfraredFolder(int, IDispatch*) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SendToInfrared() noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE ReceiveFromInfrared(IPOutlookItemCollection** items) noexcept override;

private:
    bool IsOwn(REFIID id) const noexcept override { return IsEqualIID(id, IID_IFolder); }

    Ref<IPOutlookApp> application_;
    const ItemKind& kind_;
};

}  // namespace pim
