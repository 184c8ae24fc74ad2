// Wine writes the era once for each letter of "gg": "ADAD". Where the system does, it is given a single letter.
#include <dateformat.h>

#include <algorithm>
#include <iterator>
#include <string>

#undef GetDateFormatW  // the system's own, from here on

namespace {

constexpr DWORD kForms = DATE_SHORTDATE | DATE_LONGDATE | DATE_YEARMONTH;
constexpr int kMostChars = 200;  // more than a picture of the system's or an era may have

// The picture that the flags name; empty when it is the system's to find: by month and day, or by another calendar.
std::wstring PictureOf(LCID locale, DWORD flags) {
    if (flags & (DATE_MONTHDAY | DATE_USE_ALT_CALENDAR)) return {};
    const LCTYPE which = flags & DATE_LONGDATE    ? LOCALE_SLONGDATE
                         : flags & DATE_YEARMONTH ? LOCALE_SYEARMONTH
                                                  : LOCALE_SSHORTDATE;
    wchar_t picture[kMostChars] = L"";
    GetLocaleInfoW(locale, which | (flags & LOCALE_NOUSEROVERRIDE), picture, kMostChars);
    return picture;
}

// The picture with one letter for each era; what stands in quotes is text.
std::wstring WithSingleEras(const std::wstring& picture) {
    std::wstring single;
    bool quoted = false;
    for (const wchar_t c : picture) {
        if (c == L'\'') quoted = !quoted;
        if (c == L'g' && !quoted && !single.empty() && single.back() == L'g') continue;
        single += c;
    }
    return single;
}

bool DoublesEras(LCID locale, DWORD flags, const SYSTEMTIME* date) {
    wchar_t one[kMostChars] = L"";
    wchar_t two[kMostChars] = L"";
    GetDateFormatW(locale, flags, date, L"g", one, kMostChars);
    GetDateFormatW(locale, flags, date, L"gg", two, kMostChars);
    return one[0] != L'\0' && two == std::wstring(one) + one;
}

// Whether a date in the locale's form can have an era at all. Asking for the picture costs as much as the text.
bool IsNumbersAlone(const wchar_t* text, int length) {
    return std::none_of(text, text + length, [](wchar_t c) { return c >= 0x80 || IsCharAlphaW(c); });
}

}  // namespace

int CeGetDateFormat(LCID locale, DWORD flags, const SYSTEMTIME* date, LPCWSTR picture, LPWSTR text, int size) {
    if (!picture) {
        const int length = GetDateFormatW(locale, flags, date, nullptr, text, size);
        if (length > 0 && size > 0 && IsNumbersAlone(text, length - 1)) return length;
    }
    const std::wstring wanted = picture ? picture : PictureOf(locale, flags);
    const std::wstring single = WithSingleEras(wanted);
    const DWORD rest = picture ? flags : flags & ~kForms;
    if (single == wanted || !DoublesEras(locale, rest, date)) {
        return GetDateFormatW(locale, flags, date, picture, text, size);
    }
    return GetDateFormatW(locale, rest, date, single.c_str(), text, size);
}
