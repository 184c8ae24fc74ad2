// From the bytes of a value to its text.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace import {

struct ContentLine;

// The text of bytes in a character set that has that name in files ("" for none). Bytes that claim to be UTF-8, or say
// nothing, and are not are taken for Western European ones.
std::wstring Decode(std::string_view bytes, std::string_view charset);

// The bytes of UTF-16 with its mark as UTF-8.
std::string Utf8FromUtf16(std::string_view bytes);

std::string DecodeQuotedPrintable(std::string_view text);
// What is no base64 is passed over.
std::string DecodeBase64(std::string_view text);

// How the characters that part values are written within them.
enum class Escapes {
    kOld,  // vCard 2.1, vCalendar 1.0: \; \, \: and two backslashes
    kNew   // vCard 3.0 and 4.0, iCalendar: also \n
};

// The whole value as one text, its lines ended by \r\n.
std::wstring TextOf(const ContentLine& line, Escapes escapes);

// The value's parts, between which `separator` stands.
std::vector<std::wstring> PartsOf(const ContentLine& line, Escapes escapes, wchar_t separator);

// The same for a text that has been decoded, but not freed of its escapes.
std::vector<std::wstring> SplitText(std::wstring_view text, Escapes escapes, wchar_t separator);

// Without blanks and line ends around it.
std::wstring Trimmed(std::wstring_view text);

}  // namespace import
