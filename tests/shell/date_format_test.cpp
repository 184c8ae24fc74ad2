// An era stands once in a date, whatever the system makes of it. GetDateFormatEx is the system's own in these tests.
#include <dateformat.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/replaced_import.h"

namespace {

constexpr int kChars = 300;
const SYSTEMTIME kDay = {2026, 3, 0, 14, 15, 9, 26, 0};

BOOL CALLBACK Collect(LPWSTR name, DWORD, LPARAM locales) {
    constexpr LCID kNone = 0x1000;  // shared by all locales that have a name alone
    const LCID locale = LocaleNameToLCID(name, 0);
    if (locale && (locale & 0xFFFF) != kNone) reinterpret_cast<std::vector<LCID>*>(locales)->push_back(locale);
    return TRUE;
}

std::vector<LCID> Locales() {
    std::vector<LCID> locales;
    EnumSystemLocalesEx(Collect, LOCALE_ALL, reinterpret_cast<LPARAM>(&locales), nullptr);
    EXPECT_GT(locales.size(), 100u);
    return locales;
}

std::wstring NameOf(LCID locale) {
    wchar_t name[LOCALE_NAME_MAX_LENGTH] = L"";
    LCIDToLocaleName(locale, name, LOCALE_NAME_MAX_LENGTH, 0);
    return name;
}

std::wstring Text(LCID locale, DWORD flags, const wchar_t* picture) {
    wchar_t text[kChars] = L"";
    EXPECT_NE(GetDateFormatW(locale, flags, &kDay, picture, text, kChars), 0);
    return text;
}

std::wstring SystemText(LCID locale, DWORD flags, const wchar_t* picture) {
    wchar_t text[kChars] = L"";
    GetDateFormatEx(NameOf(locale).c_str(), flags, &kDay, picture, text, kChars, nullptr);
    return text;
}

// What the pictures are given to, in place of the system's.
std::wstring asked;
int WINAPI KeepPicture(LCID, DWORD, const SYSTEMTIME*, LPCWSTR picture, LPWSTR text, int) {
    asked = picture ? picture : L"(none)";
    return lstrlenW(lstrcpyW(text, L"era")) + 1;  // one era, for one letter as for two
}

}  // namespace

TEST(DateFormatTest, AnEraStandsOnceInEveryLocale) {
    for (const LCID locale : Locales()) {
        const std::wstring era = SystemText(locale, 0, L"g");
        for (const wchar_t* picture : {L"g", L"gg", L"ggg"})
            EXPECT_EQ(Text(locale, 0, picture), era) << locale;
        EXPECT_EQ(Text(locale, 0, L"ddd, MMM d yyyy gg"), SystemText(locale, 0, L"ddd, MMM d yyyy ") + era) << locale;
        EXPECT_EQ(Text(locale, 0, L"gg yyyy gg"), era + L" 2026 " + era) << locale;
    }
}

TEST(DateFormatTest, AnEraInALocalesOwnPictureStandsOnce) {
    for (const LCID locale : Locales()) {
        const std::wstring era = SystemText(locale, 0, L"g");
        if (era.empty()) continue;
        for (const DWORD form : {DATE_LONGDATE, DATE_SHORTDATE, DATE_YEARMONTH})
            EXPECT_EQ(Text(locale, form, nullptr).find(era + era), std::wstring::npos) << locale;
    }
    // One that has an era in it.
    const LCID thai = MAKELCID(MAKELANGID(LANG_THAI, SUBLANG_DEFAULT), SORT_DEFAULT);
    EXPECT_NE(Text(thai, DATE_LONGDATE, nullptr).find(SystemText(thai, 0, L"g")), std::wstring::npos);
}

TEST(DateFormatTest, LettersInQuotesAreText) {
    EXPECT_EQ(Text(LOCALE_INVARIANT, 0, L"'gg' d 'gg'"), L"gg 14 gg");
    EXPECT_EQ(Text(LOCALE_INVARIANT, 0, L"'gg''gg' gg"), L"gg'gg " + SystemText(LOCALE_INVARIANT, 0, L"g"));
}

TEST(DateFormatTest, WithoutAnEraTheTextIsTheSystems) {
    for (const LCID locale : Locales()) {
        EXPECT_EQ(Text(locale, 0, L"dddd, MMMM d yyyy"), SystemText(locale, 0, L"dddd, MMMM d yyyy")) << locale;
        EXPECT_EQ(Text(locale, DATE_SHORTDATE, nullptr).empty(), false) << locale;
    }
    EXPECT_EQ(Text(LOCALE_INVARIANT, DATE_SHORTDATE, nullptr), SystemText(LOCALE_INVARIANT, DATE_SHORTDATE, nullptr));
}

TEST(DateFormatTest, ASystemThatWritesOneEraIsGivenThePictureAsItIs) {
    const ReplacedImport system(L"cehost.dll", "GetDateFormatW", KeepPicture);
    EXPECT_EQ(Text(LOCALE_INVARIANT, 0, L"d gg"), L"era");
    EXPECT_EQ(asked, L"d gg");
}

TEST(DateFormatTest, FailsAndMeasuresAsTheSystemDoes) {
    const std::wstring whole = Text(LOCALE_INVARIANT, 0, L"yyyy gg");
    const int size = static_cast<int>(whole.size()) + 1;
    EXPECT_EQ(GetDateFormatW(LOCALE_INVARIANT, 0, &kDay, L"yyyy gg", nullptr, 0), size);
    wchar_t text[kChars] = L"";
    EXPECT_EQ(GetDateFormatW(LOCALE_INVARIANT, 0, &kDay, L"yyyy gg", text, size), size);
    EXPECT_EQ(text, whole);
    SetLastError(0);
    EXPECT_EQ(GetDateFormatW(LOCALE_INVARIANT, 0, &kDay, L"yyyy gg", text, size - 1), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INSUFFICIENT_BUFFER));
    SetLastError(0);
    EXPECT_EQ(GetDateFormatW(LOCALE_INVARIANT, DATE_SHORTDATE, &kDay, L"gg", text, kChars), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_FLAGS));
    const SYSTEMTIME none = {2026, 13, 0, 32, 0, 0, 0, 0};
    EXPECT_EQ(GetDateFormatW(LOCALE_INVARIANT, 0, &none, L"gg", text, kChars), 0);
}
