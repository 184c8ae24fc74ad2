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

std::vector<RichInkControl::Place> RichInkControl::Places() const {
    std::vector<Place> places;
    if (book_.IsEmpty()) return places;
    const std::wstring text = RawText();
    for (size_t at = text.find(kInkCharacter); at != std::wstring::npos; at = text.find(kInkCharacter, at + 1)) {
        Place place;
        place.at = static_cast<LONG>(at);
        place.id = PictureAt(place.at);
        if (!place.id) continue;
        const POINT corner = PointOfCharacter(place.at);
        const SIZE size = book_.Find(place.id)->size;
        place.area = {corner.x, corner.y, corner.x + static_cast<LONG>(size.cx * Scale() + 1),
                      corner.y + static_cast<LONG>(size.cy * Scale() + 1)};
        places.push_back(place);
    }
    return places;
}

// Takes the characters that stand for pictures out of the control's text.
void RichInkControl::RemoveInkCharacters(std::wstring& text, bool lineEndsOfTwo) const {
    if (book_.IsEmpty()) return;
    std::wstring rest;
    rest.reserve(text.size());
    LONG at = 0;
    for (size_t i = 0; i < text.size(); ++i, ++at) {
        if (text[i] == kInkCharacter && PictureAt(at)) continue;
        rest += text[i];
        if (lineEndsOfTwo && text[i] == L'\r' && i + 1 < text.size() && text[i + 1] == L'\n') rest += text[++i];
    }
    text = std::move(rest);
}
