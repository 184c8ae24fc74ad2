// Where the filter dialog's controls stand, on screens of several sizes.
#include <aygshell.h>
#include <px.h>

#include <vector>

#include "tests/filter/filter_screen.h"

namespace {

struct Size {
    int width;
    int height;
};

class LayoutTest : public FilterScreen, public testing::WithParamInterface<Size> {};

// The place of a control in the dialog.
RECT PlaceOf(HWND screen, HWND control) {
    RECT place;
    GetWindowRect(control, &place);
    MapWindowPoints(nullptr, screen, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

SIZE TextSize(HWND control) {
    wchar_t text[300] = L"";
    GetWindowTextW(control, text, 300);
    const HDC dc = GetDC(control);
    const HGDIOBJ old = SelectObject(dc, reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)));
    SIZE size = {};
    GetTextExtentPoint32W(dc, text, lstrlenW(text), &size);
    SelectObject(dc, old);
    ReleaseDC(control, dc);
    return size;
}

TEST_P(LayoutTest, ControlsNeitherOverlapNorClipTheirTexts) {
    Open([&] {
        RECT frame = {0, 0, Px(GetParam().width), Px(GetParam().height)};
        AdjustWindowRectEx(&frame, static_cast<DWORD>(GetWindowLongW(Screen(), GWL_STYLE)), FALSE, 0);
        SetWindowPos(Screen(), nullptr, 0, 0, frame.right - frame.left, frame.bottom - frame.top,
                     SWP_NOMOVE | SWP_NOZORDER);
        RECT client;
        GetClientRect(Screen(), &client);
        client.bottom -= SHMenuBarHeight(Screen());
        Status();
        std::vector<RECT> places;
        for (const int id : {kByRange, kByMonth, IDC_FILTER_START_LABEL, kStart, IDC_FILTER_END_LABEL, kEnd, kMonths,
                             IDC_FILTER_CATEGORIES_LABEL, kCategoriesOnly, kCategories, IDC_FILTER_STATUS}) {
            const RECT place = PlaceOf(Screen(), Item(id));
            RECT common;
            UnionRect(&common, &place, &client);
            EXPECT_TRUE(EqualRect(&common, &client)) << id << " leaves the screen";
            for (const RECT& other : places)
                EXPECT_FALSE(IntersectRect(&common, &place, &other)) << id << " overlaps";
            places.push_back(place);
            if (id == kMonths || id == kCategories || id == kStart || id == kEnd) continue;
            const SIZE text = TextSize(Item(id));
            const int box = id == kByRange || id == kByMonth || id == kCategoriesOnly ? 20 : 0;
            EXPECT_LE(text.cx + box, place.right - place.left) << id;
            EXPECT_LE(text.cy, place.bottom - place.top) << id;
        }
        for (const int id : {kMonths, kCategories}) {
            const RECT place = PlaceOf(Screen(), Item(id));
            RECT row;
            ListView_GetItemRect(Item(id), 0, &row, LVIR_BOUNDS);
            EXPECT_GE(place.bottom - place.top, 2 * (row.bottom - row.top)) << id;
        }
    });
}

INSTANTIATE_TEST_SUITE_P(Sizes, LayoutTest,
                         testing::Values(Size{240, 294}, Size{480, 614}, Size{320, 214}, Size{480, 294}));

}  // namespace
