// The look of the input panel: light keys on the grey of the menu bar, drawn whole so that nothing flickers.
#include <algorithm>
#include <initializer_list>

#include "platform/shell/input_panel.h"
#include "px.h"

namespace {

constexpr COLORREF kBack = RGB(0xDD, 0xE1, 0xE7);
constexpr COLORREF kLine = RGB(0xC4, 0xC9, 0xD1);
constexpr COLORREF kLetter = RGB(0xFF, 0xFF, 0xFF);
constexpr COLORREF kOther = RGB(0xEE, 0xF0, 0xF4);  // keys that type no character
constexpr COLORREF kPressed = RGB(0xC3, 0xD6, 0xEE);
constexpr COLORREF kEdge = RGB(0xB2, 0xB9, 0xC4);
constexpr COLORREF kPressedEdge = RGB(0x8F, 0xAF, 0xD6);
constexpr COLORREF kText = RGB(0x1E, 0x24, 0x2C);

void FillColour(HDC dc, const RECT& area, COLORREF colour) {
    const HBRUSH brush = CreateSolidBrush(colour);
    FillRect(dc, &area, brush);
    DeleteObject(brush);
}

// Lines between points of a grid of 12 x 12 in the middle of a key.
void Draw(HDC dc, const RECT& key, std::initializer_list<POINT> points) {
    const int side = std::min(key.right - key.left, key.bottom - key.top) * 3 / 4;
    const LONG left = (key.left + key.right - side) / 2;
    const LONG top = (key.top + key.bottom - side) / 2;
    const HGDIOBJ pen = SelectObject(dc, CreatePen(PS_SOLID, Px(1), kText));
    bool first = true;
    for (const POINT& point : points) {
        const int x = left + MulDiv(point.x, side, 12);
        const int y = top + MulDiv(point.y, side, 12);
        first ? MoveToEx(dc, x, y, nullptr) : LineTo(dc, x, y);
        first = false;
    }
    DeleteObject(SelectObject(dc, pen));
}

// The picture of a key that has no character to show.
void DrawSign(HDC dc, PanelKeyKind kind, const RECT& key) {
    switch (kind) {
        case PanelKeyKind::kBackspace: return Draw(dc, key, {{14, 6}, {-2, 6}, {2, 2}, {-2, 6}, {2, 10}, {-3, 5}});
        case PanelKeyKind::kTab:
            Draw(dc, key, {{0, 6}, {9, 6}, {6, 3}, {9, 6}, {6, 9}, {10, 5}});
            return Draw(dc, key, {{11, 2}, {11, 11}});
        case PanelKeyKind::kEnter: return Draw(dc, key, {{13, 2}, {13, 7}, {-2, 7}, {2, 3}, {-2, 7}, {2, 11}, {-3, 6}});
        case PanelKeyKind::kShift:
            return Draw(dc, key, {{6, 1}, {1, 6}, {4, 6}, {4, 11}, {8, 11}, {8, 6}, {11, 6}, {6, 1}});
        case PanelKeyKind::kLeft: return Draw(dc, key, {{8, 2}, {4, 6}, {9, 11}});
        case PanelKeyKind::kRight: return Draw(dc, key, {{4, 2}, {8, 6}, {3, 11}});
        case PanelKeyKind::kPage:
        case PanelKeyKind::kCharacter: return;
    }
}

}  // namespace

void InputPanel::DrawKey(HDC dc, const PanelKey& key, bool pressed) const {
    const bool isShift = key.kind == PanelKeyKind::kShift;
    const bool lit = pressed || (isShift && shift_ != Shift::kOff) ||
                     (key.kind == PanelKeyKind::kPage && page_ == PanelPage::kAccents);
    const int gap = Px(1);
    const RECT face{key.place.left + gap, key.place.top + gap, key.place.right, key.place.bottom};
    FillColour(dc, face, lit ? kPressedEdge : kEdge);
    RECT inside = face;
    InflateRect(&inside, -1, -1);
    FillColour(dc, inside, lit ? kPressed : key.plain ? kLetter : kOther);

    if (isShift && shift_ == Shift::kLocked) {
        FillColour(dc, {inside.left + Px(3), inside.bottom - Px(2), inside.right - Px(3), inside.bottom}, kText);
    }
    const bool isPage = key.kind == PanelKeyKind::kPage;
    if (!key.plain && !isPage) return DrawSign(dc, key.kind, face);
    const wchar_t character = shift_ == Shift::kOff ? key.plain : key.shifted;
    const wchar_t* text = isPage ? L"\u00E1\u00FC" : &character;
    const HGDIOBJ before = SelectObject(dc, isPage ? smallFont_ : font_);
    RECT area = face;
    DrawTextW(dc, text, isPage ? 2 : 1, &area, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_NOCLIP);
    SelectObject(dc, before);
}

void InputPanel::Paint() const {
    PAINTSTRUCT paint;
    const HDC dc = BeginPaint(window_, &paint);
    RECT client;
    GetClientRect(window_, &client);
    const HDC memory = CreateCompatibleDC(dc);
    const HBITMAP bitmap = CreateCompatibleBitmap(dc, client.right, client.bottom);
    const HGDIOBJ bitmapBefore = SelectObject(memory, bitmap);
    SetBkMode(memory, TRANSPARENT);
    SetTextColor(memory, kText);

    FillColour(memory, client, kBack);
    FillColour(memory, {0, 0, client.right, 1}, kLine);
    for (size_t i = 0; i < keys_.size(); ++i)
        DrawKey(memory, keys_[i], static_cast<int>(i) == pressed_);

    BitBlt(dc, 0, 0, client.right, client.bottom, memory, 0, 0, SRCCOPY);
    SelectObject(memory, bitmapBefore);
    DeleteObject(bitmap);
    DeleteDC(memory);
    EndPaint(window_, &paint);
}
