#include "pictures.h"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace {

struct Pixels {
    int width = 0;
    int height = 0;
    std::vector<uint32_t> argb;  // rows from the top, alpha premultiplied

    uint32_t At(int x, int y) const { return argb[static_cast<size_t>(y) * width + x]; }
};

BITMAPINFO TopDown(int width, int height) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    return info;
}

uint32_t Premultiplied(uint32_t pixel) {
    const uint32_t alpha = pixel >> 24;
    const auto part = [&](int shift) { return ((pixel >> shift & 0xFF) * alpha / 255) << shift; };
    return alpha << 24 | part(16) | part(8) | part(0);
}

Pixels Read(HBITMAP bitmap) {
    BITMAP shape{};
    GetObjectW(bitmap, sizeof(shape), &shape);
    Pixels pixels{static_cast<int>(shape.bmWidth), static_cast<int>(shape.bmHeight), {}};
    pixels.argb.resize(static_cast<size_t>(pixels.width) * pixels.height);
    BITMAPINFO info = TopDown(pixels.width, pixels.height);
    const HDC screen = GetDC(nullptr);
    const bool read = GetDIBits(screen, bitmap, 0, shape.bmHeight, pixels.argb.data(), &info, DIB_RGB_COLORS) != 0;
    ReleaseDC(nullptr, screen);
    if (!read || pixels.argb.empty()) return {};

    const auto hasAlpha = [](uint32_t pixel) { return pixel >> 24 != 0; };
    if (shape.bmBitsPixel == 32 && std::any_of(pixels.argb.begin(), pixels.argb.end(), hasAlpha)) {
        std::transform(pixels.argb.begin(), pixels.argb.end(), pixels.argb.begin(), Premultiplied);
        return pixels;
    }
    const uint32_t background = pixels.argb.front() & 0xFFFFFF;
    for (uint32_t& pixel : pixels.argb) {
        pixel &= 0xFFFFFF;
        pixel = pixel == background ? 0 : pixel | 0xFF000000;
    }
    return pixels;
}

// The image twice as large, its slanted edges in half steps: a pixel's corner takes the colour of the two neighbours
// beside it where these are alike and the others differ.
Pixels Doubled(const Pixels& image, int left, int side) {
    Pixels larger{2 * side, 2 * side, {}};
    larger.argb.resize(static_cast<size_t>(larger.width) * larger.height);
    const auto at = [&](int x, int y) {
        return image.At(left + std::clamp(x, 0, side - 1), std::clamp(y, 0, side - 1));
    };
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x) {
            const uint32_t own = at(x, y), above = at(x, y - 1), below = at(x, y + 1);
            const uint32_t before = at(x - 1, y), after = at(x + 1, y);
            const bool edge = above != below && before != after;
            uint32_t* corner = &larger.argb[static_cast<size_t>(2 * y) * larger.width + 2 * x];
            corner[0] = edge && before == above ? before : own;
            corner[1] = edge && after == above ? after : own;
            corner[larger.width] = edge && before == below ? before : own;
            corner[larger.width + 1] = edge && after == below ? after : own;
        }
    return larger;
}

// The mean of the source pixels that one target pixel covers: exact where both are the same, soft where not.
uint32_t Covered(const Pixels& image, int left, int side, int target, int x, int y) {
    // Positions in 1/target of a source pixel.
    const int x0 = x * side, x1 = x0 + side, y0 = y * side, y1 = y0 + side;
    uint64_t sum[4] = {};
    uint64_t area = 0;
    for (int sy = y0 / target; sy * target < y1; ++sy) {
        const int tall = std::min(y1, (sy + 1) * target) - std::max(y0, sy * target);
        for (int sx = x0 / target; sx * target < x1; ++sx) {
            const uint64_t weight =
                static_cast<uint64_t>(tall) * (std::min(x1, (sx + 1) * target) - std::max(x0, sx * target));
            const uint32_t pixel = image.At(left + sx, sy);
            for (int part = 0; part < 4; ++part)
                sum[part] += weight * (pixel >> part * 8 & 0xFF);
            area += weight;
        }
    }
    uint32_t mean = 0;
    for (int part = 0; part < 4; ++part)
        mean |= static_cast<uint32_t>((sum[part] + area / 2) / area) << part * 8;
    return mean;
}

// Image `index` of a strip at another size. Enlarged, it is first doubled until the target's pixels are means of
// several.
void Scale(const Pixels& strip, int index, int side, uint32_t* target, int stride) {
    Pixels larger;
    const Pixels* image = &strip;
    int left = index * strip.height;
    while (side > strip.height && image->height < 2 * side) {
        larger = Doubled(*image, left, image->height);
        image = &larger;
        left = 0;
    }
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            target[static_cast<size_t>(y) * stride + x] = Covered(*image, left, image->height, side, x, y);
}

}  // namespace

HBITMAP LoadPictureStrip(HINSTANCE module, UINT id, int side) {
    const auto bitmap =
        static_cast<HBITMAP>(LoadImageW(module, MAKEINTRESOURCEW(id), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION));
    if (!bitmap) return nullptr;
    const Pixels image = Read(bitmap);
    DeleteObject(bitmap);
    if (image.argb.empty() || image.width < image.height) return nullptr;

    const int count = image.width / image.height;
    const BITMAPINFO info = TopDown(count * side, side);
    void* bits = nullptr;
    const HBITMAP strip = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    for (int index = 0; strip && index < count; ++index)
        Scale(image, index, side, static_cast<uint32_t*>(bits) + index * side, count * side);
    return strip;
}

void DrawPicture(HDC dc, HBITMAP strip, int index, POINT at, BYTE alpha) {
    BITMAP shape{};
    if (!GetObjectW(strip, sizeof(shape), &shape)) return;
    const int side = shape.bmHeight;
    if (index < 0 || index >= shape.bmWidth / side) return;
    const HDC source = CreateCompatibleDC(dc);
    const HGDIOBJ before = SelectObject(source, strip);
    const BLENDFUNCTION blend{AC_SRC_OVER, 0, alpha, AC_SRC_ALPHA};
    AlphaBlend(dc, at.x, at.y, side, side, source, index * side, 0, side, side, blend);
    SelectObject(source, before);
    DeleteDC(source);
}
