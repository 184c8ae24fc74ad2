// Reads a file of any size line by line.
#pragma once

#include <cstdio>
#include <string>
#include <vector>

// Lines end with \n or \r\n, which is not part of them; the last may end with neither.
class LineReader {
public:
    // A line of more bytes is not kept: it comes as empty and too long.
    static constexpr size_t kLongestLine = 32u << 20;

    LineReader() = default;
    ~LineReader();
    LineReader(const LineReader&) = delete;
    LineReader& operator=(const LineReader&) = delete;

    // Opens a file, or for "-" the standard input. False when it can't be opened for reading (errno says why).
    bool Open(const wchar_t* path);
    // The next line; false at the end of the file, or when it can't be read further (Failed).
    bool Next(std::string* line);
    bool IsTooLong() const { return tooLong_; }
    bool Failed() const { return file_ && std::ferror(file_); }

private:
    std::FILE* file_ = nullptr;
    std::vector<char> buffer_;
    size_t at_ = 0;
    size_t end_ = 0;
    bool tooLong_ = false;
};
