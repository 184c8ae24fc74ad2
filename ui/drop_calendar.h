// The calendar that a date picker drops down, closed as every drop-down is.
#pragma once

#include <win.h>

// Has the picker's calendar close on Escape and Tab, and on a click or a change of the focus elsewhere: not every
// system sees to that by itself. The date stays what it was. Escape leaves the keys to the picker, Tab takes them to
// what comes after it. For as long as the picker lives.
void WatchCalendar(HWND picker);
