// Text on its way into an export file: brought to the system's ANSI code page and gathered into large pieces.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

class ExportFile;

class AnsiOutput {
public:
    // `file`, opened by the caller, must outlive the object. Nothing is written before kPiece bytes have come together,
    // or Flush: each write waits for the disk.
    explicit AnsiOutput(ExportFile& file) : file_(file) {}
    AnsiOutput(const AnsiOutput&) = delete;
    AnsiOutput& operator=(const AnsiOutput&) = delete;

    // Appends text. What the code page lacks becomes what the system makes of it, a question mark as a rule.
    void Put(std::wstring_view text);
    // Appends bytes as they are.
    void PutBytes(std::string_view bytes);
    // Writes what is left.
    void Flush();

    static constexpr size_t kPiece = size_t{8} << 20;

private:
    void WriteIfLarge();

    ExportFile& file_;
    std::string bytes_;
};
