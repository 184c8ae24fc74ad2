#include "ui/picture_list.h"

#include <px.h>

#include "ui/gdi_scope.h"

UniqueImageList LoadPictures(HINSTANCE instance, UINT bitmap, int width, COLORREF transparent) {
    const UniqueBitmap strip(
        static_cast<HBITMAP>(LoadImageW(instance, MAKEINTRESOURCEW(bitmap), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION)));
    BITMAP size = {};
    if (!strip || !GetObjectW(strip.get(), sizeof size, &size)) return {};
    const int count = size.bmWidth / width;
    const WindowDc screen(nullptr);
    const UniqueBitmap scaled(CreateCompatibleBitmap(screen.Dc(), count * Px(width), Px(size.bmHeight)));
    {
        const UniqueMemoryDc from(CreateCompatibleDC(screen.Dc()));
        const UniqueMemoryDc to(CreateCompatibleDC(screen.Dc()));
        const SelectedObject source(from.get(), strip.get());
        const SelectedObject target(to.get(), scaled.get());
        SetStretchBltMode(to.get(), COLORONCOLOR);  // mixed colours would not all be transparent
        StretchBlt(to.get(), 0, 0, count * Px(width), Px(size.bmHeight), from.get(), 0, 0, count * width, size.bmHeight,
                   SRCCOPY);
    }
    UniqueImageList pictures(ImageList_Create(Px(width), Px(size.bmHeight), ILC_COLOR24 | ILC_MASK, count, 0));
    ImageList_AddMasked(pictures.get(), scaled.get(), transparent);
    return pictures;
}
