// A note whose layout would take too long is shown as plain text, to read and copy from. The control keeps its stream
// and gives it back when it is asked for its contents, so that a note is never less for having been opened; therefore
// nothing in it can be changed.
#include <algorithm>
#include <cmath>
#include <string>

#include "platform/richink/layout_cost.h"
#include "platform/richink/plain_lines.h"
#include "platform/richink/rich_ink.h"

namespace {

constexpr wchar_t kNotice[] =
    L"[Shown as plain text, to read only: as it is, this note would take too long to show. Nothing of it is lost.]\n\n";
constexpr wchar_t kGoesOn[] = L"\r[The text goes on. Exporting the entry writes all of it.]";
constexpr double kMostLines = 1'600'000;  // what laying out the lines may cost
constexpr int kSlack = 2;                 // pixels that a line may be wider than measured
constexpr LONG kNarrowest = 16;

// Measures with the control's font.
class FontMeasure {
public:
    FontMeasure(HWND window, const wchar_t* face, int height, LONG width) : window_(window), width_(width) {
        dc_ = GetDC(window);
        font_ = CreateFontW(-height, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, VARIABLE_PITCH | FF_SWISS,
                            face);
        before_ = SelectObject(dc_, font_);
    }
    ~FontMeasure() {
        SelectObject(dc_, before_);
        DeleteObject(font_);
        ReleaseDC(window_, dc_);
    }
    FontMeasure(const FontMeasure&) = delete;
    FontMeasure& operator=(const FontMeasure&) = delete;

    size_t operator()(std::wstring_view piece) const {
        int fits = 0;
        SIZE size{};
        const auto count = static_cast<int>(std::min<size_t>(piece.size(), kMostMeasured));
        if (!GetTextExtentExPointW(dc_, piece.data(), count, width_, &fits, nullptr, &size)) return piece.size();
        return static_cast<size_t>(std::max(fits, 1));
    }

private:
    static constexpr size_t kMostMeasured = 256;
    HWND window_;
    LONG width_;
    HDC dc_;
    HFONT font_;
    HGDIOBJ before_;
};

}  // namespace

void RichInkControl::LoadPlain(std::string stream, std::wstring text) {
    plain_.emplace();
    plain_->stream = std::move(stream);
    plain_->text = std::move(text);
    plain_->readOnly = IsReadOnly();
    Base(EM_SETREADONLY, TRUE);
    if (IsWindowVisible(window_)) ShowPlain();
}

// Breaks the lines for the width and the zoom there are now; nothing when they are broken for these.
void RichInkControl::ShowPlain() {
    RECT box{};
    Base(EM_GETRECT, 0, reinterpret_cast<LPARAM>(&box));
    const LONG width = std::max(box.right - box.left - kSlack, kNarrowest);
    if (plain_->width == width && plain_->zoom == zoom_) return;
    plain_->width = width;
    plain_->zoom = zoom_;
    bool whole = false;
    const FontMeasure measure(window_, kFont, std::lround(kFontTwips * Scale()), width);
    std::wstring lines = PlainLines(
        kNotice + plain_->text, [&](std::wstring_view piece) { return measure(piece); }, kMostLines, &whole);
    if (!whole) lines += kGoesOn;
    SetWrapping(false);
    Show(SF_TEXT | SF_UNICODE, {reinterpret_cast<const char*>(lines.data()), lines.size() * sizeof(wchar_t)});
}

void RichInkControl::LeavePlain() {
    if (!plain_) return;
    Base(EM_SETREADONLY, plain_->readOnly);
    plain_.reset();
}

// Whether the message would have changed the text, or is about whether it can be.
bool RichInkControl::OnPlain(UINT message, WPARAM wparam) {
    if (!plain_) return false;
    switch (message) {
        case EM_SETREADONLY: plain_->readOnly = wparam != 0; return true;
        case EM_REPLACESEL:
        case WM_CUT:
        case WM_CLEAR:
        case WM_PASTE:
        case EM_PASTESPECIAL: MessageBeep(MB_OK); return true;
        case WM_SETTEXT: Clear(); return false;
    }
    return false;
}
