#include "list/transparent_bitmap.h"

#include <px.h>

#include "ui/gdi_scope.h"
#include "ui/unique_handle.h"

void DrawTransparent(HDC dc, HBITMAP bitmap, int x, int y, int size) {
    const UniqueMemoryDc source(CreateCompatibleDC(dc));
    if (!source || bitmap == nullptr) return;
    const SelectedObject selected(source.get(), bitmap);
    TransparentBlt(dc, x, y, Px(size), Px(size), source.get(), 0, 0, size, size, RGB(255, 255, 255));
}
