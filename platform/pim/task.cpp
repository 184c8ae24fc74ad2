#include "platform/pim/task.h"

namespace pim {
namespace {

DATE Today() {
    SYSTEMTIME now;
    GetLocalTime(&now);
    DATE date = 0;
    SystemTimeToVariantTime(&now, &date);
    return std::floor(date);
}

}  // namespace

HRESULT Task::GetRecurrencePattern(IRecurrencePattern** pattern) noexcept {
    if (!pattern) return E_POINTER;
    *pattern = nullptr;
    return E_NOTIMPL;
}

HRESULT Task::get_IsRecurring(VARIANT_BOOL* recurring) noexcept {
    if (!recurring) return E_POINTER;
    *recurring = VARIANT_FALSE;
    return S_OK;
}

void Task::WriteTruth(CEPROPID id, bool truth) {
    if (id == kTaskComplete && truth != Record().Get<bool>(kTaskComplete)) {
        if (truth) {
            Record().Set(kTaskDateCompleted, Today());
        } else {
            Record().Remove(kTaskDateCompleted);
        }
    }
    Item::WriteTruth(id, truth);
}

}  // namespace pim
