#include "platform/pim/appointment.h"

namespace pim {
namespace {

constexpr double kMinutesPerDay = 24 * 60;
constexpr long kInitialDuration = 30;

DATE Now() {
    SYSTEMTIME now;
    GetLocalTime(&now);
    now.wSecond = now.wMilliseconds = 0;
    DATE date = 0;
    SystemTimeToVariantTime(&now, &date);
    return date;
}

// Before 1899 a date's fraction goes forward from a negative day; in between dates are reckoned as plain days.
double DaysOf(DATE date) {
    return date >= 0 ? date : 2 * std::trunc(date) - date;
}

DATE DateOf(double days) {
    if (days >= 0) return days;
    const double day = std::floor(days);
    return day - (days - day);
}

}  // namespace

Appointment::Appointment(Ref<IPOutlookApp> application, ItemRecord record)
    : Item(std::move(application), std::move(record)) {
    if (Record().Oid()) return;
    if (Record().Get<double>(kAppointmentStart) == 0) Record().Set(kAppointmentStart, Now());
    if (!Record().Get<long>(kAppointmentDuration)) Record().Set(kAppointmentDuration, kInitialDuration);
}

HRESULT Appointment::GetRecurrencePattern(IRecurrencePattern** pattern) noexcept {
    if (!pattern) return E_POINTER;
    *pattern = nullptr;
    return E_NOTIMPL;
}

HRESULT Appointment::get_IsRecurring(VARIANT_BOOL* recurring) noexcept {
    if (!recurring) return E_POINTER;
    *recurring = VARIANT_FALSE;
    return S_OK;
}

HRESULT Appointment::get_Recipients(IRecipients** recipients) noexcept {
    if (!recipients) return E_POINTER;
    *recipients = nullptr;
    return E_NOTIMPL;
}

DATE Appointment::ReadDate(CEPROPID id) {
    if (id != kAppointmentEnd) return Item::ReadDate(id);
    const double start = DaysOf(Record().Get<double>(kAppointmentStart));
    return DateOf(start + static_cast<double>(Record().Get<long>(kAppointmentDuration)) / kMinutesPerDay);
}

void Appointment::WriteDate(CEPROPID id, DATE date) {
    if (date == DATE_NONE) throw Failure{E_INVALIDARG};
    if (id != kAppointmentEnd) return Item::WriteDate(id, date);
    const double minutes = (DaysOf(date) - DaysOf(Record().Get<double>(kAppointmentStart))) * kMinutesPerDay;
    if (minutes < 0 || minutes > LONG_MAX) throw Failure{E_INVALIDARG};
    Record().Set(kAppointmentDuration, std::lround(minutes));
}

}  // namespace pim
