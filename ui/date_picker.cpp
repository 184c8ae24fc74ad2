#include "ui/date_picker.h"

#include "ui/drop_calendar.h"

bool DatePicker::CreateIn(HWND parent, int id, DWORD style, const RECT& place, DWORD exStyle) {
    if (!Control::CreateIn(parent, id, style, place, exStyle)) return false;
    WatchCalendar(GetHandle());
    return true;
}

bool DatePicker::AttachItem(HWND dialog, int id) {
    if (!Control::AttachItem(dialog, id)) return false;
    WatchCalendar(GetHandle());
    return true;
}

bool DatePicker::GetTime(SYSTEMTIME* time) const {
    return static_cast<DWORD>(SendMessage(DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(time))) == GDT_VALID;
}

bool DatePicker::SetTime(const SYSTEMTIME& time) {
    return SendMessage(DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&time)) != 0;
}

bool DatePicker::SetFormat(const wchar_t* format) {
    return SendMessage(DTM_SETFORMATW, 0, reinterpret_cast<LPARAM>(format)) != 0;
}
