// Every letter there is, for whatever must lose none.
#pragma once

#include <string>

// Each unit of UTF-16 that is a character by itself or may become one (U+00A0 to U+FFFD without surrogates), and 2,000
// characters of two units, spread over all planes. `between` stands behind each group of `group`.
inline std::wstring AllLetters(size_t group, const std::wstring& between) {
    constexpr int kOutside = 2'000;
    constexpr int kStep = 0x100000 / kOutside;
    std::wstring letters;
    size_t count = 0;
    const auto next = [&] {
        if (++count % group == 0) letters += between;
    };
    for (int unit = 0xA0; unit <= 0xFFFD; ++unit) {
        if (unit >= 0xD800 && unit <= 0xDFFF) continue;
        letters += static_cast<wchar_t>(unit);
        next();
    }
    for (int i = 0; i < kOutside; ++i) {
        const int plane = i * kStep;  // less 0x10000
        letters += static_cast<wchar_t>(0xD800 + (plane >> 10));
        letters += static_cast<wchar_t>(0xDC00 + (plane & 0x3FF));
        next();
    }
    return letters;
}
