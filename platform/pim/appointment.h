// Something that takes place at a certain time.
#pragma once

#include "platform/pim/item.h"

namespace pim {

// Kept are start and duration: setting the start moves the end, setting the end changes the duration. A new appointment
// starts now, to the minute, and takes half an hour.
class Appointment final : public Item<Appointment, IAppointment> {
public:
    Appointment(Ref<IPOutlookApp> application, ItemRecord record);

    HRESULT STDMETHODCALLTYPE ClearRecurrencePattern() noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE GetRecurrencePattern(IRecurrencePattern** pattern) noexcept override;
    HRESULT STDMETHODCALLTYPE get_IsRecurring(VARIANT_BOOL* recurring) noexcept override;
    HRESULT STDMETHODCALLTYPE get_Recipients(IRecipients** recipients) noexcept override;
    HRESULT STDMETHODCALLTYPE Send() noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Cancel() noexcept override { return E_NOTIMPL; }

#define PIM_GET(type, name)                                               \
    HRESULT STDMETHODCALLTYPE get_##name(type* value) noexcept override { \
        return Get(kAppointment##name, value);                            \
    }
#define PIM_PUT(type, name)                                              \
    HRESULT STDMETHODCALLTYPE put_##name(type value) noexcept override { \
        return Put(kAppointment##name, value);                           \
    }
#define PIM_NOTHING(type, name)
    PIM_APPOINTMENT_PROPERTIES(PIM_GET, PIM_GET, )
    PIM_APPOINTMENT_PROPERTIES(PIM_PUT, PIM_NOTHING, )
#undef PIM_GET
#undef PIM_PUT
#undef PIM_NOTHING

private:
    bool IsOwn(REFIID id) const noexcept override {
        return IsEqualIID(id, IID_IAppointment);
    }
    DATE ReadDate(CEPROPID id) override;
    void WriteDate(CEPROPID id, DATE date) override;
};

}  // namespace pim
