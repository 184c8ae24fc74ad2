#include "platform/richink/long_words.h"

#include <array>

namespace {

bool IsBlank(wchar_t c) {
    return c == L' ' || c == L'\t' || c == L'\r' || c == L'\n';
}

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
    size_t first = 0;
    for (size_t at = 0; at <= text.size(); ++at) {
        if (at < text.size() && !IsBlank(text[at])) continue;
        if (at - first >= kLongWord) words.push_back({static_cast<LONG>(first), static_cast<LONG>(at)});
        first = at + 1;
    }
    return words;
}

size_t LongWordCharacters(std::wstring_view text) {
    size_t all = 0;
    for (const LongWord& word : LongWordsOf(text))
        all += static_cast<size_t>(word.Length());
    return all;
}

size_t LongWordCharacters(std::string_view rtf) {
    size_t all = 0;
    size_t word = 0;
    const auto end = [&] {
        if (word >= kLongWord) all += word;
        word = 0;
    };
    for (size_t at = 0; at < rtf.size();) {
        const char c = rtf[at++];
        if (c == ' ') {
            end();
        } else if (c == '\\' && at < rtf.size() && IsLetter(rtf[at])) {
            const size_t name = at;
            while (at < rtf.size() && IsLetter(rtf[at]))
                ++at;
            const std::string_view control = rtf.substr(name, at - name);
            while (at < rtf.size() && (rtf[at] == '-' || (rtf[at] >= '0' && rtf[at] <= '9')))
                ++at;
            if (at < rtf.size() && rtf[at] == ' ') ++at;
            if (BreaksLines(control)) end();
            if (control == "u") ++word;
        } else if (c == '\\' && at < rtf.size()) {
            at += rtf[at] == '\'' && at + 3 <= rtf.size() ? 3 : 1;
            ++word;
        } else if (c != '{' && c != '}' && c != '\r' && c != '\n') {
            ++word;
        }
    }
    end();
    return all;
}
