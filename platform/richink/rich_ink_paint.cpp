// What is drawn over the rich edit's text: pictures, the page of the drawing view, the stroke under the pen.
#include <algorithm>

#include "platform/richink/metafile_guard.h"
#include "platform/richink/rich_ink.h"
#include "px.h"

namespace {

constexpr COLORREF kRule = RGB(0xC9, 0xDB, 0xEE);
constexpr COLORREF kUnknownPicture = RGB(0x80, 0x80, 0x80);
constexpr int kRulePitch = 20;  // logical pixels at 100 percent
constexpr size_t kMostDrawn = 16;
constexpr BYTE kSelectionTint = 0x50;
constexpr DWORD kMostPlaying = 200;   // milliseconds for a picture from elsewhere
constexpr DWORD kMostPainting = 500;  // and for all of them

void Tint(HDC dc, const RECT& area) {
    const HDC memory = CreateCompatibleDC(dc);
    const HBITMAP bitmap = CreateCompatibleBitmap(dc, 1, 1);
    const HGDIOBJ before = SelectObject(memory, bitmap);
    SetPixel(memory, 0, 0, GetSysColor(COLOR_HIGHLIGHT));
    GdiAlphaBlend(dc, area.left, area.top, area.right - area.left, area.bottom - area.top, memory, 0, 0, 1, 1,
                  {AC_SRC_OVER, 0, kSelectionTint, 0});
    SelectObject(memory, before);
    DeleteObject(bitmap);
    DeleteDC(memory);
}

}  // namespace

// The rich edit paints first, and only there is anything put over it: what blends must not be put down twice.
LRESULT RichInkControl::OnPaint(WPARAM wparam, LPARAM lparam) {
    const bool page = view_ == VT_DRAWINGVIEW && (pageStyle_ & (PS_RULEDLINES | PS_GRIDLINES));
    if (!page && book_.IsEmpty() && !live_) return Base(WM_PAINT, wparam, lparam);
    const HRGN painted = CreateRectRgn(0, 0, 0, 0);
    GetUpdateRgn(window_, painted, FALSE);
    const LRESULT result = Base(WM_PAINT, wparam, lparam);
    HideCaret(window_);
    const HDC dc = GetDC(window_);
    SelectClipRgn(dc, painted);
    RECT client{};
    GetClientRect(window_, &client);
    if (page) DrawPage(dc, client);
    CHARRANGE selection{};
    Base(EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&selection));
    const ULONGLONG begun = GetTickCount64();
    for (const Place& place : Places()) {
        if (place.area.bottom <= 0 || place.area.top >= client.bottom) continue;
        if (GetTickCount64() - begun > kMostPainting) slow_.insert(place.id);
        DrawPicture(dc, place);
        if (place.at >= selection.cpMin && place.at < selection.cpMax) Tint(dc, place.area);
    }
    if (live_) live_->Blend(dc, {0, 0}, client);
    ReleaseDC(window_, dc);
    ShowCaret(window_);
    DeleteObject(painted);
    return result;
}

// A picture from elsewhere that cannot be played, or not soon, is a frame.
void RichInkControl::DrawForeign(HDC dc, const Place& place, const InkPicture& picture) {
    if (!slow_.contains(place.id)) {
        const std::string metafile = MetafileOf(picture);
        const SIZE size{place.area.right - place.area.left, place.area.bottom - place.area.top};
        if (IsPlayableMetafile(metafile, size) && PlayMetafile(dc, metafile, place.area, kMostPlaying)) return;
        slow_.insert(place.id);
    }
    const HBRUSH brush = CreateSolidBrush(kUnknownPicture);
    FrameRect(dc, &place.area, brush);
    DeleteObject(brush);
}

void RichInkControl::DrawPicture(HDC dc, const Place& place) {
    const InkPicture& picture = *book_.Find(place.id);
    if (!picture.IsInk()) return DrawForeign(dc, place, picture);
    const SIZE size{place.area.right - place.area.left, place.area.bottom - place.area.top};
    auto drawn = drawn_.find(place.id);
    if (drawn == drawn_.end() || drawn->second.scale != place.scale) {
        if (drawn_.size() >= kMostDrawn) drawn_.clear();
        drawn = drawn_.insert_or_assign(place.id, Drawn{place.scale, InkCanvas(size)}).first;
        for (const InkPicture::Stroke& stroke : picture.strokes)
            drawn->second.canvas.Draw(stroke, place.scale);
    }
    drawn->second.canvas.Blend(dc, {place.area.left, place.area.top}, {0, 0, size.cx, size.cy});
}

// Lines under the lines of text, and on below the last of them, also across tall pictures. They darken only the paper.
void RichInkControl::DrawPage(HDC dc, const RECT& client) const {
    const HPEN pen = CreatePen(PS_SOLID, 1, kRule);
    const HGDIOBJ penBefore = SelectObject(dc, pen);
    const int mixBefore = SetROP2(dc, R2_MASKPEN);
    const LONG pitch = std::max(4, MulDiv(Px(kRulePitch), static_cast<int>(zoom_), 100));
    const auto rule = [&](LONG y) {
        MoveToEx(dc, client.left, y, nullptr);
        LineTo(dc, client.right, y);
    };
    const auto lines = static_cast<LONG>(Base(EM_GETLINECOUNT));
    LONG top = 0;
    for (auto line = static_cast<LONG>(Base(EM_GETFIRSTVISIBLELINE)); line < lines && top < client.bottom; ++line) {
        top = PointOfCharacter(static_cast<LONG>(Base(EM_LINEINDEX, line))).y;
        if (line + 1 == lines) break;
        const LONG next = PointOfCharacter(static_cast<LONG>(Base(EM_LINEINDEX, line + 1))).y;
        for (LONG y = top + pitch; y < next - pitch / 2 && y < client.bottom; y += pitch)
            rule(y);
        rule(next - 1);
    }
    for (LONG y = top + pitch - 1; y < client.bottom; y += pitch)
        rule(y);
    if (pageStyle_ & PS_GRIDLINES) {
        for (LONG x = pitch; x < client.right; x += pitch) {
            MoveToEx(dc, x, client.top, nullptr);
            LineTo(dc, x, client.bottom);
        }
    }
    SetROP2(dc, mixBefore);
    SelectObject(dc, penBefore);
    DeleteObject(pen);
}
