// What the detail view shows of an entry, without any window.
#pragma once

#include <string>

#include "data/dbj_item.h"
#include "data/field_ids.h"
#include "data/field_text.h"
#include "data/ts_list.h"

// A text is empty when the entry has nothing to show for it.
struct DetailTexts {
    std::wstring date;  // "Sat, Mar 14 2026 A.D. - 3:09 PM"
    std::wstring subject;
    std::wstring type;
    std::wstring duration;
    std::wstring company;
    std::wstring contacts;    // names with "; " between them
    std::wstring categories;  // names with ", " between them
    short priority = kUnset;  // rows of their tables; foreign programs may have written others
    short sensitivity = kUnset;
    // What the two icons mean, for those who do not see them: "Priority: High".
    std::wstring priorityText;
    std::wstring sensitivityText;
};

// Reads the texts out of an entry's fields and parses their categories and contacts on the way.
DetailTexts ReadDetail(TSList<DbJItem>& fields, const CategoryReader& readCategories);

// The entry's start as the date line reads; empty for zero, an entry without a start, and for what is no date.
std::wstring DetailDate(const FILETIME& start);
