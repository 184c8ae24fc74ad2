// Something to be done.
#pragma once

#include "platform/pim/item.h"

namespace pim {

// A task that becomes complete is so from today on.
class Task final : public Item<Task, ITask> {
public:
    using Item::Item;

    HRESULT STDMETHODCALLTYPE ClearRecurrencePattern() noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE GetRecurrencePattern(IRecurrencePattern** pattern) noexcept override;
    HRESULT STDMETHODCALLTYPE get_IsRecurring(VARIANT_BOOL* recurring) noexcept override;
    HRESULT STDMETHODCALLTYPE SkipRecurrence() noexcept override { return E_NOTIMPL; }

#define PIM_GET(type, name)                                               \
    HRESULT STDMETHODCALLTYPE get_##name(type* value) noexcept override { \
        return Get(kTask##name, value);                                   \
    }
#define PIM_PUT(type, name)                                              \
    HRESULT STDMETHODCALLTYPE put_##name(type value) noexcept override { \
        return Put(kTask##name, value);                                  \
    }
#define PIM_NOTHING(type, name)
    PIM_TASK_PROPERTIES(PIM_GET, PIM_GET)
    PIM_TASK_PROPERTIES(PIM_PUT, PIM_NOTHING)
#undef PIM_GET
#undef PIM_PUT
#undef PIM_NOTHING

private:
    bool IsOwn(REFIID id) const noexcept override {
        return IsEqualIID(id, IID_ITask);
    }
    void WriteTruth(CEPROPID id, bool truth) override;
};

}  // namespace pim
