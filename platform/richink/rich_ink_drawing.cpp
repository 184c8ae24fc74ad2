// The pen in the drawing view. A stroke joins the picture it is drawn on or beside; where there is none, it becomes a
// new one, a paragraph of its own at the place of the stroke, so that ink stays where it was drawn and the text gives
// way. Each stroke is one step to undo.
#include <algorithm>
#include <cmath>

#include "platform/richink/ink_stream.h"
#include "platform/richink/rich_ink.h"
#include "platform/window_support.h"
#include "px.h"

namespace {

// How far above and below a picture a stroke still joins it, in logical pixels.
constexpr int kNearAbove = 8, kNearBelow = 24;
constexpr int kLineTwips = 220;  // of the default font
constexpr LONG kNewCharacters = 2;

}  // namespace

// Whether the message was the pen's.
bool RichInkControl::OnPen(UINT message, LPARAM lparam) {
    const bool draws = view_ == VT_DRAWINGVIEW && !IsReadOnly();
    switch (message) {
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
            if (draws) PenDown(PointOf(lparam));
            return draws;
        case WM_POINTERDOWN: {
            POINT point = PointOf(lparam);
            ScreenToClient(window_, &point);
            if (draws) PenDown(point);
            return draws;
        }
        case WM_MOUSEMOVE:
            if (live_) PenMove(PointOf(lparam));
            return draws;
        case WM_POINTERUPDATE: {
            POINT point = PointOf(lparam);
            ScreenToClient(window_, &point);
            if (live_) PenMove(point);
            return draws;
        }
        case WM_LBUTTONUP:
        case WM_POINTERUP: {
            const bool drawing = live_.has_value();
            FinishStroke();
            return drawing || draws;
        }
        // Whoever takes the mouse, resizes, turns the page, asks for the contents or types ends the stroke; it is kept.
        case WM_CAPTURECHANGED:
        case WM_SIZE:
        case WM_KEYDOWN:
        case WM_CHAR:
        case WM_VSCROLL:
        case WM_MOUSEWHEEL:
        case EM_SETVIEW:
        case EM_SETVIEWATTRIBUTES:
        case EM_SETZOOMPERCENT:
        case EM_STREAMIN:
        case EM_STREAMOUT:
        case EM_GETMODIFY:
        case EM_SETREADONLY:
        case EM_UNDO:
        case EM_UNDOEVENT:
        case WM_GETTEXT:
        case WM_GETTEXTLENGTH: FinishStroke(); return false;
    }
    return false;
}

void RichInkControl::PenDown(POINT point) {
    FinishStroke();
    RECT client{};
    GetClientRect(window_, &client);
    if (IsRectEmpty(&client)) return;
    SetFocus(window_);
    live_.emplace(SIZE{client.right, client.bottom});
    pen_.clear();
    SetCapture(window_);
    PenMove(point);
}

void RichInkControl::PenMove(POINT point) {
    const SIZE size = live_->Size();
    point = {std::clamp(point.x, 0L, size.cx - 1), std::clamp(point.y, 0L, size.cy - 1)};
    if (!pen_.empty() && pen_.back().x == point.x && pen_.back().y == point.y) return;
    const POINT from = pen_.empty() ? point : pen_.back();
    pen_.push_back(point);
    const RECT changed = live_->Line(from.x, from.y, point.x, point.y, std::max(1.0, kPenTwips * Scale()));
    InvalidateRect(window_, &changed, FALSE);
    UpdateWindow(window_);
}

void RichInkControl::FinishStroke() {
    if (!live_) return;
    live_.reset();
    if (GetCapture() == window_) ReleaseCapture();
    const std::vector<POINT> points = std::move(pen_);
    pen_.clear();
    if (!points.empty()) KeepStroke(points);
    InvalidateRect(window_, nullptr, TRUE);
}

InkPicture::Stroke RichInkControl::StrokeFrom(POINT origin, double scale, const std::vector<POINT>& points) {
    std::vector<POINT> twips;
    twips.reserve(points.size());
    for (const POINT& point : points)
        twips.push_back({std::lround((point.x - origin.x) / scale), std::lround((point.y - origin.y) / scale)});
    return SmoothStroke(twips);
}

int RichInkControl::AddPicture(POINT origin, const std::vector<POINT>& points) {
    InkPicture picture;
    AddStroke(picture, StrokeFrom(origin, Scale(), points));
    return book_.Add(std::move(picture));
}

void RichInkControl::TellChanged() {
    Base(EM_SETMODIFY, TRUE);
    SendMessageW(GetParent(window_), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(window_), EN_CHANGE),
                 reinterpret_cast<LPARAM>(window_));
}

// What the rich edit does meanwhile is told as one change, and leaves the text where it is on the screen.
template <typename Act>
void RichInkControl::AsOneChange(Act act) {
    POINT scrolled{};
    Base(EM_GETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&scrolled));
    const LRESULT mask = Base(EM_SETEVENTMASK, 0, ENM_NONE);
    act();
    Base(EM_SETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&scrolled));
    Base(EM_SETEVENTMASK, 0, mask);
}

void RichInkControl::InsertRtf(const std::string& rtf) {
    LoadInto(*BaseProcedure(), window_, SF_RTF | SFF_SELECTION, rtf);
}

void RichInkControl::KeepStroke(const std::vector<POINT>& points) {
    const POINT start = points.front();
    const std::vector<Place> places = Places();
    const auto inside = std::find_if(places.begin(), places.end(), [&](const Place& place) {
        return start.y >= place.area.top && start.y < place.area.bottom;
    });
    if (inside != places.end() && ExtendPicture(*inside, points)) return;
    for (const Place& place : places) {
        if (start.y >= place.area.top - Px(kNearAbove) && start.y < place.area.bottom + Px(kNearBelow) &&
            ExtendPicture(place, points)) {
            return;
        }
    }
    const std::wstring text = RawText();
    const auto length = static_cast<LONG>(text.size());
    // What is drawn below all text goes on with the picture that ends it.
    if (!places.empty() && places.back().at == length - 1 && start.y >= places.back().area.top &&
        ExtendPicture(places.back(), points)) {
        return;
    }
    if (limit_ - length < kNewCharacters) return TellFull();

    const POINT end = PointOfCharacter(length);
    const bool endsInEmptyLine = length == 0 || text[length - 1] == L'\r';
    if (start.y >= end.y + (endsInEmptyLine ? 0 : static_cast<LONG>(kLineTwips * Scale()))) {
        if (endsInEmptyLine) return InsertPicture(length, end, points, "", "");
        return AppendPicture(length, points);
    }
    RECT box{};
    Base(EM_GETRECT, 0, reinterpret_cast<LPARAM>(&box));
    POINTL hit{box.left + 1, start.y};
    LONG paragraph =
        std::clamp<LONG>(static_cast<LONG>(Base(EM_CHARFROMPOS, 0, reinterpret_cast<LPARAM>(&hit))), 0, length);
    while (paragraph > 0 && text[paragraph - 1] != L'\r')
        --paragraph;
    const bool empty = paragraph == length || text[paragraph] == L'\r';
    InsertPicture(paragraph, PointOfCharacter(paragraph), points, "", empty ? "" : "\\par");
}

// False when the picture is not ours to draw on, or would become too tall.
bool RichInkControl::ExtendPicture(const Place& place, const std::vector<POINT>& points) {
    const InkPicture* before = book_.Find(place.id);
    if (!before->IsInk()) return false;
    InkPicture picture = *before;
    AddStroke(picture, StrokeFrom({place.area.left, place.area.top}, place.scale, points));
    if (picture.size.cy > kTallestPicture) return false;
    const int id = book_.Add(std::move(picture));
    AsOneChange([&] {
        CHARFORMAT2W format{};
        format.cbSize = sizeof(format);
        format.dwMask = CFM_FACE | CFM_SIZE;
        format.yHeight = book_.HalfPoints(id) * 10;
        lstrcpynW(format.szFaceName, InkBook::Face(id).c_str(), LF_FACESIZE);
        Base(EM_SETSEL, place.at, place.at + 1);
        Base(EM_SETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
        Base(EM_SETSEL, place.at + 1, place.at + 1);
    });
    TellChanged();
    return true;
}

// Behind the last line, which has no point to ask for: an empty paragraph is put there and taken back to learn where
// the picture will begin.
void RichInkControl::AppendPicture(LONG at, const std::vector<POINT>& points) {
    POINT origin{};
    const LRESULT modified = Base(EM_GETMODIFY);
    AsOneChange([&] {
        Base(EM_SETSEL, at, at);
        InsertRtf("{\\rtf1{\\fonttbl{\\f0 Tahoma;}}\\f0\\fs18\\par}");
        origin = PointOfCharacter(at + 1);
        Base(EM_UNDO);
    });
    Base(EM_SETMODIFY, modified);
    InsertPicture(at, origin, points, "\\par", "");
}

void RichInkControl::InsertPicture(LONG at, POINT origin, const std::vector<POINT>& points, const char* before,
                                   const char* after) {
    const int id = AddPicture(origin, points);
    AsOneChange([&] {
        Base(EM_SETSEL, at, at);
        InsertRtf(book_.CharacterRtf(id, before, after));
    });
    TellChanged();
}

// Text directly behind a picture would be written across it, as its character has no width: it begins a line of its
// own.
bool RichInkControl::IsBehindPicture() const {
    if (book_.IsEmpty()) return false;
    CHARRANGE selection{};
    Base(EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&selection));
    return selection.cpMin > 0 && RawText({selection.cpMin - 1, selection.cpMin})[0] == kInkCharacter &&
           PictureAt(selection.cpMin - 1) != 0;
}

// Text beside a picture must not take its font, which would make lines as high as the picture.
void RichInkControl::LeaveInkFormat() {
    if (book_.IsEmpty()) return;
    CHARFORMAT2W format{};
    format.cbSize = sizeof(format);
    Base(EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
    CHARRANGE selection{};
    Base(EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&selection));
    if (selection.cpMin != selection.cpMax && (format.dwMask & CFM_FACE) && !InkBook::IsInkFace(format.szFaceName))
        return;
    if (selection.cpMin != selection.cpMax) {
        Base(WM_CLEAR);
        Base(EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
    }
    if (InkBook::IsInkFace(format.szFaceName)) SetFontOf(SCF_SELECTION);
}
