#include "ui/fonts.h"

#include <px.h>

#include <algorithm>

#include "ui/gdi_scope.h"

UniqueFont MakeFont(const wchar_t* face, int height, int weight) {
    const int scaled = height < 0 ? -Px(-height) : Px(height);
    return UniqueFont(CreateFontW(scaled, 0, 0, 0, weight, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                                  CLIP_DEFAULT_PRECIS, CLEARTYPE_QUALITY, DEFAULT_PITCH | FF_DONTCARE, face));
}

UniqueFont MakeNarrowFont(HDC dc, HFONT font, const std::wstring& text, int room) {
    const auto fits = [&] {
        SIZE size = {};
        GetTextExtentPoint32W(dc, text.c_str(), static_cast<int>(text.size()), &size);
        return size.cx <= room;
    };
    const SelectedObject selected(dc, font);
    if (room <= 0 || fits()) return {};
    TEXTMETRICW metrics = {};
    GetTextMetricsW(dc, &metrics);
    LOGFONTW like = {};
    GetObjectW(font, sizeof like, &like);
    UniqueFont narrow;
    const LONG narrowest = std::max(metrics.tmAveCharWidth / 2, 1L);
    for (like.lfWidth = metrics.tmAveCharWidth - 1; like.lfWidth >= narrowest; --like.lfWidth) {
        narrow.reset(CreateFontIndirectW(&like));
        const SelectedObject tried(dc, narrow.get());
        if (fits()) break;
    }
    return narrow;
}

HFONT ControlFont() {
    static const UniqueFont font = MakeFont(L"Tahoma", -11, FW_NORMAL);
    return font.get();
}
