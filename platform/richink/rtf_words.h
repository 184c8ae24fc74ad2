// The words of a rich text that the guard has found sound, one after another.
#pragma once

#include <string>
#include <string_view>

struct RtfWord {
    std::string_view name;  // empty for a control sign
    int number = 0;
    bool hasNumber = false;
    size_t end = 0;  // behind the blank that ends it
};

// The control word or sign whose backslash is at `at`.
RtfWord RtfWordAt(std::string_view rtf, size_t at);

// The length of the group that opens at `at`, with both braces; to the end of the text where it is not closed.
size_t RtfGroupLength(std::string_view rtf, size_t at);

// Whether a group opens at `at` whose first word is `name`.
bool OpensRtfGroup(std::string_view rtf, size_t at, std::string_view name);

// Where what stands for the character ends that \u has given: \'xx or one character. `at` is behind the word.
size_t EndOfRtfFallback(std::string_view rtf, size_t at);

// A unit of UTF-16 as \uN?.
void AppendRtfUnit(std::string* rtf, wchar_t unit);
