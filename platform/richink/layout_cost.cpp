#include "platform/richink/layout_cost.h"

#include <algorithm>

#include "platform/richink/long_words.h"
#include "platform/richink/rtf_characters.h"

namespace {

// Measured with Wine 8.
constexpr double kParagraph = 20;
constexpr double kRun = 20;
constexpr double kCharacter = 3.3;         // lines and all
constexpr double kUnwrapped = 0.6;         // a character where lines are not looked for
constexpr double kSquareOfRun = 1.0 / 70;  // what is left of a run is measured anew for each line
constexpr double kSquareOfRuns = 0.1;      // of a word: where to break it is looked for in all of them
constexpr double kPicture = 700;
constexpr double kFont = 30;
constexpr double kFontTimesUse = 0.02;

enum Kind { kLetters, kBlanks, kDigits, kSigns, kIdeographs, kAlone, kOther };

// Characters of a kind can be one run.
int KindOf(wchar_t unit) {
    if (unit == L' ') return kBlanks;
    if (unit < L' ') return kAlone;
    if (unit < 0x80) {
        if (unit >= L'0' && unit <= L'9') return kDigits;
        const wchar_t letter = unit | 0x20;
        return letter >= L'a' && letter <= L'z' ? kLetters : kSigns;
    }
    if (unit < 0x300) return kLetters;
    if ((unit >= 0x2E80 && unit < 0xD7B0) || (unit > 0xFF00 && unit < 0xFFEF)) return kIdeographs;
    const bool alone = (unit >= 0x2000 && unit < 0x2070) || (unit >= 0xD800 && unit < 0xE000) || unit >= 0xFE00;
    return alone ? kAlone : kOther + (unit >> 8);  // scripts have blocks of their own
}

}  // namespace

void LayoutCost::EndRun() {
    cost_ += kRun + kSquareOfRun * static_cast<double>(run_) * static_cast<double>(run_);
    run_ = 0;
    ++runs_;
}

// A long word is not wrapped, or in runs that are short (rich_ink_wine.cpp).
void LayoutCost::EndWord() {
    cost_ += kSquareOfRuns * static_cast<double>(runs_) * static_cast<double>(runs_);
    runs_ = 0;
    if (word_ >= kLongWord && wraps_) {
        cost_ -= (kCharacter - kUnwrapped) * static_cast<double>(word_);
        run_ -= std::min(run_, word_);
    }
    word_ = 0;
}

void LayoutCost::EndParagraph() {
    ++runs_;
    EndWord();
    EndRun();
    runs_ = 0;
    cost_ += kParagraph;
}

void LayoutCost::Add(wchar_t unit, bool newFormat) {
    cost_ += wraps_ ? kCharacter : kUnwrapped;
    if (unit == L'\r' || unit == L'\v') {
        EndParagraph();
        return;
    }
    const int kind = KindOf(unit);
    const bool blank = kind == kBlanks || unit == L'\t';
    if (blank) EndWord();
    if (newFormat || (kind != kind_ && kind != kBlanks) || kind == kAlone) EndRun();
    if (kind != kBlanks) kind_ = kind;
    if (!blank) ++word_;
    if (kind == kIdeographs) runs_ = 0;  // a line may be broken behind each
    ++run_;
}

double LayoutCost::Microseconds() const {
    LayoutCost whole = *this;
    whole.EndParagraph();
    return whole.cost_;
}

double LayoutCostOf(std::string_view rtf) {
    LayoutCost cost(true);
    RtfCharacters characters(rtf);
    RtfCharacter shown;
    size_t end = 0;
    while (characters.Next(&shown)) {
        cost.Add(shown.unit, shown.at != end);
        end = shown.end;
    }
    double fonts = 0, uses = 0;
    for (size_t at = 0; at < rtf.size();) {
        if (rtf[at] == '{' && OpensRtfGroup(rtf, at, "pict")) {
            cost.Extra(kPicture);
            at += RtfGroupLength(rtf, at);
        } else if (rtf[at] == '\\') {
            const RtfWord word = RtfWordAt(rtf, at);
            if (word.name == "f") ++(at > 0 && rtf[at - 1] == '{' ? fonts : uses);
            at = word.end;
        } else {
            ++at;
        }
    }
    cost.Extra(kFont * fonts + kFontTimesUse * fonts * (fonts + uses));
    return cost.Microseconds();
}

std::wstring TextOfRtf(std::string_view rtf) {
    std::wstring text;
    RtfCharacters characters(rtf);
    RtfCharacter shown;
    while (characters.Next(&shown)) {
        if (shown.unit == L'\r' || shown.unit == L'\v') {
            text += L"\r\n";
        } else if (shown.unit == 0 && !shown.isExact && shown.end - shown.at == 4) {  // \'xx
            const std::string digits(rtf.substr(shown.at + 2, 2));
            const char narrow = static_cast<char>(std::strtol(digits.c_str(), nullptr, 16));
            wchar_t unit = 0;
            if (narrow && MultiByteToWideChar(1252, 0, &narrow, 1, &unit, 1) == 1) text += unit;
        } else if (shown.unit != 0) {
            text += shown.unit;
        }
    }
    return text;
}
