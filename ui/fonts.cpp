#include "ui/fonts.h"

#include <px.h>

UniqueFont MakeFont(const wchar_t* face, int height, int weight) {
    const int scaled = height < 0 ? -Px(-height) : Px(height);
    return UniqueFont(CreateFontW(scaled, 0, 0, 0, weight, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                                  CLIP_DEFAULT_PRECIS, CLEARTYPE_QUALITY, DEFAULT_PITCH | FF_DONTCARE, face));
}

HFONT ControlFont() {
    static const UniqueFont font = MakeFont(L"Tahoma", -11, FW_NORMAL);
    return font.get();
}
