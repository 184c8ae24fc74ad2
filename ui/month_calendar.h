// Month calendar.
#pragma once

#include "ui/control.h"

class MonthCalendar : public Control {
public:
    MonthCalendar() : Control(MONTHCAL_CLASSW) {}

    // The selected day; the time of day is not meaningful.
    bool GetDay(SYSTEMTIME* day) const;
    bool SetDay(const SYSTEMTIME& day);
    // The least rectangle that shows one month whole, device pixels.
    bool GetMonthRect(RECT* rect) const;
};
