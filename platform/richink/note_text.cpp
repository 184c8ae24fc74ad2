#include "note_text.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstring>

namespace {

constexpr std::string_view kMark = "{\\*\\plainnote ";
constexpr size_t kHashDigits = 16;
constexpr size_t kFarthestMark = 512;  // it stands before the font table

// Not against ill will: against bytes that were changed by accident or by a program that knows no better.
uint64_t Hash(uint64_t hash, std::string_view bytes) {
    constexpr uint64_t kFactor = 0x9E3779B97F4A7C15;
    hash += bytes.size();
    size_t at = 0;
    for (; at + sizeof(uint64_t) <= bytes.size(); at += sizeof(uint64_t)) {
        uint64_t word = 0;
        std::memcpy(&word, bytes.data() + at, sizeof(word));
        hash = (hash ^ word) * kFactor;
        hash ^= hash >> 32;
    }
    uint64_t word = 0;
    std::memcpy(&word, bytes.data() + at, bytes.size() - at);
    hash = (hash ^ word) * kFactor;
    return hash ^ hash >> 32;
}

std::string Digits(uint64_t hash) {
    std::string digits(kHashDigits, '0');
    for (size_t i = kHashDigits; i-- > 0; hash >>= 4)
        digits[i] = "0123456789abcdef"[hash & 15];
    return digits;
}

std::string Encoded(std::wstring_view text) {
    std::string bytes;
    bytes.reserve(text.size() + text.size() / 8);
    for (const wchar_t c : text) {
        if (c == L'\\' || c == L'{' || c == L'}') bytes += '\\';
        if (c >= 0x20 && c < 0x7F) {
            bytes += static_cast<char>(c);
        } else {
            bytes += "\\u" + std::to_string(static_cast<short>(c)) + "?";
        }
    }
    return bytes;
}

// Up to the brace that closes the group; false for anything that Encoded does not write.
bool Decode(std::string_view bytes, std::wstring* text) {
    text->resize(bytes.size());
    wchar_t* out = text->data();
    const char* at = bytes.data();
    const char* const end = at + bytes.size();
    while (at < end) {
        const char c = *at++;
        if (c == '}') {
            text->resize(static_cast<size_t>(out - text->data()));
            return true;
        }
        if (c != '\\') {
            if (c < 0x20 || c == '{') return false;
            *out++ = static_cast<wchar_t>(c);
            continue;
        }
        if (at == end) return false;
        if (*at != 'u') {
            if (*at != '\\' && *at != '{' && *at != '}') return false;
            *out++ = static_cast<wchar_t>(*at++);
            continue;
        }
        int number = 0;
        const auto [next, error] = std::from_chars(at + 1, end, number);
        if (error != std::errc() || next == end || *next != '?') return false;
        *out++ = static_cast<wchar_t>(number);
        at = next + 1;
    }
    return false;
}

}  // namespace

void AddNoteText(std::string* stream, std::wstring_view text) {
    const size_t group = stream->find('{', 1);
    if (group == std::string::npos || group > kFarthestMark) return;
    const std::string before = stream->substr(0, group) + std::string(kMark);
    const std::string after = " " + Encoded(text) + "}" + stream->substr(group);
    *stream = before + Digits(Hash(Hash(0, before), after)) + after;
}

bool GetNoteText(std::string_view stream, std::wstring* text) {
    text->clear();
    const size_t mark = stream.substr(0, kFarthestMark + kMark.size()).find(kMark);
    if (mark == std::string_view::npos) return false;
    const size_t digits = mark + kMark.size();
    if (stream.size() < digits + kHashDigits + 1) return false;
    const std::string_view after = stream.substr(digits + kHashDigits);
    uint64_t hash = 0;
    const char* const end = stream.data() + digits + kHashDigits;
    const auto [next, error] = std::from_chars(stream.data() + digits, end, hash, 16);
    if (error != std::errc() || next != end || after.front() != ' ' ||
        Hash(Hash(0, stream.substr(0, digits)), after) != hash) {
        return false;
    }
    if (Decode(after.substr(1), text)) return true;
    text->clear();
    return false;
}
