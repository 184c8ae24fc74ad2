// A vCard or iCalendar file, taken apart into its lines.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace import {

// One line, its continuations joined: group.NAME;PARAMETER=value,value:value
struct ContentLine {
    struct Parameter {
        std::string name;  // upper case; of a value that stands alone, as in TEL;HOME, it is TYPE or ENCODING
        std::vector<std::string> values;
    };

    int number = 0;    // of its first line in the file, from 1
    std::string name;  // upper case, without its group
    std::vector<Parameter> parameters;
    std::string value;  // as it stands in the file

    // The first value of a parameter, "" without one.
    std::string_view Get(std::string_view parameter) const;
    // Whether it is of that type, in upper case: TEL;TYPE=HOME
    bool HasType(std::string_view type) const;
};

// Reads the lines one after another. Takes UTF-8, with a mark or without, UTF-16 with a mark, and bytes of any other
// encoding, which the lines' parameters name. Lines end as on any system. They go on in the next one that begins with a
// blank or a tab; in quoted-printable, after an equals sign at the end; in base64, until a line that is none.
class ContentLines {
public:
    explicit ContentLines(std::string bytes);

    // The next line that is not empty; nullopt at the end. One that is no content line comes without a name.
    std::optional<ContentLine> Next();

private:
    std::string_view PeekRaw();
    std::string_view TakeRaw();
    bool AtEnd() const { return at_ >= bytes_.size(); }

    std::string bytes_;
    size_t at_ = 0;
    int number_ = 0;  // of the line that was taken last
};

std::string ToUpper(std::string_view text);
bool IsQuotedPrintable(const ContentLine& line);
bool IsBase64(const ContentLine& line);

}  // namespace import
