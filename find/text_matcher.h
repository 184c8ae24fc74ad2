// Whether texts contain another, in their own case or in any.
#pragma once

#include <string>
#include <string_view>

class TextMatcher {
public:
    // Without `matchCase` both texts are brought to upper case as the system does it, letter by letter: "é" is found by
    // "É" and "ж" by "Ж", and "ß", which has no capital of one letter, only by itself.
    TextMatcher(std::wstring_view wanted, bool matchCase);

    // No text at all is contained in every text.
    bool IsIn(std::wstring_view text) const;

private:
    const bool matchCase_;
    std::wstring wanted_;
};
