#include "platform/richink/ink_picture.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "platform/richink/ink_metafile.h"

namespace {

constexpr double kTolerance = 6;      // twips: less than half a pixel at 100 percent
constexpr LONG kForeignTwips = 1440;  // of a picture that tells no size
constexpr LONG kWidestPicture = 30'000;

double DistanceToLine(POINT point, POINT from, POINT to) {
    const double dx = to.x - from.x, dy = to.y - from.y;
    const double length = dx * dx + dy * dy;
    double t = length > 0 ? ((point.x - from.x) * dx + (point.y - from.y) * dy) / length : 0;
    t = std::clamp(t, 0.0, 1.0);
    return std::hypot(from.x + t * dx - point.x, from.y + t * dy - point.y);
}

// The points without those that lie on the way between their neighbours. A pile of ranges instead of recursion: a long
// stroke has thousands of points.
std::vector<POINT> Simplified(const std::vector<POINT>& points) {
    std::vector<bool> kept(points.size());
    kept.front() = kept.back() = true;
    std::vector<std::pair<size_t, size_t>> ranges{{0, points.size() - 1}};
    while (!ranges.empty()) {
        const auto [first, last] = ranges.back();
        ranges.pop_back();
        size_t farthest = first;
        double distance = kTolerance;
        for (size_t i = first + 1; i < last; ++i) {
            const double here = DistanceToLine(points[i], points[first], points[last]);
            if (here > distance) {
                distance = here;
                farthest = i;
            }
        }
        if (farthest == first) continue;
        kept[farthest] = true;
        ranges.emplace_back(first, farthest);
        ranges.emplace_back(farthest, last);
    }
    std::vector<POINT> rest;
    for (size_t i = 0; i < points.size(); ++i) {
        if (kept[i] && (rest.empty() || rest.back().x != points[i].x || rest.back().y != points[i].y))
            rest.push_back(points[i]);
    }
    return rest;
}

// The number behind \word in the group.
LONG NumberOf(std::string_view group, std::string_view word) {
    for (size_t at = group.find(word); at != std::string_view::npos; at = group.find(word, at + 1)) {
        const size_t digits = at + word.size();
        if (digits < group.size() && group[digits] >= '0' && group[digits] <= '9')
            return std::atol(std::string(group.substr(digits, 9)).c_str());
    }
    return 0;
}

int HexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

// The data behind the words of the group, when they name a metafile.
std::string MetafileIn(std::string_view group) {
    if (group.find("\\emfblip") == std::string_view::npos) return {};
    std::string bytes;
    int high = -1;
    int depth = 0;
    for (size_t i = 0; i < group.size();) {
        if (group[i] == '\\') {
            for (++i; i < group.size() && (std::isalnum(static_cast<unsigned char>(group[i])) || group[i] == '-');)
                ++i;
            if (i < group.size() && group[i] == ' ') ++i;
            continue;
        }
        const char c = group[i++];
        if (c == '{') ++depth;
        if (c == '}') --depth;
        const int digit = depth == 1 ? HexDigit(c) : -1;
        if (digit < 0) continue;
        if (high < 0) {
            high = digit;
        } else {
            bytes += static_cast<char>(high << 4 | digit);
            high = -1;
        }
    }
    return bytes;
}

}  // namespace

InkPicture::Stroke SmoothStroke(const std::vector<POINT>& points) {
    if (points.empty()) return {};
    const std::vector<POINT> way = Simplified(points);
    if (way.size() == 1) return InkPicture::Stroke(4, way[0]);
    InkPicture::Stroke stroke{way[0]};
    // Each curve leaves a point in the direction from the one before to the one after it, so that the curves meet
    // without a corner; how far it keeps to it depends on its own length, so that it never overshoots.
    const auto tangent = [&](size_t i, double length) {
        const POINT before = way[i == 0 ? 0 : i - 1], after = way[std::min(i + 1, way.size() - 1)];
        const double dx = after.x - before.x, dy = after.y - before.y;
        const double whole = std::hypot(dx, dy);
        const double part = whole > 0 ? length / 3 / whole : 0;
        return std::pair(dx * part, dy * part);
    };
    for (size_t i = 0; i + 1 < way.size(); ++i) {
        const double length = std::hypot(way[i + 1].x - way[i].x, way[i + 1].y - way[i].y);
        const auto [outX, outY] = tangent(i, length);
        const auto [inX, inY] = tangent(i + 1, length);
        stroke.push_back({way[i].x + std::lround(outX), way[i].y + std::lround(outY)});
        stroke.push_back({way[i + 1].x - std::lround(inX), way[i + 1].y - std::lround(inY)});
        stroke.push_back(way[i + 1]);
    }
    return stroke;
}

void AddStroke(InkPicture& picture, InkPicture::Stroke stroke) {
    if (stroke.empty()) return;
    picture.strokes.push_back(std::move(stroke));
    constexpr LONG kHalfPen = kPenTwips / 2;
    POINT least{kHalfPen, kHalfPen};
    for (const POINT& point : picture.strokes.back()) {
        least.x = std::min(least.x, point.x);
        least.y = std::min(least.y, point.y);
    }
    const LONG right = kHalfPen - least.x, down = kHalfPen - least.y;
    picture.size.cx += right;
    picture.size.cy += down;
    for (InkPicture::Stroke& each : picture.strokes) {
        for (POINT& point : each) {
            point.x += right;
            point.y += down;
        }
    }
    for (const POINT& point : picture.strokes.back()) {
        picture.size.cx = std::max(picture.size.cx, point.x + kPenTwips);
        picture.size.cy = std::max(picture.size.cy, point.y + kPenTwips);
    }
}

std::string PictureGroup(const InkPicture& picture) {
    if (!picture.IsInk()) return picture.foreign;
    const std::string bytes = WriteInkMetafile(picture);
    const auto number = [](const char* word, LONG value) { return word + std::to_string(value); };
    std::string group = "{\\pict\\emfblip" + number("\\picw", MulDiv(picture.size.cx, 2540, 1440)) +
                        number("\\pich", MulDiv(picture.size.cy, 2540, 1440)) + number("\\picwgoal", picture.size.cx) +
                        number("\\pichgoal", picture.size.cy) + "\r\n";
    group.reserve(group.size() + bytes.size() * 2 + 1);
    for (const char each : bytes) {
        for (const int digit : {each >> 4 & 15, each & 15})
            group += "0123456789abcdef"[digit];
    }
    return group + "}";
}

InkPicture ReadPictureGroup(std::string_view group) {
    if (const std::string metafile = MetafileIn(group); !metafile.empty()) {
        if (auto ink = ReadInkMetafile(metafile)) return *std::move(ink);
    }
    InkPicture picture;
    picture.foreign = group;
    const LONG width = NumberOf(group, "\\picwgoal"), height = NumberOf(group, "\\pichgoal");
    picture.size = {std::clamp(width ? width : kForeignTwips, kPenTwips, kWidestPicture),
                    std::clamp(height ? height : kForeignTwips, kPenTwips, kTallestPicture)};
    return picture;
}

std::string MetafileOf(const InkPicture& picture) {
    return picture.IsInk() ? WriteInkMetafile(picture) : MetafileIn(picture.foreign);
}
