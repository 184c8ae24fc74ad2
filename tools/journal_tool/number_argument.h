// A number on the command line.
#pragma once

// False unless the text is a whole number from 1 to `most`.
inline bool ReadNumberArgument(const wchar_t* text, int most, int* number) {
    int value = 0;
    for (const wchar_t* digit = text; *digit; ++digit) {
        if (*digit < L'0' || *digit > L'9' || value > most) return false;
        value = value * 10 + (*digit - L'0');
    }
    *number = value;
    return value >= 1 && value <= most;
}
