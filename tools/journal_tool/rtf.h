// A note's bytes: the rich text that the journal's note control loads.
#pragma once

#include <span>
#include <string>
#include <string_view>

// Rich text that shows `text`; \n begins a new line. Empty for an empty text, as the journal stores it.
std::string MakeRtf(std::wstring_view text);

// The text that rich text shows, with \n for its line ends. Pictures, and whatever makes no sense, are passed over.
std::wstring TextOfRtf(std::span<const unsigned char> rtf);
