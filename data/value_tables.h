// The texts of an entry's coded fields. A field's value is its row, counted from 0.
#pragma once

#include <span>

#include "data/orvane.h"

using ValueTable = std::span<const wchar_t* const>;

ORVANE_API ValueTable EntryTypes();       // 19 rows
ORVANE_API ValueTable Priorities();       // 3 rows
ORVANE_API ValueTable Sensitivities();    // 4 rows
ORVANE_API ValueTable DurationPresets();  // 19 rows; texts for the duration parser, no stored values

// The row's text; "" for a value that is no row (-1, or what a foreign program wrote).
ORVANE_API const wchar_t* ValueText(ValueTable table, int value);
// The row of exactly that text, -1 when there is none.
ORVANE_API int ValueOfText(ValueTable table, const wchar_t* text);
