// Black strokes with soft edges: how much of each pixel they cover. No windows.
#pragma once

#include <win.h>

#include <cstdint>
#include <vector>

#include "platform/richink/ink_picture.h"

class InkCanvas {
public:
    explicit InkCanvas(SIZE size);

    SIZE Size() const { return size_; }
    // 0, untouched, to 255, black. The point must lie inside.
    uint8_t At(LONG x, LONG y) const { return covered_[static_cast<size_t>(y) * size_.cx + x]; }

    // A straight stroke with round ends, in pixels. Answers the pixels it may have changed.
    RECT Line(double x0, double y0, double x1, double y1, double width);
    // A stroke of a picture, `scale` pixels a twip. Beyond a length that no hand draws the rest is left out.
    void Draw(const InkPicture::Stroke& stroke, double scale);

    // Puts the part `from` of the canvas on the device context with its upper left corner at `to`.
    void Blend(HDC dc, POINT to, const RECT& from) const;

private:
    SIZE size_;
    int steps_ = 0;  // short lines drawn so far
    std::vector<uint8_t> covered_;
};
