#include "tools/journal_tool/rtf.h"

#include <note_text.h>
#include <win.h>

#include <array>
#include <cstdlib>
#include <vector>

std::string MakeRtf(std::wstring_view text) {
    if (text.empty()) return {};
    std::string rtf = "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fnil Tahoma;}}\\uc1\\pard\\f0\\fs20 ";
    rtf.reserve(rtf.size() + text.size() + text.size() / 8);
    std::wstring shown;  // as the note control answers it
    for (const wchar_t character : text) {
        if (character == L'\n') shown += L'\r';
        if (character == L'\n' || character == L'\t' || (character >= 0x20 && character != 0x7F)) shown += character;
        switch (character) {
            case L'\\':
            case L'{':
            case L'}':
                rtf += '\\';
                rtf += static_cast<char>(character);
                break;
            case L'\n': rtf += "\\par\r\n"; break;
            case L'\t': rtf += "\\tab "; break;
            default:
                if (character >= 0x20 && character < 0x7F) {
                    rtf += static_cast<char>(character);
                } else if (character >= 0x80) {
                    // The number is a signed one; the question mark is for readers that know no Unicode.
                    rtf += "\\u" + std::to_string(static_cast<short>(character)) + "?";
                }
        }
    }
    rtf += "\\par\r\n}";
    AddNoteText(&rtf, shown);
    return rtf;
}

namespace {

// Groups that hold no text of the note.
constexpr std::array<std::string_view, 8> kSilentGroups = {"fonttbl", "colortbl",  "stylesheet", "info",
                                                           "pict",    "listtable", "object",     "generator"};

class RtfReader {
public:
    explicit RtfReader(std::span<const unsigned char> rtf) : rtf_(rtf) {}

    std::wstring Read() {
        while (at_ < rtf_.size()) {
            const char c = static_cast<char>(rtf_[at_++]);
            switch (c) {
                case '{': groups_.push_back(group_); break;
                case '}': CloseGroup(); break;
                case '\\': Control(); break;
                case '\r':
                case '\n':
                case '\0': break;
                default: PutByte(static_cast<unsigned char>(c));
            }
        }
        // The last paragraph's end is the stream's, not the writer's.
        if (!text_.empty() && text_.back() == L'\n') text_.pop_back();
        return std::move(text_);
    }

private:
    struct Group {
        bool silent = false;
        int fallback = 1;  // characters after \uN that stand for it
    };

    void CloseGroup() {
        if (groups_.empty()) return;
        group_ = groups_.back();
        groups_.pop_back();
    }

    void Control() {
        if (at_ >= rtf_.size()) return;
        const char first = static_cast<char>(rtf_[at_]);
        if (IsLetter(first)) return Word();
        ++at_;
        switch (first) {
            case '*': group_.silent = true; break;
            case '\'': HexByte(); break;
            case '~': Put(0xA0); break;
            case '\\':
            case '{':
            case '}': PutByte(static_cast<unsigned char>(first)); break;
            case '\r':
            case '\n': Put(L'\n'); break;
            default: break;
        }
    }

    void Word() {
        std::string word;
        while (at_ < rtf_.size() && IsLetter(static_cast<char>(rtf_[at_])))
            word += static_cast<char>(rtf_[at_++]);
        std::string number;
        if (at_ < rtf_.size() && rtf_[at_] == '-') number += static_cast<char>(rtf_[at_++]);
        while (at_ < rtf_.size() && rtf_[at_] >= '0' && rtf_[at_] <= '9' && number.size() < 11)
            number += static_cast<char>(rtf_[at_++]);
        if (at_ < rtf_.size() && rtf_[at_] == ' ') ++at_;
        const long long value = std::atoll(number.c_str());

        if (word == "par" || word == "line" || word == "row") return Put(L'\n');
        if (word == "tab" || word == "cell") return Put(L'\t');
        if (word == "u") {
            Put(static_cast<wchar_t>(value));
            skip_ = group_.fallback;
        } else if (word == "uc") {
            group_.fallback = value > 0 && value < 16 ? static_cast<int>(value) : 0;
        } else if (word == "bin") {
            if (value > 0)
                at_ += static_cast<size_t>(value) < rtf_.size() - at_ ? static_cast<size_t>(value) : rtf_.size() - at_;
        } else if (const wchar_t mark = MarkOf(word)) {
            Put(mark);
        } else {
            for (const std::string_view silent : kSilentGroups)
                if (word == silent) group_.silent = true;
        }
    }

    static wchar_t MarkOf(const std::string& word) {
        if (word == "emdash") return 0x2014;
        if (word == "endash") return 0x2013;
        if (word == "lquote") return 0x2018;
        if (word == "rquote") return 0x2019;
        if (word == "ldblquote") return 0x201C;
        if (word == "rdblquote") return 0x201D;
        if (word == "bullet") return 0x2022;
        return 0;
    }

    void HexByte() {
        int byte = 0;
        for (int digit = 0; digit < 2; ++digit, ++at_) {
            if (at_ >= rtf_.size()) return;
            const unsigned char c = rtf_[at_];
            if (c >= '0' && c <= '9')
                byte = byte * 16 + (c - '0');
            else if ((c | 0x20) >= 'a' && (c | 0x20) <= 'f')
                byte = byte * 16 + ((c | 0x20) - 'a' + 10);
            else
                return;
        }
        PutByte(static_cast<unsigned char>(byte));
    }

    void PutByte(unsigned char byte) {
        if (skip_ > 0) {
            --skip_;
            return;
        }
        const char bytes[] = {static_cast<char>(byte)};
        wchar_t character = byte;
        if (byte >= 0x80) MultiByteToWideChar(1252, 0, bytes, 1, &character, 1);
        Put(character);
    }

    void Put(wchar_t character) {
        skip_ = 0;
        if (!group_.silent) text_ += character;
    }

    static bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

    std::span<const unsigned char> rtf_;
    size_t at_ = 0;
    int skip_ = 0;
    Group group_;
    std::vector<Group> groups_;
    std::wstring text_;
};

}  // namespace

std::wstring TextOfRtf(std::span<const unsigned char> rtf) {
    std::wstring text;
    if (!GetNoteText({reinterpret_cast<const char*>(rtf.data()), rtf.size()}, &text)) return RtfReader(rtf).Read();
    std::erase(text, L'\r');
    return text;
}
