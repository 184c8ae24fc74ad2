#include "list/detail_layout.h"

#include <algorithm>

namespace {

// Logical pixels.
constexpr int kLeft = 2;
constexpr int kTop = 2;
constexpr int kLineHeight = 16;
constexpr int kLineStep = 17;       // from one line to the next
constexpr int kHeightPerLine = 19;  // what a line adds to the header's height
constexpr int kFixedLines = 3;
constexpr int kIconWidth = 12;
constexpr int kPriorityFromRight = 28;
constexpr int kSensitivityFromRight = 15;
constexpr int kDateMargin = 31;  // what the lines leave free of the header's width
constexpr int kLineMargin = 7;
constexpr int kSubjectMargin = 9;
constexpr int kColumnGap = 4;  // from the width of the type to the duration
constexpr int kLabelWidth = 60;
constexpr int kValueLeft = 62;

constexpr size_t kMeasuredCharacters = 240;
constexpr int kCutBeforeLast = 6;

RECT Place(int left, int top, int width, int height) {
    return {left, top, left + std::max(width, 0), top + height};
}

}  // namespace

DetailLayout LayOutDetail(int width, const std::array<bool, kDetailOptions>& shown, int (*scale)(int)) {
    const int left = scale(kLeft);
    const int line = scale(kLineHeight);
    DetailLayout layout;

    int y = kTop;
    layout.date = Place(left, scale(y), width - scale(kDateMargin), line);
    layout.priority = Place(width - scale(kPriorityFromRight), scale(y), scale(kIconWidth), line);
    layout.sensitivity = Place(width - scale(kSensitivityFromRight), scale(y), scale(kIconWidth), line);

    y += kLineStep;
    layout.subject = Place(left, scale(y), width - scale(kLineMargin), line);
    layout.subjectRoom = std::max(width - scale(kSubjectMargin), 0);

    y += kLineStep;
    const int half = (width - scale(kLineMargin)) / 2 - scale(1);
    layout.type = Place(left, scale(y), half, line);
    layout.duration = Place(std::max(half, 0) + scale(kColumnGap), scale(y), half, line);

    int lines = kFixedLines;
    for (size_t option = 0; option < kDetailOptions; ++option) {
        if (!shown[option]) continue;
        y += kLineStep;
        ++lines;
        layout.options[option].label = Place(left, scale(y + 1), scale(kLabelWidth), line);
        layout.options[option].value =
            Place(scale(kValueLeft), scale(y), width - scale(kLineMargin) - scale(kValueLeft), line);
    }
    layout.height = scale(lines * kHeightPerLine);
    return layout;
}

std::wstring FitSubject(const std::wstring& subject, int width, const FitMeasure& measure) {
    const size_t measured = std::min(subject.size(), kMeasuredCharacters);
    const int fitting = measure(subject.c_str(), static_cast<int>(measured), width);
    if (fitting >= static_cast<int>(subject.size())) return subject;
    size_t keep = static_cast<size_t>(std::max(fitting - kCutBeforeLast, 0));
    if (keep > 0 && IS_HIGH_SURROGATE(subject[keep - 1]) && IS_LOW_SURROGATE(subject[keep])) --keep;
    return subject.substr(0, keep) + L"...";
}
