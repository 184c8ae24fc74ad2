#include "note_text.h"

#include <charconv>
#include <cstdint>
#include <cstring>
#include <iterator>

namespace {

constexpr std::string_view kMark = "{\\*\\plainnote ";
constexpr size_t kHashDigits = 16;
constexpr size_t kFarthestMark = 512;  // it stands before the font table

uint64_t Mix(uint64_t hash, const char* bytes, size_t count) {
    constexpr uint64_t kFactor = 0x9E3779B97F4A7C15;
    uint64_t word = 0;
    std::memcpy(&word, bytes, count);
    hash = (hash ^ word) * kFactor;
    return hash ^ hash >> 32;
}

// Not against ill will: against bytes that were changed by accident or by a program that knows no better. Four sums go
// side by side, as each step waits for the one before.
uint64_t Hash(uint64_t hash, std::string_view bytes) {
    constexpr size_t kWord = sizeof(uint64_t);
    hash += bytes.size();
    const char* at = bytes.data();
    size_t left = bytes.size();
    uint64_t sums[4] = {hash, hash + 1, hash + 2, hash + 3};
    for (; left >= 4 * kWord; left -= 4 * kWord, at += 4 * kWord) {
        for (size_t i = 0; i < 4; ++i)
            sums[i] = Mix(sums[i], at + i * kWord, kWord);
    }
    for (const uint64_t sum : sums)
        hash = Mix(hash, reinterpret_cast<const char*>(&sum), kWord);
    for (; left >= kWord; left -= kWord, at += kWord)
        hash = Mix(hash, at, kWord);
    return Mix(hash, at, left);
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

bool IsPlain(char c) {
    return c >= 0x20 && c != '\\' && c != '{' && c != '}';
}

// The next sixteen bytes as text when all of them are plain, as in most notes they are: all sixteen at once.
constexpr size_t kBlock = 16;
bool DecodePlainBlock(const char* bytes, wchar_t* text) {
    typedef signed char Bytes __attribute__((vector_size(kBlock)));
    typedef short Units __attribute__((vector_size(kBlock * sizeof(wchar_t))));
    Bytes block;
    std::memcpy(&block, bytes, sizeof block);
    const Bytes special = (block < ' ') | (block == '\\') | (block == '{') | (block == '}');
    uint64_t halves[2];
    std::memcpy(halves, &special, sizeof halves);
    if (halves[0] | halves[1]) return false;
    const Units units = __builtin_convertvector(block, Units);
    std::memcpy(text, &units, sizeof units);
    return true;
}

// Appends up to the brace that closes the group; false for anything that Encoded does not write. By pieces, as a stream
// may be many times as long as the text in it.
bool Decode(std::string_view bytes, std::wstring* text) {
    wchar_t piece[1024];
    wchar_t* out = piece;
    const char* at = bytes.data();
    const char* const end = at + bytes.size();
    while (at < end) {
        if (out + kBlock > piece + std::size(piece)) {
            text->append(piece, out);
            out = piece;
        }
        if (static_cast<size_t>(end - at) >= kBlock && DecodePlainBlock(at, out)) {
            out += kBlock;
            at += kBlock;
            continue;
        }
        const char c = *at++;
        if (IsPlain(c)) {
            *out++ = static_cast<wchar_t>(c);
            continue;
        }
        if (c == '}') {
            text->append(piece, out);
            return true;
        }
        if (c != '\\' || at == end) return false;
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
