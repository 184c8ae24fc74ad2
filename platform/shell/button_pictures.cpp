#include "platform/shell/button_pictures.h"

#include "pictures.h"

ButtonPictures::~ButtonPictures() {
    if (strip_) DeleteObject(strip_);
}

bool ButtonPictures::Load(HINSTANCE module, UINT id, int side) {
    const HBITMAP strip = LoadPictureStrip(module, id, side);
    if (!strip) return false;
    BITMAP shape{};
    GetObjectW(strip, sizeof(shape), &shape);
    if (strip_) DeleteObject(strip_);
    strip_ = strip;
    count_ = static_cast<int>(shape.bmWidth) / side;
    side_ = side;
    return true;
}

void ButtonPictures::Draw(HDC dc, int index, POINT at, bool faint) const {
    DrawPicture(dc, strip_, index, at, faint ? 90 : 255);
}
