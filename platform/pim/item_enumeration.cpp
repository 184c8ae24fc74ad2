#include "platform/pim/item_enumeration.h"

namespace pim {

HRESULT ItemEnumeration::QueryInterface(REFIID id, void** result) noexcept {
    if (!result) return E_POINTER;
    const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IEnumVARIANT);
    *result = known ? static_cast<IEnumVARIANT*>(this) : nullptr;
    if (!known) return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

ULONG ItemEnumeration::AddRef() noexcept {
    return static_cast<ULONG>(++references_);
}

ULONG ItemEnumeration::Release() noexcept {
    const long left = --references_;
    if (left == 0) delete this;
    return static_cast<ULONG>(left);
}

HRESULT ItemEnumeration::Next(ULONG count, VARIANT* items, ULONG* fetched) noexcept {
    if (fetched) *fetched = 0;
    if (!items || (!fetched && count != 1)) return E_POINTER;
    int last = 0;
    const HRESULT counted = items_->get_Count(&last);
    if (FAILED(counted)) return counted;
    ULONG done = 0;
    for (; done < count && next_ <= last; ++done, ++next_) {
        IDispatch* item = nullptr;
        const HRESULT result = items_->Item(next_, &item);
        if (FAILED(result)) {
            while (done)
                VariantClear(&items[--done]);
            return result;
        }
        VariantInit(&items[done]);
        items[done].vt = VT_DISPATCH;
        items[done].pdispVal = item;
    }
    if (fetched) *fetched = done;
    return done == count ? S_OK : S_FALSE;
}

HRESULT ItemEnumeration::Skip(ULONG count) noexcept {
    int last = 0;
    const HRESULT counted = items_->get_Count(&last);
    if (FAILED(counted)) return counted;
    const ULONG left = next_ <= last ? static_cast<ULONG>(last - next_ + 1) : 0;
    next_ += static_cast<int>(count < left ? count : left);
    return count <= left ? S_OK : S_FALSE;
}

HRESULT ItemEnumeration::Reset() noexcept {
    next_ = 1;
    return S_OK;
}

HRESULT ItemEnumeration::Clone(IEnumVARIANT** copy) noexcept {
    if (!copy) return E_POINTER;
    *copy = nullptr;
    return Guarded([&] { return *copy = new ItemEnumeration(items_, next_), S_OK; });
}

}  // namespace pim
