// Where the pictures are in the text and on the screen.
#include <algorithm>

#include "platform/richink/rich_ink.h"
#include "platform/shell/screen_geometry.h"

namespace {

constexpr double kTwipsAnInch = 1440;

std::wstring FaceAt(ITextDocument* document, LONG at) {
    std::wstring face;
    ITextRange* range = nullptr;
    if (!document || FAILED(document->Range(at, at + 1, &range)) || !range) return face;
    ITextFont* font = nullptr;
    if (SUCCEEDED(range->GetFont(&font)) && font) {
        BSTR name = nullptr;
        if (SUCCEEDED(font->GetName(&name)) && name) face = name;
        SysFreeString(name);
        font->Release();
    }
    range->Release();
    return face;
}

}  // namespace

// The document must go before the rich edit does.
void RichInkControl::Release() {
    if (document_) document_->Release();
    document_ = nullptr;
}

std::wstring RichInkControl::RawText() const {
    GETTEXTLENGTHEX length{GTL_NUMCHARS | GTL_PRECISE, 1200};
    const auto count =
        static_cast<size_t>(std::max<LRESULT>(0, Base(EM_GETTEXTLENGTHEX, reinterpret_cast<WPARAM>(&length), 0)));
    std::wstring text(count + 1, L'\0');
    GETTEXTEX how{};
    how.cb = static_cast<DWORD>(text.size() * sizeof(wchar_t));
    how.codepage = 1200;
    const LRESULT got = Base(EM_GETTEXTEX, reinterpret_cast<WPARAM>(&how), reinterpret_cast<LPARAM>(text.data()));
    text.resize(std::min(count, static_cast<size_t>(std::max<LRESULT>(0, got))));
    return text;
}

std::wstring RichInkControl::RawText(CHARRANGE range) const {
    std::wstring text(static_cast<size_t>(std::max(0L, range.cpMax - range.cpMin)) + 1, L'\0');
    TEXTRANGEW wanted{range, text.data()};
    const LRESULT got = Base(EM_GETTEXTRANGE, 0, reinterpret_cast<LPARAM>(&wanted));
    text.resize(std::min(text.size() - 1, static_cast<size_t>(std::max<LRESULT>(0, got))));
    return text;
}

// Whole lines, and perhaps one above.
CHARRANGE RichInkControl::VisibleText() const {
    RECT client{};
    GetClientRect(window_, &client);
    const auto line = static_cast<LONG>(Base(EM_GETFIRSTVISIBLELINE));
    POINTL corner{client.right, client.bottom};
    const LRESULT below = Base(EM_CHARFROMPOS, 0, reinterpret_cast<LPARAM>(&corner));
    const LRESULT next = Base(EM_LINEINDEX, Base(EM_EXLINEFROMCHAR, 0, below) + 1);
    GETTEXTLENGTHEX how{GTL_NUMCHARS | GTL_PRECISE, 1200};
    const LRESULT end = next >= 0 ? next : Base(EM_GETTEXTLENGTHEX, reinterpret_cast<WPARAM>(&how), 0);
    return {static_cast<LONG>(Base(EM_LINEINDEX, std::max(0L, line - 1))), static_cast<LONG>(end)};
}

int RichInkControl::PictureAt(LONG at) const {
    return book_.IdOfFace(FaceAt(document_, at));
}

POINT RichInkControl::PointOfCharacter(LONG at) const {
    POINTL point{};
    Base(EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&point), at);
    return {point.x, point.y};
}

double RichInkControl::Scale() const {
    return ScreenDpi() * (zoom_ / 100.0) / kTwipsAnInch;
}

// A line cannot be scrolled sideways: a picture wider than the window is shown as wide as the window, at the top of the
// height it would have. A stroke may reach a little past the edge.
double RichInkControl::ScaleOf(const InkPicture& picture, LONG room) const {
    const double scale = Scale();
    if (room <= 0 || picture.size.cx * scale <= room + 3 * kPenTwips * scale) return scale;
    return static_cast<double>(room) / picture.size.cx;
}

std::vector<RichInkControl::Place> RichInkControl::Places() const {
    std::vector<Place> places;
    if (book_.IsEmpty()) return places;
    RECT client{};
    GetClientRect(window_, &client);
    const CHARRANGE visible = VisibleText();
    const std::wstring text = RawText(visible);
    for (size_t at = text.find(kInkCharacter); at != std::wstring::npos; at = text.find(kInkCharacter, at + 1)) {
        Place place;
        place.at = visible.cpMin + static_cast<LONG>(at);
        place.id = PictureAt(place.at);
        if (!place.id) continue;
        const POINT corner = PointOfCharacter(place.at);
        const InkPicture& picture = *book_.Find(place.id);
        place.scale = ScaleOf(picture, client.right - corner.x);
        place.area = {corner.x, corner.y, corner.x + static_cast<LONG>(picture.size.cx * place.scale + 1),
                      corner.y + static_cast<LONG>(picture.size.cy * place.scale + 1)};
        places.push_back(place);
    }
    return places;
}

// `text` begins at the character `first` and may have CR LF for the one character of a line end. To ask the rich edit
// for the font of each character costs the square of their number, so `isPicture` is what its rich text has told.
std::wstring RichInkControl::WithoutPictures(const std::wstring& text, LONG first,
                                             const std::vector<bool>& isPicture) const {
    const bool told = std::count(text.begin(), text.end(), kInkCharacter) == static_cast<ptrdiff_t>(isPicture.size());
    std::wstring rest;
    rest.reserve(text.size());
    size_t number = 0;
    LONG at = first;
    for (size_t i = 0; i < text.size(); ++i, ++at) {
        if (text[i] == kInkCharacter && (told ? isPicture[number++] : PictureAt(at) != 0)) continue;
        rest += text[i];
        if (text[i] == L'\r' && i + 1 < text.size() && text[i + 1] == L'\n') rest += text[++i];
    }
    return rest;
}
