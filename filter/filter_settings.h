// The one filter of the program: off, or by date range, by months of any year, or by categories.
#pragma once

#include <win.h>

#include "data/dbc_item.h"
#include "data/ts_list.h"
#include "text/date_time.h"

// One record for the whole process. Its screens edit the fields in place; the list shows the entries that pass.
struct FilterSettings {
    LONG passed = 0;              // how many entries pass: the list's visible count, which every rebuild writes
    DateTime rangeStart;          // first and last day of the range; the time of day does not count
    DateTime rangeEnd;            //
    DWORD months = 0;             // bit m - 1: month m (1 is January) is wanted; bits 12 to 31 are never set
    BOOL active = FALSE;          // off: every entry passes, whatever the other fields hold
    BOOL categoriesOnly = FALSE;  // by categories instead of by date
    BOOL byRange = FALSE;         // the date test uses the range, else the months
    TSList<DbCItem> categories;   // the categories that pass
};
