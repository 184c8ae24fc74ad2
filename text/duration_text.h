// A length of time as people read and type it: "1 hour 30 min", "2d 3h".
#pragma once

#include <string>

#include "text/date_time.h"

// Characters that are enough for any duration text.
constexpr int kDurationChars = 100;

// Writes `duration` as days, hours and minutes into the buffer of `size` characters (at least 1), cut to fit. Seconds
// do not show. The length is read as a date in January 1601, so that 31 days show as none: kept on purpose, as are the
// unit words, which differ with what else is shown. A length that names no date shows as "0 minutes".
void FormatDuration(const DateTime& duration, wchar_t* buffer, int size);
void FormatDuration(const DateTime& duration, std::wstring& text);

// Adds to `duration` every number with its unit found in `text`, and answers whether a number was found; without one,
// or with a null text, `duration` stays as it was. The text comes back in upper case from its first digit or point on.
//
// Units are the letters d, h, m (minutes), s and w, the first such letter anywhere behind the number, so that whole
// words work; a last number without one counts minutes. Fractions count for d, h and w only. A week counts as one day
// (a half week as 3 days, from its fraction): kept on purpose. Whole parts above 2147483647 are taken as 2147483647.
bool ParseDuration(wchar_t* text, DateTime& duration);

// Takes what was typed into a duration field. Answers false and changes nothing when `text` is empty; otherwise adds
// the duration it names to `duration` (callers start it at 0), brings `text` to the parser's upper case and answers
// whether a number was found.
bool ReadDurationField(std::wstring& text, DateTime& duration);
