#include "ui/month_calendar.h"

bool MonthCalendar::GetDay(SYSTEMTIME* day) const {
    return SendMessage(MCM_GETCURSEL, 0, reinterpret_cast<LPARAM>(day)) != 0;
}

bool MonthCalendar::SetDay(const SYSTEMTIME& day) {
    return SendMessage(MCM_SETCURSEL, 0, reinterpret_cast<LPARAM>(&day)) != 0;
}

bool MonthCalendar::GetMonthRect(RECT* rect) const {
    return SendMessage(MCM_GETMINREQRECT, 0, reinterpret_cast<LPARAM>(rect)) != 0;
}
