#include "platform/richink/picture_guard.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>

namespace {

enum class Kind { kOther, kMetafile, kEnhancedMetafile, kBitmap };

struct Picture {
    Kind kind = Kind::kOther;
    std::string bytes;
};

int HexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

// The end of a control word with its number and blank, from its backslash on.
size_t WordEnd(std::string_view text, size_t at, std::string_view* word) {
    size_t end = at + 1;
    while (end < text.size() && IsLetter(text[end]))
        ++end;
    *word = text.substr(at + 1, end - at - 1);
    while (end < text.size() && (text[end] == '-' || (text[end] >= '0' && text[end] <= '9')))
        ++end;
    return end < text.size() && text[end] == ' ' ? end + 1 : end;
}

// Nothing when the data is no whole hexadecimal bytes, or when there is more than a picture and its properties.
std::optional<Picture> Read(std::string_view group) {
    constexpr int kDeepest = 8;
    Picture picture;
    int depth = 0;
    int high = -1;
    for (size_t i = 0; i < group.size();) {
        const char c = group[i];
        if (c == '\\') {
            std::string_view word;
            i = std::max(WordEnd(group, i, &word), i + 2);
            if (word == "wmetafile") picture.kind = Kind::kMetafile;
            if (word == "emfblip") picture.kind = Kind::kEnhancedMetafile;
            if (word == "dibitmap" || word == "wbitmap") picture.kind = Kind::kBitmap;
            if (word == "bin" || (word == "pict" && depth > 1)) return std::nullopt;
            continue;
        }
        ++i;
        if (c == '\0' || static_cast<unsigned char>(c) >= 0x80) return std::nullopt;
        if (c == '{' && ++depth > kDeepest) return std::nullopt;
        if (c == '}') --depth;
        if (depth != 1 || c == '{' || c == '}' || c == '\r' || c == '\n' || c == ' ' || c == '\t') continue;
        const int digit = HexDigit(c);
        if (digit < 0) return std::nullopt;
        if (high < 0) {
            high = digit;
        } else {
            picture.bytes += static_cast<char>(high << 4 | digit);
            high = -1;
        }
    }
    if (high >= 0) return std::nullopt;
    return picture;
}

uint32_t Number(const std::string& bytes, size_t at, int size) {
    uint32_t number = 0;
    for (int i = size - 1; i >= 0; --i)
        number = number << 8 | static_cast<unsigned char>(bytes[at + i]);
    return number;
}

bool IsSoundMetafile(const std::string& bytes) {
    constexpr size_t kHeader = 18;
    constexpr uint32_t kHeaderWords = 9;
    if (bytes.size() < kHeader || bytes.size() % 2) return false;
    const uint32_t type = Number(bytes, 0, 2);
    const uint32_t words = Number(bytes, 6, 4);
    if ((type != 1 && type != 2) || Number(bytes, 2, 2) != kHeaderWords || words != bytes.size() / 2) return false;
    for (size_t at = kHeader; bytes.size() - at >= 6;) {
        const size_t length = size_t{Number(bytes, at, 4)} * 2;
        if (length < 6 || length > bytes.size() - at) return false;
        if (Number(bytes, at + 4, 2) == 0) return true;  // the record that ends it
        at += length;
    }
    return false;
}

bool IsSoundEnhancedMetafile(const std::string& bytes) {
    constexpr size_t kHeader = 88;
    constexpr uint32_t kSignature = 0x464D4520;  // " EMF"
    constexpr uint32_t kHeaderRecord = 1, kEndRecord = 14;
    if (bytes.size() < kHeader || Number(bytes, 0, 4) != kHeaderRecord || Number(bytes, 40, 4) != kSignature ||
        Number(bytes, 48, 4) != bytes.size()) {
        return false;
    }
    for (size_t at = 0; bytes.size() - at >= 8;) {
        const size_t length = Number(bytes, at + 4, 4);
        if (length < 8 || length % 4 || length > bytes.size() - at) return false;
        if (Number(bytes, at, 4) == kEndRecord) return at + length == bytes.size();
        at += length;
    }
    return false;
}

bool IsSoundBitmap(const std::string& bytes) {
    constexpr size_t kHeader = 40;
    if (bytes.size() < kHeader || Number(bytes, 0, 4) != kHeader || Number(bytes, 16, 4) != 0) return false;
    const int64_t width = static_cast<int32_t>(Number(bytes, 4, 4));
    const int64_t height = std::llabs(static_cast<int32_t>(Number(bytes, 8, 4)));
    const int64_t bits = Number(bytes, 14, 2);
    int64_t colours = Number(bytes, 32, 4);
    if (width <= 0 || height == 0 || width > 0x8000 || height > 0x8000 || bits > 32 || colours > 256) return false;
    if (bits <= 8 && colours == 0) colours = int64_t{1} << bits;
    const int64_t row = (width * bits + 31) / 32 * 4;
    return static_cast<int64_t>(bytes.size()) >= static_cast<int64_t>(kHeader) + colours * 4 + row * height;
}

}  // namespace

bool IsSoundPicture(std::string_view group) {
    const auto picture = Read(group);
    if (!picture) return false;
    switch (picture->kind) {
        case Kind::kMetafile: return IsSoundMetafile(picture->bytes);
        case Kind::kEnhancedMetafile: return IsSoundEnhancedMetafile(picture->bytes);
        case Kind::kBitmap: return IsSoundBitmap(picture->bytes);
        case Kind::kOther: break;
    }
    return true;
}
