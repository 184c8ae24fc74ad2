// A person.
#pragma once

#include "platform/pim/item.h"

namespace pim {

class Contact final : public Item<Contact, IContact> {
public:
    using Item::Item;

#define PIM_GET(type, name)                                               \
    HRESULT STDMETHODCALLTYPE get_##name(type* value) noexcept override { \
        return Get(kContact##name, value);                                \
    }
#define PIM_PUT(type, name)                                              \
    HRESULT STDMETHODCALLTYPE put_##name(type value) noexcept override { \
        return Put(kContact##name, value);                               \
    }
    PIM_CONTACT_PROPERTIES(PIM_GET)
    PIM_CONTACT_PROPERTIES(PIM_PUT)
#undef PIM_GET
#undef PIM_PUT

private:
    bool IsOwn(REFIID id) const noexcept override {
        return IsEqualIID(id, IID_IContact);
    }
    void BeforeSave() override;
};

}  // namespace pim
