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

// What it holds in the format, up to a NUL; empty when there is nothing.
template <typename Unit>
std::basic_string<Unit> FromClipboard(UINT format) {
    std::basic_string<Unit> all;
    const HANDLE data = IsClipboardFormatAvailable(format) ? GetClipboardData(format) : nullptr;
    if (!data) return all;
    if (const auto* units = static_cast<const Unit*>(GlobalLock(data))) {
        all.assign(units, GlobalSize(data) / sizeof(Unit));
        all.resize(std::min(all.size(), all.find(Unit{})));
        GlobalUnlock(data);
    }
    return all;
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
    if (!TakeClipboard(L"Nothing was copied: another program is using the clipboard. Try again in a moment."))
        return true;
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

// The clipboard opened; or false, and the user has been told `otherwise`.
bool RichInkControl::TakeClipboard(const wchar_t* otherwise) const {
    constexpr int kTries = 10;  // most programs hold it for a moment only
    constexpr DWORD kPause = 20;
    for (int i = 0; i < kTries; ++i) {
        if (OpenClipboard(window_)) return true;
        Sleep(kPause);
    }
    MessageBoxW(GetAncestor(window_, GA_ROOT), otherwise, L"Clipboard", MB_OK | MB_ICONEXCLAMATION);
    return false;
}

bool RichInkControl::OnPaste() {
    if (!CanPaste()) return true;
    if (!TakeClipboard(L"Nothing was pasted: another program is using the clipboard. Try again in a moment."))
        return true;
    const std::string ink = FromClipboard<char>(InkFormat());
    const bool hasText = IsClipboardFormatAvailable(CF_UNICODETEXT);
    const std::wstring text = FromClipboard<wchar_t>(CF_UNICODETEXT);
    CloseClipboard();
    if (static_cast<LONG>(text.size()) <= Room() && PasteInk(ink)) return true;
    if (hasText) SendMessageW(window_, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
    return true;
}

// False when there is no sound rich text in it.
bool RichInkControl::PasteInk(const std::string& clip) {
    const std::string rich = book_.TakePictures(SoundRtf(clip), false);
    if (rich.empty()) return false;
    LeaveInkFormat();
    const bool longWords = BeginLongWords(LongWordCharacters(std::string_view(rich)), rich.size());
    LoadInto(*BaseProcedure(), window_, SF_RTF | SFF_SELECTION, rich);
    if (longWords) EndLongWords();
    TellChanged();
    InvalidateRect(window_, nullptr, TRUE);
    return true;
}
