#include "find/text_matcher.h"

#include <win.h>

#include <algorithm>
#include <cwchar>
#include <numeric>
#include <vector>

namespace {

// Every letter's capital, as the system has it. Asking it once for all is many times as fast as for each text.
const wchar_t* Capitals() {
    static const std::vector<wchar_t> capitals = [] {
        std::vector<wchar_t> letters(size_t{WCHAR_MAX} + 1);
        std::iota(letters.begin(), letters.end(), L'\0');
        CharUpperBuffW(letters.data(), static_cast<DWORD>(letters.size()));
        letters[L'\u03C2'] = L'\u03A3';  // the sigma at a word's end, which some systems leave
        return letters;
    }();
    return capitals.data();
}

}  // namespace

TextMatcher::TextMatcher(std::wstring_view wanted, bool matchCase) : matchCase_(matchCase), wanted_(wanted) {
    if (matchCase_) return;
    const wchar_t* const capitals = Capitals();
    for (wchar_t& letter : wanted_)
        letter = capitals[letter];
}

bool TextMatcher::IsIn(std::wstring_view text) const {
    if (matchCase_) return text.find(wanted_) != std::wstring_view::npos;
    const wchar_t* const capitals = Capitals();
    const auto same = [capitals](wchar_t letter, wchar_t capital) { return capitals[letter] == capital; };
    return wanted_.empty() || std::search(text.begin(), text.end(), wanted_.begin(), wanted_.end(), same) != text.end();
}
