#include "platform/richink/plain_lines.h"

#include <algorithm>

#include "platform/richink/layout_cost.h"

namespace {

constexpr size_t kLongestLine = 256;  // units; no screen shows more in one

bool HasShape(wchar_t unit) {
    return (unit >= L' ' || unit == L'\t' || unit == L'\n') && unit != 0x7F && !(unit >= 0x200B && unit <= 0x200F) &&
           !(unit >= 0x2028 && unit <= 0x202E) && !(unit >= 0x2060 && unit <= 0x206F) && unit != 0xFEFF;
}

bool IsLow(wchar_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

// CR and LF as LF, and only what has a shape.
std::wstring Shapes(std::wstring_view text) {
    std::wstring shapes;
    shapes.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        const bool lineEnd = text[i] == L'\r' || text[i] == L'\v';
        if (text[i] == L'\r' && i + 1 < text.size() && text[i + 1] == L'\n') ++i;
        if (lineEnd || HasShape(text[i])) shapes += lineEnd ? L'\n' : text[i];
    }
    return shapes;
}

}  // namespace

std::wstring PlainLines(std::wstring_view text, const LineMeasure& measure, double most, bool* whole) {
    const std::wstring shapes = Shapes(text);
    std::wstring lines;
    lines.reserve(shapes.size() + shapes.size() / 16);
    LayoutCost cost(false);
    *whole = false;
    size_t end = 0;
    for (size_t at = 0; at < shapes.size();) {
        if (end <= at) end = std::min(shapes.find(L'\n', at), shapes.size());
        const std::wstring_view piece = std::wstring_view(shapes).substr(at, std::min(end - at, kLongestLine));
        size_t count = piece.empty() ? 0 : std::clamp(measure(piece), size_t{1}, piece.size());
        if (at + count < end) {
            const size_t blank = piece.substr(0, count).find_last_of(L" \t");
            if (blank != std::wstring_view::npos) count = blank + 1;
            if (count > 1 && IsLow(shapes[at + count])) --count;
        }
        for (const wchar_t unit : piece.substr(0, count))
            cost.Add(unit, false);
        cost.Add(L'\r', false);
        if (cost.Microseconds() > most) return lines;
        lines.append(piece.substr(0, count));
        lines += L'\r';
        at += count;
        if (at < shapes.size() && shapes[at] == L'\n') ++at;
    }
    *whole = true;
    return lines;
}
