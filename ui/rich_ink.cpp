#include "ui/rich_ink.h"

#include <px.h>

#include <algorithm>
#include <new>

namespace {

constexpr int kTextMargin = 4;  // logical pixels, as in the lists

struct Source {
    const BYTE* next;
    size_t left;
};

// Both callbacks answer 0 for success: anything else aborts the stream.
DWORD CALLBACK Give(DWORD_PTR cookie, LPBYTE buffer, LONG wanted, LONG* given) {
    auto& source = *reinterpret_cast<Source*>(cookie);
    const size_t count = std::min(source.left, static_cast<size_t>(wanted));
    std::copy_n(source.next, count, buffer);
    source.next += count;
    source.left -= count;
    *given = static_cast<LONG>(count);
    return 0;
}

DWORD CALLBACK Take(DWORD_PTR cookie, LPBYTE buffer, LONG offered, LONG* taken) {
    auto& sink = *reinterpret_cast<std::vector<BYTE>*>(cookie);
    try {
        sink.insert(sink.end(), buffer, buffer + offered);
    } catch (const std::bad_alloc&) {
        *taken = 0;
        return ERROR_NOT_ENOUGH_MEMORY;
    }
    *taken = offered;
    return 0;
}

struct TextSink {
    std::wstring text;
    size_t bytes = 0;
};

DWORD CALLBACK TakeText(DWORD_PTR cookie, LPBYTE buffer, LONG offered, LONG* taken) {
    auto& sink = *reinterpret_cast<TextSink*>(cookie);
    *taken = 0;
    try {
        sink.text.resize((sink.bytes + offered + 1) / sizeof(wchar_t));
    } catch (const std::bad_alloc&) {
        return ERROR_NOT_ENOUGH_MEMORY;
    }
    std::copy_n(buffer, offered, reinterpret_cast<BYTE*>(sink.text.data()) + sink.bytes);
    sink.bytes += offered;
    *taken = offered;
    return 0;
}

// The text with one character for each position: a line ends with CR alone, a picture is one character.
std::wstring TextByPosition(const Window& control) {
    constexpr UINT kUnicode = 1200;
    GETTEXTLENGTHEX length = {GTL_NUMCHARS | GTL_PRECISE, kUnicode};
    const LRESULT count = control.SendMessage(EM_GETTEXTLENGTHEX, reinterpret_cast<WPARAM>(&length));
    std::wstring text(static_cast<size_t>(std::max<LRESULT>(count, 0)) + 1, L'\0');
    GETTEXTEX get = {};
    get.cb = static_cast<DWORD>(text.size() * sizeof(wchar_t));
    get.flags = GT_DEFAULT;
    get.codepage = kUnicode;
    const LRESULT taken =
        control.SendMessage(EM_GETTEXTEX, reinterpret_cast<WPARAM>(&get), reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<size_t>(std::max<LRESULT>(taken, 0)));
    return text;
}

}  // namespace

bool RichInk::CreateIn(HWND parent, int id, DWORD style, const RECT& place) {
    if (!Control::CreateIn(parent, id, style, place)) return false;
    // Some systems count the font the control was given as an edit.
    SendMessage(EM_EMPTYUNDOBUFFER);
    SetModified(false);
    return true;
}

void RichInk::Place(const RECT& place) {
    if (EqualRect(&place, &place_)) return;  // for a long text it is work
    place_ = place;
    MoveWindow(place.left, place.top, place.right - place.left, place.bottom - place.top);
    RECT text = {};
    ::GetClientRect(GetHandle(), &text);
    InflateRect(&text, -Px(kTextMargin), -Px(kTextMargin) / 2);
    SendMessage(EM_SETRECT, 0, reinterpret_cast<LPARAM>(&text));
}

bool RichInk::StreamIn(UINT format, const std::vector<BYTE>& bytes) {
    Source source = {bytes.data(), bytes.size()};
    EDITSTREAM stream = {};
    stream.dwCookie = reinterpret_cast<DWORD_PTR>(&source);
    stream.pfnCallback = Give;
    SendMessage(EM_STREAMIN, format, reinterpret_cast<LPARAM>(&stream));
    return stream.dwError == 0;
}

std::vector<BYTE> RichInk::StreamOut(UINT format) const {
    std::vector<BYTE> bytes;
    EDITSTREAM stream = {};
    stream.dwCookie = reinterpret_cast<DWORD_PTR>(&bytes);
    stream.pfnCallback = Take;
    SendMessage(EM_STREAMOUT, format, reinterpret_cast<LPARAM>(&stream));
    if (stream.dwError != 0) bytes.clear();
    return bytes;
}

std::wstring RichInk::StreamOutText() const {
    TextSink sink;
    EDITSTREAM stream = {};
    stream.dwCookie = reinterpret_cast<DWORD_PTR>(&sink);
    stream.pfnCallback = TakeText;
    SendMessage(EM_STREAMOUT, SF_TEXT | SF_UNICODE, reinterpret_cast<LPARAM>(&stream));
    if (stream.dwError != 0) return {};
    while (!sink.text.empty() && sink.text.back() == L'\0')
        sink.text.pop_back();
    return std::move(sink.text);
}

bool RichInk::IsModified() const {
    return SendMessage(EM_GETMODIFY) != 0;
}

void RichInk::SetModified(bool modified) {
    SendMessage(EM_SETMODIFY, modified);
}

void RichInk::SetSelection(int first, int last) {
    SendMessage(EM_SETSEL, static_cast<WPARAM>(first), last);
}

void RichInk::GetSelection(int* first, int* last) const {
    DWORD begin = 0;
    DWORD end = 0;
    SendMessage(EM_GETSEL, reinterpret_cast<WPARAM>(&begin), reinterpret_cast<LPARAM>(&end));
    *first = static_cast<int>(begin);
    *last = static_cast<int>(end);
}

void RichInk::ReplaceSelection(const wchar_t* text, bool undoable) {
    SendMessage(EM_REPLACESEL, undoable, reinterpret_cast<LPARAM>(text));
}

// The control's own search knows the capitals of some alphabets only.
void RichInk::SelectFirst(const std::wstring& text, bool matchCase) {
    std::wstring wanted = text;
    std::wstring all = TextByPosition(*this);
    if (!matchCase) {
        for (std::wstring* each : {&wanted, &all})
            CharUpperBuffW(each->data(), static_cast<DWORD>(each->size()));
    }
    const size_t first = all.find(wanted);
    if (wanted.empty() || first == all.npos) return;
    SetSelection(static_cast<int>(first), static_cast<int>(first + wanted.size()));
    ScrollToCaret();
}

void RichInk::ScrollToCaret() {
    SendMessage(EM_SCROLLCARET);
}

void RichInk::SetLimit(int characters) {
    SendMessage(EM_LIMITTEXT, static_cast<WPARAM>(characters));
}

void RichInk::SetReadOnly(bool readOnly) {
    SendMessage(EM_SETREADONLY, readOnly);
}

bool RichInk::CanUndo() const {
    return SendMessage(EM_CANUNDO) != 0;
}

bool RichInk::CanRedo() const {
    return SendMessage(EM_INKCANREDO) != 0;
}

bool RichInk::CanPaste() const {
    return SendMessage(EM_CANPASTE) != 0;
}

void RichInk::Undo() {
    SendMessage(EM_UNDOEVENT);
}

void RichInk::Redo() {
    SendMessage(EM_REDOEVENT);
}

void RichInk::Cut() {
    SendMessage(WM_CUT);
}

void RichInk::Copy() {
    SendMessage(WM_COPY);
}

void RichInk::Paste() {
    SendMessage(WM_PASTE);
}

void RichInk::SetZoom(int percent) {
    SendMessage(EM_SETZOOMPERCENT, 0, percent);
}

int RichInk::GetZoom() const {
    return static_cast<int>(SendMessage(EM_GETZOOMPERCENT));
}

void RichInk::SetView(UINT view) {
    SendMessage(EM_SETVIEW, view);
}

UINT RichInk::GetView() const {
    return static_cast<UINT>(SendMessage(EM_GETVIEW));
}
