// Stretches of text that a rich edit lays out as one piece, however many lines they fill: words and blanks without a
// digit or a sign between, or a word that fills lines by itself.
#pragma once

#include <win.h>

#include <string_view>
#include <vector>

constexpr size_t kLongWord = 2'000;  // characters

struct LongWord {
    LONG first = 0;
    LONG last = 0;  // the character behind it

    LONG Length() const { return last - first; }
};

// The stretches of at least kLongWord characters.
std::vector<LongWord> LongWordsOf(std::wstring_view text);
// How many characters they have together.
size_t LongWordCharacters(std::wstring_view text);
// The same for a rich text that is not loaded yet; rather too many than too few.
size_t LongWordCharacters(std::string_view rtf);
