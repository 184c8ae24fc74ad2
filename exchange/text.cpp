#include "exchange/text.h"

#include <win.h>

#include "exchange/content_lines.h"

namespace import {
namespace {

constexpr UINT kWesternEuropean = 1252;

struct Charset {
    const char* name;
    UINT codePage;
};

// The names that files use; others come as ISO-8859-n and WINDOWS-n.
constexpr Charset kCharsets[] = {
    {"US-ASCII", kWesternEuropean},
    {"ASCII", kWesternEuropean},
    {"ISO-8859-1", kWesternEuropean},
    {"LATIN1", kWesternEuropean},
    {"SHIFT_JIS", 932},
    {"SJIS", 932},
    {"ISO-2022-JP", 50220},
    {"EUC-JP", 51932},
    {"GB2312", 936},
    {"GBK", 936},
    {"GB18030", 54936},
    {"BIG5", 950},
    {"EUC-KR", 949},
    {"KOI8-R", 20866},
    {"KOI8-U", 21866},
    {"UTF-7", CP_UTF7},
};

// 0 for UTF-8, and for a name that nobody knows.
UINT CodePageOf(std::string_view charset) {
    const std::string name = ToUpper(charset);
    for (const Charset& known : kCharsets)
        if (name == known.name) return known.codePage;
    const auto numbered = [&](std::string_view prefix) -> UINT {
        if (!name.starts_with(prefix)) return 0;
        return static_cast<UINT>(std::strtoul(name.c_str() + prefix.size(), nullptr, 10));
    };
    if (const UINT part = numbered("ISO-8859-")) return 28590 + part;
    if (const UINT page = numbered("WINDOWS-")) return page;
    return numbered("CP");
}

bool Convert(std::string_view bytes, UINT codePage, DWORD flags, std::wstring* text) {
    const int length = static_cast<int>(bytes.size());
    const int size = MultiByteToWideChar(codePage, flags, bytes.data(), length, nullptr, 0);
    if (size <= 0) return false;
    text->resize(static_cast<size_t>(size));
    MultiByteToWideChar(codePage, flags, bytes.data(), length, text->data(), size);
    return true;
}

int HexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return -1;
}

std::string BytesOf(const ContentLine& line) {
    if (IsQuotedPrintable(line)) return DecodeQuotedPrintable(line.value);
    if (IsBase64(line)) return DecodeBase64(line.value);
    return line.value;
}

std::wstring DecodedText(const ContentLine& line) {
    return Decode(BytesOf(line), line.Get("CHARSET"));
}

// Every end of a line as \r\n, and no NUL: texts end at it.
std::wstring WithLineEnds(std::wstring_view text) {
    std::wstring result;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == L'\r' || text[i] == L'\n') {
            if (text[i] == L'\r' && i + 1 < text.size() && text[i + 1] == L'\n') ++i;
            result += L"\r\n";
        } else if (text[i] != L'\0') {
            result += text[i];
        }
    }
    return result;
}

}  // namespace

std::wstring Decode(std::string_view bytes, std::string_view charset) {
    std::wstring text;
    if (bytes.empty()) return text;
    const UINT codePage = CodePageOf(charset);
    if (codePage && Convert(bytes, codePage, 0, &text)) return text;
    if (Convert(bytes, CP_UTF8, MB_ERR_INVALID_CHARS, &text)) return text;
    Convert(bytes, kWesternEuropean, 0, &text);
    return text;
}

std::string Utf8FromUtf16(std::string_view bytes) {
    const bool littleEndian = bytes.starts_with("\xFF\xFE");
    std::wstring text;
    for (size_t i = 2; i + 1 < bytes.size(); i += 2) {
        const auto first = static_cast<unsigned char>(bytes[i]);
        const auto second = static_cast<unsigned char>(bytes[i + 1]);
        text += static_cast<wchar_t>(littleEndian ? second << 8 | first : first << 8 | second);
    }
    const int length = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, utf8.data(), size, nullptr, nullptr);
    return utf8;
}

std::string DecodeQuotedPrintable(std::string_view text) {
    std::string bytes;
    for (size_t i = 0; i < text.size(); ++i) {
        const int high = text[i] == '=' && i + 2 < text.size() ? HexDigit(text[i + 1]) : -1;
        const int low = high >= 0 ? HexDigit(text[i + 2]) : -1;
        if (low < 0) {
            bytes += text[i];
            continue;
        }
        bytes += static_cast<char>(high << 4 | low);
        i += 2;
    }
    return bytes;
}

std::string DecodeBase64(std::string_view text) {
    constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string bytes;
    unsigned bits = 0;
    int count = 0;
    for (const char c : text) {
        const size_t digit = kDigits.find(c);
        if (digit == kDigits.npos) continue;
        bits = bits << 6 | static_cast<unsigned>(digit);
        count += 6;
        if (count < 8) continue;
        count -= 8;
        bytes += static_cast<char>(bits >> count & 0xFF);
    }
    return bytes;
}

std::vector<std::wstring> SplitText(std::wstring_view text, Escapes escapes, wchar_t separator) {
    std::vector<std::wstring> parts(1);
    for (size_t i = 0; i < text.size(); ++i) {
        if (separator && text[i] == separator) {
            parts.emplace_back();
            continue;
        }
        if (text[i] != L'\\' || i + 1 == text.size()) {
            parts.back() += text[i];
            continue;
        }
        const wchar_t next = text[i + 1];
        const bool isNewLine = escapes == Escapes::kNew && (next == L'n' || next == L'N');
        if (isNewLine || next == L';' || next == L',' || next == L':' || next == L'\\') {
            parts.back() += isNewLine ? L'\n' : next;
            ++i;
        } else {
            parts.back() += text[i];
        }
    }
    for (std::wstring& part : parts)
        part = WithLineEnds(part);
    return parts;
}

std::wstring TextOf(const ContentLine& line, Escapes escapes) {
    return SplitText(DecodedText(line), escapes, 0)[0];
}

std::vector<std::wstring> PartsOf(const ContentLine& line, Escapes escapes, wchar_t separator) {
    return SplitText(DecodedText(line), escapes, separator);
}

std::wstring Trimmed(std::wstring_view text) {
    constexpr std::wstring_view kBlanks = L" \t\r\n\x00A0";
    const size_t begin = text.find_first_not_of(kBlanks);
    if (begin == text.npos) return {};
    return std::wstring(text.substr(begin, text.find_last_not_of(kBlanks) - begin + 1));
}

}  // namespace import
