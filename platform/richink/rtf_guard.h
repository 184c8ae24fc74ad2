// Makes rich text that may be damaged safe to hand to the system's reader, which trusts what it is given.
#pragma once

#include <string>
#include <string_view>

// The sound part of `rtf`: one group with balanced braces, nested no deeper than the reader bears, with whole control
// words, numbers that fit, sound pictures and no binary data. What is cut off in the middle of a word loses that word;
// what follows the group is ignored. Empty when it does not begin as rich text does.
std::string SoundRtf(std::string_view rtf);
