// A long text in lines that need no wrapping: what a note is shown as whose layout would cost too much.
#pragma once

#include <functional>
#include <string>
#include <string_view>

// How many units of `piece` fill one line, at least one.
using LineMeasure = std::function<size_t(std::wstring_view piece)>;

// `text` with a CR behind each line that `measure` has filled, broken behind a blank where there is one. It ends where
// laying out the lines would cost more than `most` microseconds (layout_cost.h); *whole tells whether it did not. What
// has no shape of its own is left out.
std::wstring PlainLines(std::wstring_view text, const LineMeasure& measure, double most, bool* whole);
