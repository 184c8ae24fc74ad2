// Loading and saving the contents. The system's format is the stream's format, with ink as pictures in it.
#include <cstring>
#include <utility>

#include "note_text.h"
#include "platform/richink/ink_stream.h"
#include "platform/richink/layout_cost.h"
#include "platform/richink/rich_ink.h"
#include "platform/richink/rtf_guard.h"
#include "platform/richink/unicode_rtf.h"

namespace {

constexpr UINT kRichText = SF_RTF;
constexpr UINT kUnicodeText = SF_TEXT | SF_UNICODE;
constexpr size_t kMostSpare = 64 * 1024;

// UTF-16 bytes without the NUL that ends them, without half a unit and without NULs between.
std::string SoundText(const std::string& bytes) {
    std::string sound;
    sound.reserve(bytes.size());
    for (size_t i = 0; i + 1 < bytes.size(); i += 2) {
        if (bytes[i] || bytes[i + 1]) sound.append(bytes, i, 2);
    }
    return sound;
}

// The stream as the rich edit can take it, with the letters that a writer of before has lost. `text` gets the note text
// that the stream vouches for, if any.
std::string SoundNote(const std::string& bytes, std::wstring* text) {
    GetNoteText(bytes, text);
    return MendedRtf(SoundRtf(bytes), *text);
}

std::wstring AsText(const std::string& bytes) {
    std::wstring text(bytes.size() / sizeof(wchar_t), L'\0');
    std::memcpy(text.data(), bytes.data(), text.size() * sizeof(wchar_t));
    return text;
}

}  // namespace

template <typename Act>
void RichInkControl::Quietly(Act act) {
    const LRESULT mask = Base(EM_SETEVENTMASK, 0, ENM_NONE);
    act();
    Base(EM_EMPTYUNDOBUFFER);
    Base(EM_SETMODIFY, FALSE);
    Base(EM_SETEVENTMASK, 0, mask | ENM_CHANGE);
}

void RichInkControl::SetDefaultFont() {
    SetFontOf(SCF_DEFAULT);
    SetFontOf(SCF_ALL);
}

void RichInkControl::SetFontOf(WPARAM range) {
    CHARFORMAT2W format{};
    format.cbSize = sizeof(format);
    format.dwMask = CFM_FACE | CFM_SIZE | CFM_BOLD | CFM_CHARSET | CFM_COLOR;
    format.dwEffects = CFE_AUTOCOLOR;
    format.yHeight = kFontTwips;
    format.bCharSet = DEFAULT_CHARSET;
    format.bPitchAndFamily = VARIABLE_PITCH | FF_SWISS;
    lstrcpynW(format.szFaceName, kFont, LF_FACESIZE);
    Base(EM_SETCHARFORMAT, range, reinterpret_cast<LPARAM>(&format));
}

void RichInkControl::Clear() {
    LeavePlain();
    Quietly([&] {
        const wchar_t nothing[] = L"";
        Base(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(nothing));
        SetDefaultFont();
    });
    book_.Clear();
    SetWrapping(true);
    drawn_.clear();
    slow_.clear();
    waiting_.clear();
    blank_ = true;
}

DWORD RichInkControl::Load(UINT format, std::string bytes) {
    const bool empty = bytes.empty();
    std::wstring text;
    std::string sound = format == kRichText ? SoundNote(bytes, &text) : SoundText(bytes);
    Clear();
    if (sound.empty()) return empty || format != kRichText ? 0 : ERROR_INVALID_DATA;
    blank_ = false;
    if (format == kRichText && LayoutCostOf(sound) > kMostLayout) {
        LoadPlain(std::move(bytes), text.empty() ? TextOfRtf(sound) : std::move(text));
        return 0;
    }
    bytes = format == kRichText ? book_.TakePictures(sound, true) : std::move(sound);
    const size_t characters = format == kRichText ? LongWordCharacters(bytes) : LongWordCharacters(AsText(bytes));
    const bool longWords = BeginLongWords(characters, bytes.size());
    const DWORD error = Show(format, bytes);
    if (longWords) EndLongWords();
    return error;
}

// Replaces what the rich edit holds, from its beginning on.
DWORD RichInkControl::Show(UINT format, const std::string& bytes) {
    DWORD error = 0;
    Quietly([&] {
        error = LoadInto(*BaseProcedure(), window_, format, bytes);
        Base(EM_SETSEL, 0, 0);
        Base(EM_SCROLLCARET);
    });
    return error;
}

// Keeps the stream for later when nobody sees the control and the stream vouches for its text, as ours do; another has
// to be loaded to learn what is in it.
bool RichInkControl::LoadLater(UINT format, std::string& bytes) {
    if (format != kRichText || IsWindowVisible(window_)) return false;
    if (!GetNoteText(bytes, &waitingText_)) return false;
    if (!blank_) Clear();
    waiting_.swap(bytes);
    return true;
}

void RichInkControl::Realise() {
    if (!waiting_.empty()) Load(kRichText, std::exchange(waiting_, {}));
    if (plain_) ShowPlain();
}

// The few messages that a waiting control answers as it is; all others must find the contents in the rich edit.
bool RichInkControl::NeedsContents(UINT message) {
    switch (message) {
        case EM_STREAMIN:
        case EM_STREAMOUT:
        case EM_GETMODIFY:
        case EM_GETVIEW:
        case EM_GETZOOMPERCENT:
        case EM_GETLIMITTEXT:
        case EM_SETLIMITTEXT:
        case EM_EXLIMITTEXT:
        case WM_CREATE:
        case WM_NCCREATE:
        case WM_DESTROY:
        case WM_NCDESTROY:
        case WM_NCCALCSIZE:
        case WM_NCHITTEST:
        case WM_NCPAINT:
        case WM_SIZE:
        case WM_MOVE:
        case WM_WINDOWPOSCHANGING:
        case WM_WINDOWPOSCHANGED:
        case WM_GETDLGCODE:
        case WM_PARENTNOTIFY: return false;
    }
    return true;
}

LRESULT RichInkControl::OnStreamIn(UINT format, EDITSTREAM* stream) {
    if (!stream || !stream->pfnCallback) return ERROR_INVALID_PARAMETER;
    if (format != kRichText && format != kUnicodeText) return stream->dwError = ERROR_INVALID_PARAMETER;
    std::string bytes = std::move(spare_);
    bytes.clear();
    const DWORD read = ReadAll(*stream, &bytes);
    if (read) Clear();
    stream->dwError = read ? read : LoadLater(format, bytes) ? 0 : Load(format, std::move(bytes));
    if (bytes.capacity() <= kMostSpare) spare_ = std::move(bytes);
    return stream->dwError;
}

// The rich text, with its pictures, of all (scope 0) or of the selection (SFF_SELECTION), whose text is `text`,
// pictures included.
DWORD RichInkControl::SaveRich(UINT scope, std::wstring_view text, std::string* rich,
                               std::vector<bool>* isPicture) const {
    if (const DWORD error = SaveFrom(*BaseProcedure(), window_, kUtf8RichText | scope, rich)) return error;
    while (rich->ends_with('\0'))  // some rich edits end rich text with one
        rich->pop_back();
    *rich = AsciiRtf(std::move(*rich), text);
    if (!book_.IsEmpty()) *rich = book_.PutPictures(*rich, isPicture);
    return 0;
}

// The rich text with its pictures, and the text with CR LF line ends and without them.
DWORD RichInkControl::Contents(std::string* rich, std::wstring* text) const {
    std::string bytes;
    if (const DWORD error = SaveFrom(*BaseProcedure(), window_, kUnicodeText, &bytes)) return error;
    *text = AsText(bytes);
    std::vector<bool> isPicture;
    if (const DWORD error = SaveRich(0, *text, rich, &isPicture)) return error;
    if (!book_.IsEmpty()) *text = WithoutPictures(*text, 0, isPicture);
    return 0;
}

LRESULT RichInkControl::OnStreamOut(UINT format, EDITSTREAM* stream) {
    if (!stream || !stream->pfnCallback) return ERROR_INVALID_PARAMETER;
    if (format != kRichText && format != kUnicodeText) return stream->dwError = ERROR_INVALID_PARAMETER;
    const auto write = [&](const std::wstring& text) {
        return WriteAll(*stream, {reinterpret_cast<const char*>(text.c_str()), (text.size() + 1) * sizeof(wchar_t)});
    };
    if (format == kUnicodeText && !waiting_.empty()) return stream->dwError = write(waitingText_);
    if (!waiting_.empty()) Load(kRichText, std::exchange(waiting_, {}));
    if (plain_) {
        return stream->dwError = format == kUnicodeText ? write(plain_->text) : WriteAll(*stream, plain_->stream);
    }
    std::string bytes;
    std::wstring text;
    stream->dwError = Contents(&bytes, &text);
    if (stream->dwError) return stream->dwError;
    if (format == kUnicodeText) return stream->dwError = write(text);
    AddNoteText(&bytes, text);
    return stream->dwError = WriteAll(*stream, bytes);
}
