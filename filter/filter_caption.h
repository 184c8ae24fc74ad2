// What the "Show" button says of the filter, and what a tap on a category in its menu does.
#pragma once

#include <windbase.h>

#include <string>

struct FilterSettings;

// "All" while the filter is off; else the one category or month, or the kind of choice ("Range...").
std::wstring FilterCaption(const FilterSettings& filter);

// Clears the filter and lets the entries of one category pass: the category's record is read anew, since other programs
// may have changed it. False, with the filter as it was, when there is no such category any more.
bool FilterByCategory(FilterSettings& filter, CEOID category);

// The full name of a month (1 to 12) in the form of a locale; "" for any other number.
std::wstring MonthName(int month, LCID locale);

// The bit of a month (1 to 12) in FilterSettings::months.
constexpr DWORD MonthBit(int month) {
    return 1u << (month - 1);
}
