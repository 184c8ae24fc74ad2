#include "platform/richink/rtf_guard.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <optional>

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

// Words whose numbers the reader keeps, and later measures or looks things up with, unasked whether they make sense.
struct Range {
    std::string_view word;
    int least;
    int most;
};
constexpr int kFarthestTwips = 31'680;  // 22 inches, the widest page there is
constexpr Range kRanges[] = {
    {"tx", 1, kFarthestTwips},
    {"tb", 1, kFarthestTwips},
    {"li", -kFarthestTwips, kFarthestTwips},
    {"lin", -kFarthestTwips, kFarthestTwips},
    {"ri", -kFarthestTwips, kFarthestTwips},
    {"rin", -kFarthestTwips, kFarthestTwips},
    {"fi", -kFarthestTwips, kFarthestTwips},
    {"sb", 0, kFarthestTwips},
    {"sa", 0, kFarthestTwips},
    {"sl", -kFarthestTwips, kFarthestTwips},
    {"slmult", 0, 1},
    {"fs", 2, 3'276},
    {"up", 0, 3'276},
    {"dn", 0, 3'276},
    {"f", 0, 32'767},
    {"deff", 0, 32'767},
    {"fcharset", 0, 255},
    {"fprq", 0, 2},
    {"cpg", 0, 65'001},
    {"ansicpg", 0, 65'001},
    {"cf", 0, 32'767},
    {"cb", 0, 32'767},
    {"highlight", 0, 32'767},
    {"red", 0, 255},
    {"green", 0, 255},
    {"blue", 0, 255},
    {"s", 0, 32'767},
    {"cs", 0, 32'767},
    {"sbasedon", 0, 32'767},
    {"snext", 0, 32'767},
    {"uc", 0, 32},
    {"u", -32'768, 65'535},
    {"lang", 0, 65'535},
    {"deflang", 0, 65'535},
    {"expnd", -3'276, 3'276},
    {"expndtw", -kFarthestTwips, kFarthestTwips},
    {"ls", 0, 32'767},
    {"ilvl", 0, 8},
    {"pnindent", 0, kFarthestTwips},
    {"pnstart", 0, 32'767},
};

bool IsInRange(std::string_view word, std::string_view number) {
    const auto range =
        std::find_if(std::begin(kRanges), std::end(kRanges), [&](const Range& each) { return each.word == word; });
    if (range == std::end(kRanges)) return true;
    int value = 0;
    std::from_chars(number.data(), number.data() + number.size(), value);
    return value >= range->least && value <= range->most;
}

// A note has no tables: some readers end the program over one that is not as they would have written it. What is in the
// cells stays, with tabs between and each row a line. Nothing for a word that is no table's, "" for one that is left
// out.
std::optional<std::string_view> InsteadOfTable(std::string_view word) {
    if (word == "cell" || word == "nestcell") return "\\tab ";
    if (word == "row" || word == "nestrow") return "\\par ";
    if (word.starts_with("tr") || word.starts_with("cl") || word == "cellx" || word == "intbl" || word == "itap" ||
        word == "lastrow" || word == "irow" || word == "irowband") {
        return "";
    }
    return std::nullopt;
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

    // A picture is taken or left whole: what was looked at once is not looked at again.
    void Open() {
        if (IsWord(1, "pict")) {
            const size_t length = GroupLength();
            if (length == 0) return rest_.remove_prefix(rest_.size());
            ++depth_;
            if (IsSoundPicture(rest_.substr(0, length)))
                Copy(length);
            else
                rest_.remove_prefix(length);
            --depth_;
            return;
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
        const bool hasNumber = digits > firstDigit;
        const size_t blank = rest_[end] == ' ' ? 1 : 0;
        if (const auto instead = InsteadOfTable(word)) {
            if (Kept()) sound_.append(*instead);
            return rest_.remove_prefix(end + blank);
        }
        if (word.size() > kLongestWord || (hasNumber && numberLength > kMostDigits)) return rest_.remove_prefix(end);
        if (hasNumber && !IsInRange(word, rest_.substr(word.size() + 1, end - word.size() - 1)))
            return rest_.remove_prefix(end + blank);
        Copy(end + blank);
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
