#include "platform/richink/long_words.h"

#include <array>
#include <utility>

namespace {

// What the system's shaping lays out apart from what stands beside it. Blanks go with all of them.
enum class Kind { kBreak, kBlank, kLetter, kDigit, kSign };

Kind KindOf(wchar_t c) {
    if (c == L'\t' || c == L'\r' || c == L'\n') return Kind::kBreak;
    if (c == L' ') return Kind::kBlank;
    if (c >= L'0' && c <= L'9') return Kind::kDigit;
    const wchar_t small = c | 0x20;
    return c >= 0x80 || (small >= L'a' && small <= L'z') ? Kind::kLetter : Kind::kSign;
}

// Counts along a text.
class StretchCounter {
public:
    // The length of the stretch that ends before the character; 0 while it goes on.
    size_t Next(wchar_t c) {
        const Kind kind = KindOf(c);
        const bool goesOn = kind == Kind::kBlank || (kind != Kind::kBreak && (kind_ == kind || kind_ == Kind::kBlank));
        if (goesOn) {
            if (kind != Kind::kBlank) kind_ = kind;
            ++length_;
            return 0;
        }
        const size_t ended = End();
        kind_ = kind == Kind::kBreak ? Kind::kBlank : kind;
        length_ = kind == Kind::kBreak ? 0 : 1;
        return ended;
    }
    size_t End() {
        kind_ = Kind::kBlank;
        return std::exchange(length_, 0);
    }

private:
    Kind kind_ = Kind::kBlank;
    size_t length_ = 0;
};

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool BreaksLines(std::string_view word) {
    constexpr std::array<std::string_view, 7> kBreaks = {"par", "line", "tab", "cell", "row", "page", "sect"};
    for (const std::string_view each : kBreaks)
        if (word == each) return true;
    return false;
}

}  // namespace

std::vector<LongWord> LongWordsOf(std::wstring_view text) {
    std::vector<LongWord> words;
    StretchCounter counter;
    const auto note = [&](size_t length, size_t end) {
        if (length >= kLongWord) words.push_back({static_cast<LONG>(end - length), static_cast<LONG>(end)});
    };
    for (size_t at = 0; at < text.size(); ++at)
        note(counter.Next(text[at]), at);
    note(counter.End(), text.size());
    return words;
}

size_t LongWordCharacters(std::wstring_view text) {
    size_t all = 0;
    for (const LongWord& word : LongWordsOf(text))
        all += static_cast<size_t>(word.Length());
    return all;
}

size_t LongWordCharacters(std::string_view rtf) {
    constexpr wchar_t kSomeLetter = 0x80;
    size_t all = 0;
    StretchCounter counter;
    const auto note = [&](size_t length) {
        if (length >= kLongWord) all += length;
    };
    for (size_t at = 0; at < rtf.size();) {
        const char c = rtf[at++];
        if (c == '\\' && at < rtf.size() && IsLetter(rtf[at])) {
            const size_t name = at;
            while (at < rtf.size() && IsLetter(rtf[at]))
                ++at;
            const std::string_view control = rtf.substr(name, at - name);
            while (at < rtf.size() && (rtf[at] == '-' || (rtf[at] >= '0' && rtf[at] <= '9')))
                ++at;
            if (at < rtf.size() && rtf[at] == ' ') ++at;
            if (BreaksLines(control)) note(counter.Next(L'\r'));
            if (control == "u") {
                note(counter.Next(kSomeLetter));
                if (at < rtf.size() && rtf[at] == '?') ++at;
            }
        } else if (c == '\\' && at < rtf.size()) {
            const bool isByte = rtf[at] == '\'' && at + 3 <= rtf.size();
            note(counter.Next(isByte ? kSomeLetter : static_cast<wchar_t>(rtf[at])));
            at += isByte ? 3 : 1;
        } else if (c != '{' && c != '}' && c != '\r' && c != '\n') {
            note(counter.Next(static_cast<unsigned char>(c)));
        }
    }
    note(counter.End());
    return all;
}
