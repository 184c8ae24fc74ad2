#include "platform/richink/rtf_words.h"

#include <algorithm>
#include <cstdlib>

namespace {

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

}  // namespace

RtfWord RtfWordAt(std::string_view rtf, size_t at) {
    RtfWord word;
    size_t end = at + 1;
    while (end < rtf.size() && IsLetter(rtf[end]))
        ++end;
    word.name = rtf.substr(at + 1, end - at - 1);
    if (word.name.empty()) {
        word.end = std::min(rtf.size(), at + 2);
        return word;
    }
    const size_t number = end;
    if (end < rtf.size() && rtf[end] == '-') ++end;
    while (end < rtf.size() && rtf[end] >= '0' && rtf[end] <= '9')
        ++end;
    word.hasNumber = end > number;
    word.number = std::atoi(std::string(rtf.substr(number, end - number)).c_str());
    word.end = end < rtf.size() && rtf[end] == ' ' ? end + 1 : end;
    return word;
}

size_t RtfGroupLength(std::string_view rtf, size_t at) {
    int depth = 0;
    for (size_t i = at; i < rtf.size(); ++i) {
        if (rtf[i] == '\\')
            ++i;
        else if (rtf[i] == '{')
            ++depth;
        else if (rtf[i] == '}' && --depth == 0)
            return i + 1 - at;
    }
    return rtf.size() - at;
}

bool OpensRtfGroup(std::string_view rtf, size_t at, std::string_view name) {
    return at + 1 < rtf.size() && rtf[at] == '{' && rtf[at + 1] == '\\' && RtfWordAt(rtf, at + 1).name == name;
}

size_t EndOfRtfFallback(std::string_view rtf, size_t at) {
    if (rtf.substr(at).starts_with("\\'")) return std::min(rtf.size(), at + 4);
    const bool stands = at < rtf.size() && rtf[at] != '\\' && rtf[at] != '{' && rtf[at] != '}';
    return stands ? at + 1 : at;
}

void AppendRtfUnit(std::string* rtf, wchar_t unit) {
    *rtf += "\\u" + std::to_string(static_cast<short>(unit)) + "?";
}
