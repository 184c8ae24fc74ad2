#include "platform/richink/rtf_guard.h"

#include <algorithm>

#include "platform/richink/picture_guard.h"

namespace {

constexpr std::string_view kStart = "{\\rtf";
constexpr int kDeepest = 24;         // groups in groups
constexpr size_t kLongestWord = 32;  // letters; no real word is longer
constexpr size_t kMostDigits = 9;    // always fits 32 bits

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}
bool IsHex(char c) {
    return IsDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

class Guard {
public:
    explicit Guard(std::string_view rtf) : rest_(rtf) { sound_.reserve(rtf.size() + kDeepest); }

    std::string Run() {
        while (!rest_.empty() && !ended_)
            Step();
        sound_.append(static_cast<size_t>(std::min(depth_, kDeepest)), '}');
        return std::move(sound_);
    }

private:
    void Step() {
        switch (rest_.front()) {
            case '{': Open(); break;
            case '}': Close(); break;
            case '\\': Control(); break;
            case '\0': rest_.remove_prefix(1); break;
            default:
                if (static_cast<unsigned char>(rest_.front()) < 0x80) return Copy(1);
                Escape();
        }
    }

    // Groups that are too deep are left out with all they hold.
    bool Kept() const { return depth_ <= kDeepest; }

    void Copy(size_t count) {
        if (Kept()) sound_.append(rest_.substr(0, count));
        rest_.remove_prefix(count);
    }

    // Means the same; the reader looks such a byte up in a table that ends before it.
    void Escape() {
        constexpr char kDigits[] = "0123456789abcdef";
        const auto byte = static_cast<unsigned char>(rest_.front());
        if (Kept()) sound_.append({'\\', '\'', kDigits[byte >> 4], kDigits[byte & 15]});
        rest_.remove_prefix(1);
    }

    void Open() {
        if (IsWord(1, "pict")) {
            const size_t length = GroupLength();
            if (length == 0 || !IsSoundPicture(rest_.substr(0, length))) {
                rest_.remove_prefix(length ? length : rest_.size());
                return;
            }
        }
        ++depth_;
        Copy(1);
    }

    bool IsWord(size_t at, std::string_view word) const {
        return rest_.size() > at + 1 + word.size() && rest_[at] == '\\' && rest_.substr(at + 1).starts_with(word) &&
               !IsLetter(rest_[at + 1 + word.size()]);
    }

    // Of the group that opens here, with both braces; 0 when it is not closed.
    size_t GroupLength() const {
        int depth = 0;
        for (size_t i = 0; i < rest_.size(); ++i) {
            if (rest_[i] == '\\') {
                ++i;
            } else if (rest_[i] == '{') {
                ++depth;
            } else if (rest_[i] == '}' && --depth == 0) {
                return i + 1;
            }
        }
        return 0;
    }

    void Close() {
        Copy(1);
        ended_ = --depth_ == 0;
    }

    void Control() {
        if (rest_.size() < 2) {
            ended_ = true;
        } else if (IsLetter(rest_[1])) {
            Word();
        } else if (rest_[1] == '\'') {
            Hex();
        } else if (rest_[1] == '\0' || static_cast<unsigned char>(rest_[1]) >= 0x80) {
            rest_.remove_prefix(rest_[1] == '\0' ? 2 : 1);
        } else {
            Copy(2);
        }
    }

    // \'41
    void Hex() {
        if (rest_.size() < 4) {
            ended_ = true;
        } else if (IsHex(rest_[2]) && IsHex(rest_[3])) {
            Copy(4);
        } else {
            rest_.remove_prefix(2);
        }
    }

    // \word, \word12, \word-12, each with the blank that ends it
    void Word() {
        size_t end = 1;
        while (end < rest_.size() && IsLetter(rest_[end]))
            ++end;
        const std::string_view word = rest_.substr(1, end - 1);
        size_t digits = end < rest_.size() && rest_[end] == '-' ? end + 1 : end;
        const size_t firstDigit = digits;
        while (digits < rest_.size() && IsDigit(rest_[digits]))
            ++digits;
        if (digits > firstDigit) end = digits;
        if (end == rest_.size()) {  // cut off: perhaps half a word or half a number
            ended_ = true;
            return;
        }
        const size_t numberLength = end - firstDigit;
        if (word == "bin") return Binary(rest_.substr(std::min(firstDigit, end), end - std::min(firstDigit, end)), end);
        if (word.size() > kLongestWord || (digits > firstDigit && numberLength > kMostDigits)) {
            rest_.remove_prefix(end);
            return;
        }
        Copy(end + (rest_[end] == ' ' ? 1 : 0));
    }

    // \bin12 and twelve bytes of anything, braces included
    void Binary(std::string_view number, size_t end) {
        size_t length = 0;
        for (const char digit : number.substr(0, kMostDigits))
            length = length * 10 + static_cast<size_t>(digit - '0');
        if (rest_[end] == ' ') ++end;
        rest_.remove_prefix(std::min(rest_.size(), end + length));
    }

    std::string_view rest_;
    std::string sound_;
    int depth_ = 0;
    bool ended_ = false;
};

}  // namespace

std::string SoundRtf(std::string_view rtf) {
    if (!rtf.starts_with(kStart)) return {};
    std::string sound = Guard(rtf).Run();
    return sound.starts_with(kStart) ? sound : std::string();
}
