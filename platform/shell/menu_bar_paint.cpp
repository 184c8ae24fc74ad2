// The look of the menu bar: flat and light, a line along its top, soft marks under the stylus.
#include "aygshell.h"
#include "platform/shell/menu_bar.h"
#include "px.h"

namespace {

constexpr COLORREF kBack = RGB(0xF3, 0xF4, 0xF6);
constexpr COLORREF kLine = RGB(0xC4, 0xC9, 0xD1);
constexpr COLORREF kHover = RGB(0xDF, 0xE8, 0xF4);
constexpr COLORREF kPressed = RGB(0xC3, 0xD6, 0xEE);
constexpr COLORREF kChecked = RGB(0xD3, 0xE1, 0xF2);
constexpr COLORREF kEdge = RGB(0x8F, 0xAF, 0xD6);
constexpr COLORREF kText = RGB(0x1E, 0x24, 0x2C);
constexpr COLORREF kFaintText = RGB(0x9A, 0xA0, 0xA8);

// A small triangle that points upwards, where the popup opens.
void DrawArrow(HDC dc, const RECT& area, COLORREF colour) {
    const int half = Px(3);
    const int x = (area.left + area.right) / 2;
    const int y = (area.top + area.bottom - half) / 2;
    const HBRUSH brush = CreateSolidBrush(colour);
    for (int row = 0; row <= half; ++row) {
        const RECT line{x - row, y + row, x + row + 1, y + row + 1};
        FillRect(dc, &line, brush);
    }
    DeleteObject(brush);
}

}  // namespace

void MenuBar::FillColour(HDC dc, const RECT& area, COLORREF colour) {
    const HBRUSH brush = CreateSolidBrush(colour);
    FillRect(dc, &area, brush);
    DeleteObject(brush);
}

int MenuBar::TextWidth(const std::wstring& text) const {
    const HDC dc = GetDC(frame_);
    const HGDIOBJ before = SelectObject(dc, font_);
    SIZE size{};
    GetTextExtentPoint32W(dc, text.c_str(), static_cast<int>(text.size()), &size);
    SelectObject(dc, before);
    ReleaseDC(frame_, dc);
    return size.cx;
}

void MenuBar::DrawFrame(HDC dc) const {
    RECT area;
    GetClientRect(frame_, &area);
    FillColour(dc, area, kBack);
    area.bottom = area.top + 1;
    FillColour(dc, area, kLine);
}

LRESULT CALLBACK MenuBar::BarProcedure(HWND bar, UINT message, WPARAM wparam, LPARAM lparam, UINT_PTR,
                                       DWORD_PTR object) {
    const bool isMouse = message >= WM_MOUSEFIRST && message <= WM_MOUSELAST;
    if (isMouse && !reinterpret_cast<const MenuBar*>(object)->CanAct()) return 0;
    switch (message) {
        case WM_ERASEBKGND: {
            RECT area;
            GetClientRect(bar, &area);
            FillColour(reinterpret_cast<HDC>(wparam), area, kBack);
            return TRUE;
        }
        case WM_NCDESTROY: RemoveWindowSubclass(bar, BarProcedure, 1); break;
    }
    return DefSubclassProc(bar, message, wparam, lparam);
}

LRESULT MenuBar::OnCustomDraw(NMTBCUSTOMDRAW* draw) {
    switch (draw->nmcd.dwDrawStage) {
        case CDDS_PREPAINT: return CDRF_NOTIFYITEMDRAW | CDRF_NOTIFYPOSTPAINT;
        case CDDS_POSTPAINT: DrawSeparators(draw->nmcd.hdc, draw->nmcd.hdr.hwndFrom); return CDRF_DODEFAULT;
        case CDDS_ITEMPREPAINT: DrawButton(*draw); return CDRF_SKIPDEFAULT;
    }
    return CDRF_DODEFAULT;
}

// The toolbar draws its separators by itself, and over the whole height.
void MenuBar::DrawSeparators(HDC dc, HWND bar) const {
    if (bar != toolbar_) return;
    for (size_t i = 0; i < items_.size(); ++i) {
        RECT area{};
        if (!items_[i].separator || !SendMessageW(bar, TB_GETITEMRECT, i, reinterpret_cast<LPARAM>(&area))) continue;
        FillColour(dc, area, kBack);
        const LONG middle = (area.left + area.right) / 2;
        FillColour(dc, {middle, area.top + Px(5), middle + 1, area.bottom - Px(5)}, kLine);
    }
}

// A keyboard: its case, two rows of keys and a space bar.
void MenuBar::DrawKeyboard(HDC dc, const RECT& area, COLORREF colour) const {
    const int thick = Px(1);
    const SIZE size{15 * thick, 11 * thick};
    const LONG left = (area.left + area.right - size.cx) / 2;
    const LONG top = (area.top + area.bottom - size.cy) / 2;
    const auto fill = [&](int x, int y, int width, int height) {
        FillColour(dc, {left + x * thick, top + y * thick, left + (x + width) * thick, top + (y + height) * thick},
                   colour);
    };
    fill(0, 0, 15, 1);
    fill(0, 10, 15, 1);
    fill(0, 0, 1, 11);
    fill(14, 0, 1, 11);
    for (int x = 2; x <= 12; x += 2) {
        fill(x, 2, 1, 1);
        fill(x, 4, 1, 1);
        fill(x, 6, 1, 1);
    }
    fill(4, 8, 7, 1);
}

void MenuBar::DrawButton(const NMTBCUSTOMDRAW& draw) {
    const HDC dc = draw.nmcd.hdc;
    const HWND bar = draw.nmcd.hdr.hwndFrom;
    const UINT command = static_cast<UINT>(draw.nmcd.dwItemSpec);
    const UINT state = draw.nmcd.uItemState;
    const bool enabled = (SendMessageW(bar, TB_GETSTATE, command, 0) & TBSTATE_ENABLED) != 0;
    const auto marks = [&](const Mark& mark) { return mark.bar == bar && mark.command == command; };
    const bool pressed = (state & CDIS_SELECTED) || marks(open_);
    const bool hot = enabled && ((state & CDIS_HOT) || marks(mark_));
    const bool checked = (state & CDIS_CHECKED) != 0;

    FillColour(dc, draw.nmcd.rc, kBack);
    RECT face = draw.nmcd.rc;
    InflateRect(&face, -1, -Px(2));
    if (pressed || hot || checked) {
        FillColour(dc, face, checked || hot || pressed ? kEdge : kBack);
        RECT inside = face;
        InflateRect(&inside, -1, -1);
        FillColour(dc, inside, pressed ? kPressed : checked ? kChecked : kHover);
    }

    const Item* item = bar == toolbar_ ? Find(command) : nullptr;
    if (item && item->image >= 0) {
        const int side = pictures_.Side();
        const POINT at{(face.left + face.right - side) / 2, (face.top + face.bottom - side) / 2};
        pictures_.Draw(dc, item->image, at, !enabled);
        return;
    }
    const COLORREF ink = enabled ? kText : kFaintText;
    if (bar == panel_) return DrawKeyboard(dc, face, ink);
    RECT textArea = draw.nmcd.rc;
    if (item && IsTwoPart(command)) {
        const RECT arrow = ArrowPart(face);
        DrawArrow(dc, arrow, ink);
        const RECT divider{arrow.left, face.top + Px(3), arrow.left + 1, face.bottom - Px(3)};
        FillColour(dc, divider, hot || pressed ? kEdge : kLine);
        textArea.right = arrow.left + 1;
    }
    const std::wstring text = TextOf(bar, command);
    const HGDIOBJ before = SelectObject(dc, bar == done_ ? boldFont_ : font_);
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, ink);
    DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &textArea,
              DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
    SelectObject(dc, before);
}
