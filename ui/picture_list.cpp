#include "ui/picture_list.h"

#include <pictures.h>
#include <px.h>

namespace {

// An image list multiplies by the alpha itself.
void TakeAlphaOut(HBITMAP strip) {
    DIBSECTION section = {};
    if (!GetObjectW(strip, sizeof section, &section)) return;
    auto* byte = static_cast<BYTE*>(section.dsBm.bmBits);
    BYTE* const end = byte + static_cast<size_t>(section.dsBm.bmWidthBytes) * section.dsBm.bmHeight;
    for (; byte < end; byte += 4)
        for (int part = 0; part < 3 && byte[3] != 0; ++part)
            byte[part] = static_cast<BYTE>((byte[part] * 255 + byte[3] / 2) / byte[3]);
}

}  // namespace

UniqueImageList LoadPictures(HINSTANCE instance, UINT bitmap, int side) {
    const UniqueBitmap strip(LoadPictureStrip(instance, bitmap, Px(side)));
    BITMAP size = {};
    if (!strip || !GetObjectW(strip.get(), sizeof size, &size)) return {};
    TakeAlphaOut(strip.get());
    UniqueImageList pictures(ImageList_Create(Px(side), Px(side), ILC_COLOR32, size.bmWidth / Px(side), 0));
    ImageList_Add(pictures.get(), strip.get(), nullptr);
    return pictures;
}
