#include "export/ansi_output.h"

#include <win.h>

#include <algorithm>

#include "export/export_file.h"

namespace {

// Most text is ASCII, which all code pages have in common and which needs no asking.
// All of it is looked at in any case, so that the loop has no branch and takes several characters at a time.
bool IsAscii(std::wstring_view text) {
    unsigned bits = 0;
    for (const wchar_t c : text)
        bits |= c;
    return bits < 0x80;
}

}  // namespace

void AnsiOutput::Put(std::wstring_view text) {
    const size_t before = bytes_.size();
    if (IsAscii(text)) {
        bytes_.resize(before + text.size());
        std::transform(text.begin(), text.end(), bytes_.begin() + static_cast<std::ptrdiff_t>(before),
                       [](wchar_t c) { return static_cast<char>(c); });
    } else {
        const int length = static_cast<int>(text.size());
        const int size = WideCharToMultiByte(CP_ACP, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
        bytes_.resize(before + static_cast<size_t>(size));
        WideCharToMultiByte(CP_ACP, 0, text.data(), length, bytes_.data() + before, size, nullptr, nullptr);
    }
    WriteIfLarge();
}

void AnsiOutput::PutBytes(std::string_view bytes) {
    bytes_ += bytes;
    WriteIfLarge();
}

void AnsiOutput::Flush() {
    if (!bytes_.empty()) file_.Write(bytes_);
    bytes_.clear();
}

void AnsiOutput::WriteIfLarge() {
    if (bytes_.size() >= kPiece) Flush();
}
