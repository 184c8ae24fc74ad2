#include "lock/pin_pad_layout.h"

#include <px.h>

#include <algorithm>

namespace {

// Logical pixels.
constexpr int kMargin = 8;
constexpr int kGap = 4;
constexpr int kHeading = 18;
constexpr int kDisplay = 22;
constexpr int kWidestKey = 96;
constexpr int kHighestKey = 64;

constexpr int kColumns = 3;
constexpr int kRows = 4;

// The size of one of `count` keys that share `room` with gaps between them.
int KeySize(int room, int count, int most) {
    return std::clamp((room - (count - 1) * Px(kGap)) / count, 1, most);
}

// Cells of the keys, from the upper left corner of the block.
class Block {
public:
    Block(POINT corner, SIZE key) : corner_(corner), key_(key) {}

    int Width() const { return Left(kColumns) - Left(0) - Px(kGap); }
    RECT Cell(int row, int column, int columns = 1) const {
        const int top = corner_.y + row * (key_.cy + Px(kGap));
        return {Left(column), top, Left(column + columns) - Px(kGap), top + static_cast<int>(key_.cy)};
    }

private:
    int Left(int column) const { return corner_.x + column * (key_.cx + Px(kGap)); }

    POINT corner_;
    SIZE key_;
};

}  // namespace

PinPadPlaces LayOutPinPad(SIZE client) {
    const int margin = Px(kMargin);
    const int gap = Px(kGap);
    const int above = Px(kHeading) + gap + Px(kDisplay) + margin;  // heading and display, with what is below them
    const int room = client.cy - 2 * margin - above;
    const SIZE key = {KeySize(client.cx - 2 * margin, kColumns, Px(kWidestKey)), KeySize(room, kRows, Px(kHighestKey))};

    const int used = kRows * key.cy + (kRows - 1) * gap;
    const int top = margin + std::max(0, room - used) / 3;
    const int width = kColumns * key.cx + (kColumns - 1) * gap;
    const int left = (client.cx - width) / 2;
    const Block block({left, top + above}, key);

    PinPadPlaces places = {};
    places.heading = {0, top, client.cx, top + Px(kHeading)};
    const int display = places.heading.bottom + gap;
    places.display = {left, display, left + block.Width(), display + Px(kDisplay)};
    for (int digit = 1; digit <= 9; ++digit)
        places.keys[digit - 1] = block.Cell((digit - 1) / kColumns, (digit - 1) % kColumns);
    places.keys[9] = block.Cell(3, 1, 2);
    places.keys[10] = block.Cell(3, 0);
    return places;
}
