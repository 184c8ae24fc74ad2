// The text limit, and the keys behind which the rich edit acts without a message. The system's rich edit drops what
// does not fit without a word to anybody, or does not look at its limit at all; here what fits goes in, and the parent
// is told of the rest.
#include <string>

#include "platform/richink/rich_ink.h"

namespace {

// How many units of `text` fill `room` characters, a line end counting as one, as it does in the control.
size_t UnitsThatFit(const std::wstring& text, LONG room) {
    size_t at = 0;
    for (; at < text.size() && room > 0; ++at, --room) {
        if (text[at] == L'\r' && at + 1 < text.size() && text[at + 1] == L'\n') ++at;
    }
    if (at > 0 && at < text.size() && IS_HIGH_SURROGATE(text[at - 1])) --at;
    return at;
}

bool IsDown(int key) {
    return GetKeyState(key) < 0;
}

}  // namespace

bool RichInkControl::IsReadOnly() const {
    return (GetWindowLongW(window_, GWL_STYLE) & ES_READONLY) != 0 || (Base(EM_GETOPTIONS) & ECO_READONLY) != 0;
}

// Characters that may replace the selection; not above 0 when the text is at its limit or past it.
LONG RichInkControl::Room() const {
    GETTEXTLENGTHEX how{GTL_NUMCHARS | GTL_PRECISE, 1200};
    const auto length = static_cast<LONG>(Base(EM_GETTEXTLENGTHEX, reinterpret_cast<WPARAM>(&how), 0));
    CHARRANGE selection{};
    Base(EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&selection));
    return limit_ - length + (selection.cpMax - selection.cpMin);
}

void RichInkControl::TellFull() {
    SendMessageW(GetParent(window_), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(window_), EN_MAXTEXT),
                 reinterpret_cast<LPARAM>(window_));
}

bool RichInkControl::OnChar(wchar_t c) {
    if (c == L'\r' && skipReturn_) {
        skipReturn_ = false;
        return true;
    }
    if (IS_LOW_SURROGATE(c) && skipSurrogate_) {
        skipSurrogate_ = false;
        return true;
    }
    const bool writes = c >= L' ' || c == L'\t' || c == L'\r';
    if (!writes || c == 0x7F || IsReadOnly()) return false;
    const bool newLine = c != L'\r' && !IS_LOW_SURROGATE(c) && IsBehindPicture();
    if (Room() >= (IS_HIGH_SURROGATE(c) ? 2 : 1) + (newLine ? 1 : 0)) {
        LeaveInkFormat();
        if (newLine) Base(EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"\r"));
        return false;
    }
    skipSurrogate_ = IS_HIGH_SURROGATE(c);
    TellFull();
    return true;
}

bool RichInkControl::OnKeyDown(WPARAM key) {
    skipReturn_ = false;
    const bool control = IsDown(VK_CONTROL) && !IsDown(VK_MENU);
    if (control && (key == 'Z' || key == 'Y')) {
        SendMessageW(window_, key == 'Z' ? EM_UNDO : EM_REDO, 0, 0);
        return true;
    }
    if ((control && key == 'V') || (key == VK_INSERT && IsDown(VK_SHIFT))) {
        // The rich edit would paste without a WM_PASTE.
        SendMessageW(window_, WM_PASTE, 0, 0);
        return true;
    }
    if (control && (key == 'C' || key == 'X' || key == VK_INSERT)) {
        SendMessageW(window_, key == 'X' ? WM_CUT : WM_COPY, 0, 0);
        return true;
    }
    if (key == VK_RETURN && !control && !IsReadOnly()) {
        if (Room() >= 1) {
            LeaveInkFormat();
            return false;
        }
        skipReturn_ = true;
        TellFull();
        return true;
    }
    return false;
}

bool RichInkControl::OnReplace(bool undoable, const wchar_t* text) {
    if (!text) return false;
    const bool longWords = BeginLongWords(LongWordCharacters(std::wstring_view(text)), 0);
    const bool done = ReplaceWithin(undoable, text);
    if (!longWords) return done;
    if (!done) Base(EM_REPLACESEL, undoable, reinterpret_cast<LPARAM>(text));
    EndLongWords();
    return true;
}

// Puts in what fits and says so; false, with nothing done, when all fits as it is.
bool RichInkControl::ReplaceWithin(bool undoable, const wchar_t* text) {
    std::wstring whole = text;
    const bool newLine = !whole.empty() && whole[0] != L'\r' && whole[0] != L'\n' && IsBehindPicture();
    if (newLine) whole.insert(0, L"\r\n");
    const LONG room = Room();
    const size_t units = UnitsThatFit(whole, room);
    if (!whole.empty()) LeaveInkFormat();
    if (units == whole.size()) {
        if (newLine) Base(EM_REPLACESEL, undoable, reinterpret_cast<LPARAM>(whole.c_str()));
        return newLine;
    }
    whole.resize(units);
    if (!whole.empty()) Base(EM_REPLACESEL, undoable, reinterpret_cast<LPARAM>(whole.c_str()));
    TellFull();
    return true;
}
