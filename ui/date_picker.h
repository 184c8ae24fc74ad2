// Date picker, or time picker with DTS_TIMEFORMAT. Its calendar closes as drop_calendar.h says.
#pragma once

#include "ui/control.h"

class DatePicker : public Control {
public:
    DatePicker() : Control(DATETIMEPICK_CLASSW) {}

    // As Control's.
    bool CreateIn(HWND parent, int id, DWORD style, const RECT& place, DWORD exStyle = 0);
    bool AttachItem(HWND dialog, int id);

    // The date and time shown. False when the picker's "none" box is cleared (DTS_SHOWNONE).
    bool GetTime(SYSTEMTIME* time) const;
    // False when the picker refuses the time.
    bool SetTime(const SYSTEMTIME& time);
    // A display format such as "hh:mm tt"; null: the style's own.
    bool SetFormat(const wchar_t* format);
};
