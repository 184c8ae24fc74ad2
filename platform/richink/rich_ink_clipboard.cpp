// Copying and pasting. Between notes goes the rich text with its ink, in a format of our own; from other programs
// comes plain text only, so that no picture or object gets in that the control cannot draw.
#include <algorithm>

#include "platform/richink/ink_stream.h"
#include "platform/richink/rich_ink.h"
#include "platform/richink/rtf_guard.h"

namespace {

UINT InkFormat() {
    static const UINT format = RegisterClipboardFormatW(L"Rich Ink");
    return format;
}

UINT RichTextFormat() {
    static const UINT format = RegisterClipboardFormatW(L"Rich Text Format");
    return format;
}

void Put(UINT format, const void* bytes, size_t count) {
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, count);
    if (!memory) return;
    CopyMemory(GlobalLock(memory), bytes, count);
    GlobalUnlock(memory);
    if (!SetClipboardData(format, memory)) GlobalFree(memory);
}

}  // namespace

// The system's own copy would go through a code page. Whether the selection has been dealt with.
bool RichInkControl::OnCopy(bool cut) {
    CHARRANGE selection{};
    Base(EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&selection));
    // The end of the last paragraph is in a selection of all, but would become a line end of its own where it is
    // pasted.
    selection.cpMax = std::min(selection.cpMax, static_cast<LONG>(RawText().size()));
    if (selection.cpMin >= selection.cpMax) return true;
    Base(EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&selection));
    const std::wstring raw = RawText(selection);
    std::string rich;
    std::vector<bool> isPicture;
    if (SaveRich(SFF_SELECTION, raw, &rich, &isPicture)) return true;
    std::wstring text;
    for (const wchar_t c : WithoutPictures(raw, selection.cpMin, isPicture)) {
        text += c;
        if (c == L'\r') text += L'\n';
    }
    if (!OpenClipboard(window_)) return true;
    EmptyClipboard();
    Put(InkFormat(), rich.c_str(), rich.size() + 1);
    Put(RichTextFormat(), rich.c_str(), rich.size() + 1);
    if (!text.empty()) Put(CF_UNICODETEXT, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
    CloseClipboard();
    if (cut && !IsReadOnly()) Base(WM_CLEAR);
    return true;
}

bool RichInkControl::CanPaste() const {
    return !IsReadOnly() && (IsClipboardFormatAvailable(CF_UNICODETEXT) || IsClipboardFormatAvailable(InkFormat()));
}

// False when there is no ink on the clipboard, or more text than fits.
bool RichInkControl::PasteInk() {
    if (!IsClipboardFormatAvailable(InkFormat()) || !OpenClipboard(window_)) return false;
    std::string rich;
    if (const HANDLE data = GetClipboardData(InkFormat())) {
        if (const auto* bytes = static_cast<const char*>(GlobalLock(data))) {
            rich.assign(bytes, strnlen(bytes, GlobalSize(data)));
            GlobalUnlock(data);
        }
    }
    size_t units = 0;
    if (const HANDLE data = IsClipboardFormatAvailable(CF_UNICODETEXT) ? GetClipboardData(CF_UNICODETEXT) : nullptr)
        units = GlobalSize(data) / sizeof(wchar_t);
    CloseClipboard();
    if (static_cast<LONG>(units) > Room()) return false;
    rich = book_.TakePictures(SoundRtf(rich), false);
    if (rich.empty()) return false;
    LeaveInkFormat();
    const bool longWords = BeginLongWords(LongWordCharacters(std::string_view(rich)), rich.size());
    LoadInto(*BaseProcedure(), window_, SF_RTF | SFF_SELECTION, rich);
    if (longWords) EndLongWords();
    TellChanged();
    InvalidateRect(window_, nullptr, TRUE);
    return true;
}
