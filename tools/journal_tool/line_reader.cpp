#include "tools/journal_tool/line_reader.h"

#include <fcntl.h>
#include <io.h>

#include <cstring>
#include <cwchar>

LineReader::~LineReader() {
    if (file_ && file_ != stdin) std::fclose(file_);
}

bool LineReader::Open(const wchar_t* path) {
    if (std::wcscmp(path, L"-") == 0) {
        _setmode(_fileno(stdin), _O_BINARY);
        file_ = stdin;
    } else {
        file_ = _wfopen(path, L"rb");
    }
    buffer_.resize(1 << 20);
    return file_ != nullptr;
}

bool LineReader::Next(std::string* line) {
    line->clear();
    tooLong_ = false;
    bool any = false;
    for (;;) {
        if (at_ == end_) {
            end_ = std::fread(buffer_.data(), 1, buffer_.size(), file_);
            at_ = 0;
            if (!end_) break;
        }
        any = true;
        const char* begin = buffer_.data() + at_;
        const char* newline = static_cast<const char*>(std::memchr(begin, '\n', end_ - at_));
        const size_t length = newline ? static_cast<size_t>(newline - begin) : end_ - at_;
        tooLong_ = tooLong_ || line->size() + length > kLongestLine;
        if (tooLong_)
            line->clear();
        else
            line->append(begin, length);
        at_ += length + (newline ? 1 : 0);
        if (newline) break;
    }
    if (!line->empty() && line->back() == '\r') line->pop_back();
    return any && !Failed();
}
