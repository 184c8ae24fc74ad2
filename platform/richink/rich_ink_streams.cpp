// Loading and saving the contents. The system's format is the stream's format, with ink as pictures in it.
#include <cstring>

#include "platform/richink/ink_stream.h"
#include "platform/richink/rich_ink.h"
#include "platform/richink/rtf_guard.h"

namespace {

constexpr UINT kRichText = SF_RTF;
constexpr UINT kUnicodeText = SF_TEXT | SF_UNICODE;
constexpr LONG kFontTwips = 180;  // 9 points
constexpr wchar_t kFont[] = L"Tahoma";

// UTF-16 bytes without the NUL that ends them, without half a unit and without NULs between.
std::string SoundText(const std::string& bytes) {
    std::string sound;
    sound.reserve(bytes.size());
    for (size_t i = 0; i + 1 < bytes.size(); i += 2) {
        if (bytes[i] || bytes[i + 1]) sound.append(bytes, i, 2);
    }
    return sound;
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
    Quietly([&] {
        const wchar_t nothing[] = L"";
        Base(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(nothing));
        SetDefaultFont();
    });
    book_.Clear();
    drawn_.clear();
}

DWORD RichInkControl::Load(UINT format, std::string bytes) {
    const bool empty = bytes.empty();
    bytes = format == kRichText ? SoundRtf(bytes) : SoundText(bytes);
    Clear();
    if (bytes.empty()) return empty || format != kRichText ? 0 : ERROR_INVALID_DATA;
    if (format == kRichText) bytes = book_.TakePictures(bytes, true);
    DWORD error = 0;
    Quietly([&] {
        error = LoadInto(*BaseProcedure(), window_, format, bytes);
        Base(EM_SETSEL, 0, 0);
        Base(EM_SCROLLCARET);
    });
    return error;
}

LRESULT RichInkControl::OnStreamIn(UINT format, EDITSTREAM* stream) {
    if (!stream || !stream->pfnCallback) return ERROR_INVALID_PARAMETER;
    if (format != kRichText && format != kUnicodeText) return stream->dwError = ERROR_INVALID_PARAMETER;
    std::string bytes;
    const DWORD read = ReadAll(*stream, &bytes);
    if (read) Clear();
    stream->dwError = read ? read : Load(format, std::move(bytes));
    return stream->dwError;
}

LRESULT RichInkControl::OnStreamOut(UINT format, EDITSTREAM* stream) const {
    if (!stream || !stream->pfnCallback) return ERROR_INVALID_PARAMETER;
    if (format != kRichText && format != kUnicodeText) return stream->dwError = ERROR_INVALID_PARAMETER;
    std::string bytes;
    stream->dwError = SaveFrom(*BaseProcedure(), window_, format, &bytes);
    if (format == kRichText) {
        while (bytes.ends_with('\0'))  // some rich edits end rich text with one
            bytes.pop_back();
        if (!book_.IsEmpty()) bytes = book_.PutPictures(bytes);
    } else if (!stream->dwError) {
        std::wstring text(bytes.size() / sizeof(wchar_t), L'\0');
        std::memcpy(text.data(), bytes.data(), text.size() * sizeof(wchar_t));
        RemoveInkCharacters(text, true);
        bytes.assign(reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t));
        bytes.append(sizeof(wchar_t), '\0');
    }
    if (!stream->dwError) stream->dwError = WriteAll(*stream, bytes);
    return stream->dwError;
}
