#include "platform/richink/unicode_rtf.h"

#include <algorithm>
#include <vector>

#include "platform/richink/rtf_characters.h"
#include "platform/richink/rtf_words.h"

namespace {

constexpr std::string_view kUtf8Start = "{\\urtf";
constexpr std::string_view kAsciiStart = "{\\rtf1\\ansi\\ansicpg1252\\uc1";
constexpr wchar_t kReplacement = 0xFFFD;  // what half a pair becomes in UTF-8

bool IsAscii(wchar_t unit) {
    return unit < 0x80;
}

bool IsByteOfMore(char byte) {
    return static_cast<unsigned char>(byte) >= 0x80;
}

std::wstring FromUtf8(std::string_view bytes) {
    const auto count = static_cast<int>(bytes.size());
    std::wstring text(bytes.size(), L'\0');
    text.resize(
        static_cast<size_t>(std::max(0, MultiByteToWideChar(CP_UTF8, 0, bytes.data(), count, text.data(), count))));
    return text;
}

// Gives back what became U+FFFD. Only where each of them has its counterpart in the text.
class HalfPairs {
public:
    explicit HalfPairs(std::wstring_view text) {
        for (size_t i = 0; i < text.size(); ++i) {
            const wchar_t unit = text[i];
            if (IS_HIGH_SURROGATE(unit) && i + 1 < text.size() && IS_LOW_SURROGATE(text[i + 1]))
                ++i;
            else if (unit == kReplacement || (unit >= 0xD800 && unit <= 0xDFFF))
                units_.push_back(unit);
        }
    }

    void Count(wchar_t unit) { wanted_ += unit == kReplacement; }
    wchar_t Next(wchar_t unit) {
        if (unit != kReplacement || wanted_ != units_.size()) return unit;
        return units_[next_++];
    }

private:
    std::vector<wchar_t> units_;
    size_t wanted_ = 0;
    size_t next_ = 0;
};

// Calls back with each stretch of bytes outside ASCII, as text, and what is between them.
template <typename More, typename Ascii>
void ForEachStretch(std::string_view rtf, More more, Ascii ascii) {
    for (size_t at = 0; at < rtf.size();) {
        const bool isMore = IsByteOfMore(rtf[at]);
        size_t end = at;
        while (end < rtf.size() && IsByteOfMore(rtf[end]) == isMore)
            ++end;
        if (isMore)
            more(FromUtf8(rtf.substr(at, end - at)));
        else
            ascii(rtf.substr(at, end - at));
        at = end;
    }
}

// Line ends as one character.
std::wstring WithShortLineEnds(std::wstring_view text) {
    std::wstring units;
    units.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        units += text[i];
        if (text[i] == L'\r' && i + 1 < text.size() && text[i + 1] == L'\n') ++i;
    }
    return units;
}

bool CanStandFor(const RtfCharacter& shown, wchar_t unit) {
    if (shown.unit == L'\v') return unit == L'\v' || unit == L'\r' || unit == L' ';  // rich edits differ
    if (IsAscii(unit) || shown.isExact) return shown.unit == unit;
    return shown.unit != L'\r' && shown.unit != L'\t';
}

// The last line end is the writer's.
bool RunsBeside(std::string_view rtf, std::wstring_view units) {
    RtfCharacters reader(rtf);
    RtfCharacter shown;
    for (const wchar_t unit : units)
        if (!reader.Next(&shown) || !CanStandFor(shown, unit)) return false;
    return !reader.Next(&shown) || (shown.unit == L'\r' && !reader.Next(&shown));
}

}  // namespace

std::string AsciiRtf(std::string rtf, std::wstring_view text) {
    if (!rtf.starts_with(kUtf8Start)) return rtf;
    size_t start = kUtf8Start.size();
    while (start < rtf.size() && rtf[start] >= '0' && rtf[start] <= '9')
        ++start;
    const std::string_view rest = std::string_view(rtf).substr(start);
    HalfPairs pairs(text);
    ForEachStretch(
        rest,
        [&](const std::wstring& units) {
            for (const wchar_t unit : units)
                pairs.Count(unit);
        },
        [](std::string_view) {});
    std::string ascii(kAsciiStart);
    ascii.reserve(rtf.size() + rtf.size() / 4);
    ForEachStretch(
        rest,
        [&](const std::wstring& units) {
            for (const wchar_t unit : units)
                AppendRtfUnit(&ascii, pairs.Next(unit));
        },
        [&](std::string_view bytes) { ascii += bytes; });
    return ascii;
}

std::string MendedRtf(std::string rtf, std::wstring_view text) {
    if (std::all_of(text.begin(), text.end(), IsAscii)) return rtf;
    const std::wstring units = WithShortLineEnds(text);
    if (!RunsBeside(rtf, units)) return rtf;
    std::string mended;
    mended.reserve(rtf.size() + rtf.size() / 4);
    RtfCharacters reader(rtf);
    RtfCharacter shown;
    size_t copied = 0;
    for (const wchar_t unit : units) {
        reader.Next(&shown);
        if (IsAscii(unit) || shown.isExact) continue;
        mended.append(rtf, copied, shown.at - copied);
        AppendRtfUnit(&mended, unit);
        copied = shown.end;
    }
    return mended.append(rtf, copied);
}
