// What the user looks for, and what was found.
#pragma once

#include <win.h>

#include <windbase.h>

#include <string>
#include <vector>

#include "res/ids.h"
#include "text/date_time.h"

// Stored in the settings as the numbers of the buttons.
enum class SearchBy : int32_t {
    kDate = IDC_FIND_BY_DATE,
    kSubject = IDC_FIND_BY_SUBJECT,
    kEntry = IDC_FIND_BY_ENTRY,  // the note's text
};
enum class SearchFrom : int32_t {
    kTop = IDC_FIND_FROM_TOP,
    kCurrent = IDC_FIND_FROM_CURRENT,  // from the entry after the current one
};

// Kept from one search to the next.
struct FindRequest {
    BOOL matchCase = TRUE;
    SearchBy searchBy = SearchBy::kDate;
    SearchFrom searchFrom = SearchFrom::kTop;
    DateTime date;               // of no interest but for its day; 0 ticks: none was chosen yet
    std::wstring text;           // for subjects and notes
    std::vector<CEOID> results;  // in the journal's order
};
