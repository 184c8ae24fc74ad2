// The characters that a rich text shows, one after another. The text is one that the guard has found sound.
#pragma once

#include <string_view>

#include "platform/richink/rtf_words.h"

struct RtfCharacter {
    size_t at = 0;
    size_t end = 0;
    wchar_t unit = 0;      // '\r' for a line end, '\v' for a soft one, 0 for a character of a code page
    bool isExact = false;  // written as \u
};

class RtfCharacters {
public:
    explicit RtfCharacters(std::string_view rtf) : rtf_(rtf) {}

    // False at the end.
    bool Next(RtfCharacter* shown);

private:
    bool Read(RtfCharacter* shown) const;
    bool ReadControl(RtfCharacter* shown) const;
    bool HasNoText() const;

    std::string_view rtf_;
    size_t at_ = 0;
};
