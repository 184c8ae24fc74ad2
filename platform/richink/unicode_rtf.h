// Rich text in which every character outside ASCII is written as \uN?, so that no code page stands between what was
// typed and what is stored. Left to themselves some rich edits write the nearest letter of a code page: O for an omega.
#pragma once

#include <win.h>

#include <string>
#include <string_view>

// The format in which the rich edit streams out all of Unicode: rich text in UTF-8.
constexpr UINT kUtf8RichText = SF_RTF | SF_USECODEPAGE | CP_UTF8 << 16;

// That stream in ASCII, for any reader. `text` is the rich edit's own text: half a surrogate pair, which UTF-8 cannot
// hold, is taken from there. A stream that is no UTF-8 rich text stays as it is.
std::string AsciiRtf(std::string rtf, std::wstring_view text);

// A stream whose writer went through a code page, with the characters put back that `text`, its note text
// (note_text.h), has in their place. Stays as it is where the two do not run side by side: both must have the same
// line ends, tabs and ASCII characters. `rtf` is one that the guard has found sound.
std::string MendedRtf(std::string rtf, std::wstring_view text);
