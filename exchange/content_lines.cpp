#include "exchange/content_lines.h"

#include <algorithm>

#include "exchange/text.h"

namespace import {
namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

// Whether a line can be a part of base64 that goes on without a blank before it.
bool LooksLikeBase64(std::string_view line) {
    return !line.empty() && std::all_of(line.begin(), line.end(), [](unsigned char c) {
        return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '+' || c == '/' ||
               c == '=';
    });
}

bool IsName(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), [](unsigned char c) {
        return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '-' || c == '_' ||
               c == '.';
    });
}

// Where the next of these characters stands outside of quotes; npos for nowhere.
size_t FindUnquoted(std::string_view text, std::string_view wanted, size_t start = 0) {
    bool quoted = false;
    for (size_t i = start; i < text.size(); ++i) {
        if (text[i] == '"') quoted = !quoted;
        if (!quoted && wanted.find(text[i]) != wanted.npos) return i;
    }
    return text.npos;
}

std::string Unquoted(std::string_view text) {
    std::string plain(text);
    std::erase(plain, '"');
    return plain;
}

ContentLine::Parameter ParseParameter(std::string_view text) {
    const size_t equals = FindUnquoted(text, "=");
    if (equals == text.npos) {
        std::string value = ToUpper(Unquoted(text));
        const bool isEncoding = value == "QUOTED-PRINTABLE" || value == "BASE64" || value == "8BIT" || value == "7BIT";
        return {isEncoding ? "ENCODING" : "TYPE", {std::move(value)}};
    }
    ContentLine::Parameter parameter{ToUpper(text.substr(0, equals)), {}};
    for (size_t begin = equals + 1; begin <= text.size();) {
        const size_t end = std::min(FindUnquoted(text, ",", begin), text.size());
        std::string value = Unquoted(text.substr(begin, end - begin));
        // Some write TYPE="home,work": quoted, it is a list all the same.
        if (parameter.name == "TYPE") {
            value = ToUpper(value);
            for (size_t from = 0; from <= value.size();) {
                const size_t to = std::min(value.find(',', from), value.size());
                parameter.values.push_back(value.substr(from, to - from));
                from = to + 1;
            }
        } else {
            parameter.values.push_back(std::move(value));
        }
        begin = end + 1;
    }
    return parameter;
}

// Parameters and name, from what stands before the colon. False when there is no name.
bool ParseHead(std::string_view head, ContentLine* line) {
    size_t end = std::min(FindUnquoted(head, ";"), head.size());
    std::string_view name = head.substr(0, end);
    while (!name.empty() && IsBlank(name.back()))
        name.remove_suffix(1);
    if (!IsName(name)) return false;
    if (const size_t dot = name.rfind('.'); dot != name.npos) name.remove_prefix(dot + 1);
    line->name = ToUpper(name);
    while (end < head.size()) {
        const size_t begin = end + 1;
        end = std::min(FindUnquoted(head, ";", begin), head.size());
        if (end > begin) line->parameters.push_back(ParseParameter(head.substr(begin, end - begin)));
    }
    return !line->name.empty();
}

}  // namespace

std::string ToUpper(std::string_view text) {
    std::string upper(text);
    for (char& c : upper)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    return upper;
}

std::string_view ContentLine::Get(std::string_view parameter) const {
    for (const auto& candidate : parameters)
        if (candidate.name == parameter && !candidate.values.empty()) return candidate.values[0];
    return {};
}

bool ContentLine::HasType(std::string_view type) const {
    return std::any_of(parameters.begin(), parameters.end(), [&](const auto& parameter) {
        return parameter.name == "TYPE" &&
               std::find(parameter.values.begin(), parameter.values.end(), type) != parameter.values.end();
    });
}

bool IsQuotedPrintable(const ContentLine& line) {
    return ToUpper(line.Get("ENCODING")) == "QUOTED-PRINTABLE";
}

bool IsBase64(const ContentLine& line) {
    const std::string encoding = ToUpper(line.Get("ENCODING"));
    return encoding == "BASE64" || encoding == "B";
}

ContentLines::ContentLines(std::string bytes) : bytes_(std::move(bytes)) {
    if (bytes_.starts_with("\xEF\xBB\xBF")) {
        bytes_.erase(0, 3);
    } else if (bytes_.starts_with("\xFF\xFE") || bytes_.starts_with("\xFE\xFF")) {
        bytes_ = Utf8FromUtf16(bytes_);
    }
}

std::string_view ContentLines::PeekRaw() {
    const size_t end = std::min(bytes_.find_first_of("\r\n", at_), bytes_.size());
    return std::string_view(bytes_).substr(at_, end - at_);
}

std::string_view ContentLines::TakeRaw() {
    const std::string_view line = PeekRaw();
    at_ += line.size();
    if (bytes_.compare(at_, 2, "\r\n") == 0) ++at_;
    ++at_;
    ++number_;
    return line;
}

std::optional<ContentLine> ContentLines::Next() {
    std::string text;
    ContentLine line;
    while (text.empty()) {
        if (AtEnd()) return std::nullopt;
        text = TakeRaw();
        line.number = number_;
        if (text.find_first_not_of(" \t") == text.npos) text.clear();
    }
    const auto unfold = [&] {
        while (!AtEnd() && !PeekRaw().empty() && IsBlank(PeekRaw()[0]))
            text += TakeRaw().substr(1);
    };
    unfold();
    const size_t colon = FindUnquoted(text, ":");
    if (colon == text.npos || !ParseHead(std::string_view(text).substr(0, colon), &line)) {
        line.name.clear();
        line.value = text;
        return line;
    }
    if (IsQuotedPrintable(line)) {
        while (text.ends_with('=') && !AtEnd()) {
            text.pop_back();
            text += TakeRaw();
        }
    } else if (IsBase64(line)) {
        while (!AtEnd() && LooksLikeBase64(PeekRaw()))
            text += TakeRaw();
    }
    line.value = text.substr(colon + 1);
    return line;
}

}  // namespace import
