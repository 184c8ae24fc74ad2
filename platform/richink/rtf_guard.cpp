#include "platform/richink/rtf_guard.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <optional>

#include "platform/richink/picture_guard.h"
#include "platform/richink/rtf_words.h"

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

// The words that may have a number. The reader keeps most of these numbers and later measures or looks things up with
// them, unasked whether they make sense; a word that is not here goes with its number.
enum class Number { kWanted, kOptional };
struct Range {
    std::string_view word;
    int least;
    int most;
    Number number = Number::kWanted;
};
constexpr int kFarthestTwips = 31'680;  // 22 inches, the widest page there is
constexpr Range kRanges[] = {
    {"rtf", 0, 9, Number::kOptional},
    {"ansicpg", 0, 65'001},
    {"viewkind", 0, 5},
    {"viewscale", 1, 1'000},
    {"deff", 0, 32'767},
    {"adeff", 0, 32'767},
    {"deftab", 1, kFarthestTwips},
    {"f", 0, 32'767},
    {"af", 0, 32'767},
    {"fcharset", 0, 255},
    {"fprq", 0, 2},
    {"fbias", 0, 1},
    {"cpg", 0, 65'001},
    {"red", 0, 255},
    {"green", 0, 255},
    {"blue", 0, 255},
    {"s", 0, 32'767},
    {"cs", 0, 32'767},
    {"ds", 0, 32'767},
    {"sbasedon", 0, 32'767},
    {"snext", 0, 32'767},
    {"uc", 0, 32},
    {"u", -32'768, 65'535},
    {"lang", 0, 65'535},
    {"langfe", 0, 65'535},
    {"langnp", 0, 65'535},
    {"deflang", 0, 65'535},
    {"deflangfe", 0, 65'535},
    // Characters.
    {"fs", 2, 3'276},
    {"afs", 2, 3'276},
    {"cf", 0, 32'767},
    {"cb", 0, 32'767},
    {"chcbpat", 0, 32'767},
    {"highlight", 0, 32'767},
    {"ulc", 0, 32'767},
    {"revauth", 0, 255},
    {"up", 0, 3'276},
    {"dn", 0, 3'276},
    {"expnd", -3'276, 3'276},
    {"expndtw", -kFarthestTwips, kFarthestTwips},
    {"kerning", 0, 3'276},
    {"animtext", 0, 18},
    {"b", 0, 1, Number::kOptional},
    {"ab", 0, 1, Number::kOptional},
    {"i", 0, 1, Number::kOptional},
    {"ai", 0, 1, Number::kOptional},
    {"ul", 0, 1, Number::kOptional},
    {"uld", 0, 1, Number::kOptional},
    {"uldb", 0, 1, Number::kOptional},
    {"uldash", 0, 1, Number::kOptional},
    {"uldashd", 0, 1, Number::kOptional},
    {"uldashdd", 0, 1, Number::kOptional},
    {"ulhair", 0, 1, Number::kOptional},
    {"ulhwave", 0, 1, Number::kOptional},
    {"ulth", 0, 1, Number::kOptional},
    {"ulw", 0, 1, Number::kOptional},
    {"ulwave", 0, 1, Number::kOptional},
    {"strike", 0, 1, Number::kOptional},
    {"striked", 0, 1, Number::kOptional},
    {"caps", 0, 1, Number::kOptional},
    {"scaps", 0, 1, Number::kOptional},
    {"outl", 0, 1, Number::kOptional},
    {"shad", 0, 1, Number::kOptional},
    {"embo", 0, 1, Number::kOptional},
    {"impr", 0, 1, Number::kOptional},
    {"v", 0, 1, Number::kOptional},
    {"protect", 0, 1, Number::kOptional},
    {"deleted", 0, 1, Number::kOptional},
    {"revised", 0, 1, Number::kOptional},
    {"disabled", 0, 1, Number::kOptional},
    {"webhidden", 0, 1, Number::kOptional},
    {"super", 0, 1, Number::kOptional},
    {"sub", 0, 1, Number::kOptional},
    // Paragraphs.
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
    {"sbauto", 0, 1},
    {"saauto", 0, 1},
    {"hyphpar", 0, 1, Number::kOptional},
    {"keep", 0, 1, Number::kOptional},
    {"keepn", 0, 1, Number::kOptional},
    {"outlinelevel", 0, 9},
    {"ls", 0, 32'767},
    {"ilvl", 0, 8},
    {"pnf", 0, 32'767},
    {"pnfs", 2, 3'276},
    {"pncf", 0, 32'767},
    {"pnindent", 0, kFarthestTwips},
    {"pnsp", 0, kFarthestTwips},
    {"pnstart", 0, 32'767},
    {"pnlvl", 1, 9},
};

// `number` is empty for a word without one.
bool IsSoundWord(std::string_view word, std::string_view number) {
    const auto range =
        std::find_if(std::begin(kRanges), std::end(kRanges), [&](const Range& each) { return each.word == word; });
    if (range == std::end(kRanges)) return number.empty();
    if (number.empty()) return range->number == Number::kOptional;
    int value = 0;
    std::from_chars(number.data(), number.data() + number.size(), value);
    return value >= range->least && value <= range->most;
}

// Whoever writes the text later ends it there.
bool IsNul(std::string_view number) {
    return number.find_first_not_of("-0") == std::string_view::npos;
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
            case '\0': Drop(1); break;
            default:
                if (static_cast<unsigned char>(rest_.front()) < 0x80) return Copy(1);
                Escape();
        }
    }

    // Groups that are too deep are left out with all they hold.
    bool Kept() const { return depth_ <= kDeepest; }

    void Copy(size_t count, bool openWord = false) {
        if (!Kept()) return Drop(count);
        Put(rest_.substr(0, count), openWord);
        rest_.remove_prefix(count);
    }

    void Drop(size_t count) {
        dropped_ = true;
        rest_.remove_prefix(std::min(count, rest_.size()));
    }

    // What was left out may have ended the word before it; then what follows must not become a part of that.
    void Put(std::string_view text, bool openWord = false) {
        const char next = text.front();
        if (dropped_ && openWord_ && (IsLetter(next) || IsDigit(next) || next == '-' || next == ' ')) sound_ += ' ';
        sound_ += text;
        openWord_ = openWord;
        dropped_ = false;
    }

    // Means the same; the reader looks such a byte up in a table that ends before it.
    void Escape() {
        constexpr char kDigits[] = "0123456789abcdef";
        const auto byte = static_cast<unsigned char>(rest_.front());
        const char escaped[] = {'\\', '\'', kDigits[byte >> 4], kDigits[byte & 15]};
        if (!Kept()) return Drop(1);
        Put({escaped, sizeof(escaped)});
        rest_.remove_prefix(1);
    }

    // A picture is taken or left whole: what was looked at once is not looked at again.
    void Open() {
        if (IsWord(1, "pict")) {
            const size_t length = GroupLength();
            if (length == 0) return Drop(rest_.size());
            ++depth_;
            if (IsSoundPicture(rest_.substr(0, length)))
                Copy(length);
            else
                Drop(length);
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
            Drop(rest_[1] == '\0' ? 2 : 1);
        } else {
            Copy(2);
        }
    }

    // \'41
    void Hex() {
        if (rest_.size() < 4) {
            ended_ = true;
        } else if (!IsHex(rest_[2]) || !IsHex(rest_[3])) {
            Drop(2);
        } else if (rest_[2] == '0' && rest_[3] == '0') {
            Drop(4);
        } else {
            Copy(4);
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
        if (digits == rest_.size()) {  // cut off: perhaps half a word or half a number
            ended_ = true;
            return;
        }
        const bool hasNumber = digits > firstDigit;
        const std::string_view number = rest_.substr(word.size() + 1, end - word.size() - 1);
        if (word == "bin") return Binary(hasNumber ? rest_.substr(firstDigit, end - firstDigit) : "", end);
        const size_t blank = rest_[end] == ' ' ? 1 : 0;
        if (const auto instead = InsteadOfTable(word)) {
            if (Kept() && !instead->empty()) Put(*instead);
            return Drop(end + blank);
        }
        if (word == "u" && hasNumber && IsNul(number)) return Drop(EndOfRtfFallback(rest_, end + blank));
        if (word.size() > kLongestWord || number.size() > kMostDigits || !IsSoundWord(word, number))
            return Drop(number.empty() ? firstDigit + (rest_[firstDigit] == ' ') : end + blank);  // a lone sign, too
        Copy(end + blank, blank == 0);
    }

    // \bin12 and twelve bytes of anything, braces included
    void Binary(std::string_view number, size_t end) {
        size_t length = 0;
        for (const char digit : number.substr(0, kMostDigits))
            length = length * 10 + static_cast<size_t>(digit - '0');
        if (rest_[end] == ' ') ++end;
        Drop(end + length);
    }

    std::string_view rest_;
    std::string sound_;
    int depth_ = 0;
    bool openWord_ = false;  // what was put last is a word that no blank ends
    bool dropped_ = false;   // something behind it
    bool ended_ = false;
};

}  // namespace

std::string SoundRtf(std::string_view rtf) {
    if (!rtf.starts_with(kStart)) return {};
    std::string sound = Guard(rtf).Run();
    return sound.starts_with(kStart) ? sound : std::string();
}
