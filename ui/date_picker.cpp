#include "ui/date_picker.h"

bool DatePicker::GetTime(SYSTEMTIME* time) const {
    return static_cast<DWORD>(SendMessage(DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(time))) == GDT_VALID;
}

bool DatePicker::SetTime(const SYSTEMTIME& time) {
    return SendMessage(DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&time)) != 0;
}

bool DatePicker::SetFormat(const wchar_t* format) {
    return SendMessage(DTM_SETFORMATW, 0, reinterpret_cast<LPARAM>(format)) != 0;
}
