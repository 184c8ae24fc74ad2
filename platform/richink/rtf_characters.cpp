#include "platform/richink/rtf_characters.h"

#include <algorithm>
#include <array>

namespace {

wchar_t UnitOf(std::string_view word) {
    if (word == "par") return L'\r';
    if (word == "line") return L'\v';
    return word == "tab" ? L'\t' : L'\0';
}

}  // namespace

bool RtfCharacters::Next(RtfCharacter* shown) {
    while (at_ < rtf_.size()) {
        *shown = {at_, at_ + 1, static_cast<wchar_t>(rtf_[at_]), false};
        const bool shows = Read(shown);
        at_ = shown->end;
        if (shows) return true;
    }
    return false;
}

bool RtfCharacters::Read(RtfCharacter* shown) const {
    switch (rtf_[at_]) {
        case '\\': return ReadControl(shown);
        case '{':
            if (HasNoText()) shown->end = at_ + RtfGroupLength(rtf_, at_);
            return false;
        case '}':
        case '\r':
        case '\n': return false;
        default: return true;
    }
}

bool RtfCharacters::ReadControl(RtfCharacter* shown) const {
    const RtfWord word = RtfWordAt(rtf_, at_);
    *shown = {at_, word.end, UnitOf(word.name), false};
    if (word.name.empty()) {
        const char sign = at_ + 1 < rtf_.size() ? rtf_[at_ + 1] : '\0';
        if (sign == '\'') shown->end = std::min(rtf_.size(), at_ + 4);
        if (sign == '\\' || sign == '{' || sign == '}') shown->unit = static_cast<wchar_t>(sign);
        return sign == '\'' || shown->unit != 0;
    }
    if (word.name == "u") {
        *shown = {at_, EndOfRtfFallback(rtf_, word.end), static_cast<wchar_t>(word.number), true};
        return true;
    }
    return shown->unit != 0;
}

bool RtfCharacters::HasNoText() const {
    constexpr std::array<std::string_view, 5> kSilent = {"fonttbl", "colortbl", "stylesheet", "info", "pict"};
    return rtf_.substr(at_).starts_with("{\\*") ||
           std::any_of(kSilent.begin(), kSilent.end(),
                       [&](std::string_view name) { return OpensRtfGroup(rtf_, at_, name); });
}
