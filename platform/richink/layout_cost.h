// What it costs to lay a text out, before anybody has begun: rich edits take the square of the length of some texts,
// and a note that was written to harm or by another program's mistake would stop the program for minutes.
#pragma once

#include <string>
#include <string_view>

// Microseconds, about, of the slowest rich edit there is (Wine's), characters added one after another. The worst that
// is likely: a text may well cost less.
class LayoutCost {
public:
    // Without wrapping each paragraph is a line.
    explicit LayoutCost(bool wraps) : wraps_(wraps) {}

    // `newFormat`: whatever stands before the character may change the format.
    void Add(wchar_t unit, bool newFormat);
    void Extra(double microseconds) { cost_ += microseconds; }
    // Of all so far, as if the text ended here.
    double Microseconds() const;

private:
    void EndRun();
    void EndWord();
    void EndParagraph();

    bool wraps_;
    double cost_ = 0;
    size_t run_ = 0;   // characters in the run
    size_t runs_ = 0;  // in the word
    size_t word_ = 0;  // characters since the last blank
    int kind_ = 0;
};

// Of a rich text that the guard has found sound, before its pictures are taken out.
double LayoutCostOf(std::string_view rtf);

// What a control may spend on one text, in the same measure.
constexpr double kMostLayout = 1'500'000;

// The characters of such a rich text with CR LF line ends.
std::wstring TextOfRtf(std::string_view rtf);
