// Stretches of text in which no line can be broken at a blank.
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

// The words of at least kLongWord characters.
std::vector<LongWord> LongWordsOf(std::wstring_view text);
// How many characters they have together.
size_t LongWordCharacters(std::wstring_view text);
// The same for a rich text that is not loaded yet; rather too many than too few.
size_t LongWordCharacters(std::string_view rtf);
