// The choices that the options screen offers.
#pragma once

#include <win.h>

#include "data/dbopt_item.h"
#include "data/orvane.h"
#include "data/ts_list.h"

class ORVANE_API DbOptions {
public:
    DbOptions() = default;
    ~DbOptions();
    DbOptions(const DbOptions&) = delete;
    DbOptions& operator=(const DbOptions&) = delete;

    // Non-zero on success. The window is the screen's; nothing is ever posted to it, since the choices are fixed.
    int Open(HWND notify);

    // Appends the choices for an option by its property id (kPropConfirmDeletes: "Yes", "No"). Answers that id, 0 when
    // there is no such option.
    unsigned long Read(unsigned long propid, TSList<DbOptItem>* choices);
};
