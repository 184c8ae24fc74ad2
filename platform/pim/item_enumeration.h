// The items of a collection one after another, for the loops of other languages.
#pragma once

#include "platform/pim/com_object.h"

namespace pim {

class ItemEnumeration final : public IEnumVARIANT {
public:
    explicit ItemEnumeration(Ref<IPOutlookItemCollection> items, int next = 1) : items_(std::move(items)), next_(next) {
        ++liveObjects;
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) noexcept override;
    ULONG STDMETHODCALLTYPE AddRef() noexcept override;
    ULONG STDMETHODCALLTYPE Release() noexcept override;
    HRESULT STDMETHODCALLTYPE Next(ULONG count, VARIANT* items, ULONG* fetched) noexcept override;
    HRESULT STDMETHODCALLTYPE Skip(ULONG count) noexcept override;
    HRESULT STDMETHODCALLTYPE Reset() noexcept override;
    HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT** copy) noexcept override;

private:
    ~ItemEnumeration() { --liveObjects; }

    std::atomic<long> references_{1};
    Ref<IPOutlookItemCollection> items_;
    std::atomic<int> next_;  // counted from 1, as the collection does
};

}  // namespace pim
