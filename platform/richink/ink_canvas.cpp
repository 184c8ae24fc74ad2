#include "platform/richink/ink_canvas.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int kMostSteps = 4'096;           // of a curve as high as the highest picture
constexpr int kMostStepsOfAll = 1'000'000;  // more than any hand draws

}  // namespace

InkCanvas::InkCanvas(SIZE size)
    : size_{std::max(size.cx, 0L), std::max(size.cy, 0L)}, covered_(static_cast<size_t>(size_.cx) * size_.cy) {}

RECT InkCanvas::Line(double x0, double y0, double x1, double y1, double width) {
    const double reach = width / 2 + 1;
    const RECT area = {std::max(0L, std::lround(std::floor(std::min(x0, x1) - reach))),
                       std::max(0L, std::lround(std::floor(std::min(y0, y1) - reach))),
                       std::min(size_.cx, std::lround(std::ceil(std::max(x0, x1) + reach)) + 1),
                       std::min(size_.cy, std::lround(std::ceil(std::max(y0, y1) + reach)) + 1)};
    if (area.left >= area.right || area.top >= area.bottom) return {};
    const double dx = x1 - x0, dy = y1 - y0;
    const double length = dx * dx + dy * dy;
    for (LONG y = area.top; y < area.bottom; ++y) {
        for (LONG x = area.left; x < area.right; ++x) {
            const double px = x + 0.5 - x0, py = y + 0.5 - y0;  // the middle of the pixel
            const double t = length > 0 ? std::clamp((px * dx + py * dy) / length, 0.0, 1.0) : 0;
            const double distance = std::hypot(px - t * dx, py - t * dy);
            const double covered = std::clamp(width / 2 + 0.5 - distance, 0.0, 1.0);
            uint8_t& pixel = covered_[static_cast<size_t>(y) * size_.cx + x];
            pixel = std::max(pixel, static_cast<uint8_t>(std::lround(covered * 255)));
        }
    }
    return area;
}

void InkCanvas::Draw(const InkPicture::Stroke& stroke, double scale) {
    const double width = std::max(1.0, kPenTwips * scale);
    for (size_t i = 0; i + 3 < stroke.size(); i += 3) {
        const POINT* p = &stroke[i];
        const auto apart = [&](int from, int to) { return std::hypot(p[to].x - p[from].x, p[to].y - p[from].y); };
        const double length = (apart(0, 1) + apart(1, 2) + apart(2, 3)) * scale;
        const int steps = std::clamp(static_cast<int>(length / 2) + 1, 1, kMostSteps);
        if ((steps_ += steps) > kMostStepsOfAll) return;
        double fromX = p[0].x, fromY = p[0].y;
        for (int step = 1; step <= steps; ++step) {
            const double t = static_cast<double>(step) / steps, s = 1 - t;
            const double a = s * s * s, b = 3 * s * s * t, c = 3 * s * t * t, d = t * t * t;
            const double x = a * p[0].x + b * p[1].x + c * p[2].x + d * p[3].x;
            const double y = a * p[0].y + b * p[1].y + c * p[2].y + d * p[3].y;
            Line(fromX * scale, fromY * scale, x * scale, y * scale, width);
            fromX = x;
            fromY = y;
        }
    }
}

void InkCanvas::Blend(HDC dc, POINT to, const RECT& from) const {
    RECT part{};
    const RECT whole{0, 0, size_.cx, size_.cy};
    if (!IntersectRect(&part, &from, &whole)) return;
    const LONG width = part.right - part.left, height = part.bottom - part.top;
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    const HBITMAP bitmap = CreateDIBSection(dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (!bitmap) return;
    auto* pixel = static_cast<uint32_t*>(bits);
    for (LONG y = part.top; y < part.bottom; ++y) {
        for (LONG x = part.left; x < part.right; ++x)
            *pixel++ = uint32_t{At(x, y)} << 24;  // black is 0 however much of it there is
    }
    const HDC memory = CreateCompatibleDC(dc);
    const HGDIOBJ before = SelectObject(memory, bitmap);
    const BLENDFUNCTION how{AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};
    GdiAlphaBlend(dc, to.x + part.left - from.left, to.y + part.top - from.top, width, height, memory, 0, 0, width,
                  height, how);
    SelectObject(memory, before);
    DeleteDC(memory);
    DeleteObject(bitmap);
}
