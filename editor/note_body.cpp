#include "editor/note_body.h"

#include <iterator>

#include "res/ids.h"
#include "text/date_time.h"
#include "ui/application.h"
#include "ui/resource_text.h"

namespace {

constexpr wchar_t kZoomValue[] = L"iZoom";
constexpr wchar_t kViewValue[] = L"iView";
constexpr int kDefaultZoom = 100;

int ReadOption(const wchar_t* name, int fallback) {
    return Application::Current()->ReadInt(LoadText(IDS_OPTIONS), name, fallback);
}

void WriteOption(const wchar_t* name, int value) {
    Application::Current()->WriteInt(LoadText(IDS_OPTIONS), name, value);
}

}  // namespace

bool NoteBody::CreateIn(HWND parent, int id, const RECT& place) {
    return RichInk::CreateIn(parent, id, kNoteStyle, place);
}

void NoteBody::Load(const DbJItem& body) {
    if (shown_ == &body && !IsModified()) return;
    shown_ = &body;
    const CEBLOB& blob = *body.GetBlob();
    StreamIn(SF_RTF, std::vector<BYTE>(blob.lpb, blob.lpb + blob.dwCount));
}

bool NoteBody::Store(DbJItem& body) {
    if (IsEmpty()) {
        body.SetStrValue(L"");
        body.SetBlob(nullptr);
    } else {
        std::vector<BYTE> bytes = StreamOut(SF_RTF);
        if (bytes.empty()) return false;
        const CEBLOB blob = {static_cast<DWORD>(bytes.size()), bytes.data()};
        body.SetBlob(&blob);
        body.SetStrValue(StreamOutText().c_str());
    }
    shown_ = &body;
    SetModified(false);
    return true;
}

void NoteBody::ApplySettings() {
    view_ = ReadOption(kViewValue, VT_TYPINGVIEW) == VT_DRAWINGVIEW ? VT_DRAWINGVIEW : VT_TYPINGVIEW;
    zoom_ = ReadOption(kZoomValue, kDefaultZoom);
    SetView(view_);
    ApplyZoom();
}

void NoteBody::PrepareZoom() {
    const std::wstring key = Application::Current()->GetPath() + (L"\\" + LoadText(IDS_OPTIONS));
    DWORD stored = 0;
    DWORD size = sizeof stored;
    const LSTATUS result =
        RegGetValueW(HKEY_CURRENT_USER, key.c_str(), kZoomValue, RRF_RT_REG_DWORD, nullptr, &stored, &size);
    zoom_ = result == ERROR_SUCCESS ? static_cast<int>(stored) : kDefaultZoom;
    ApplyZoom();
}

// Zooming makes the control lay the whole text out.
void NoteBody::ApplyZoom() {
    if (GetZoom() != zoom_) SetZoom(zoom_);
}

void NoteBody::ChangeZoom(int percent) {
    WriteOption(kZoomValue, percent);
    zoom_ = percent;
    SetZoom(percent);
    Invalidate();
}

void NoteBody::ChangeView(UINT view) {
    SetView(view);
    view_ = view;
    WriteOption(kViewValue, static_cast<int>(view));
    Invalidate();
}

bool NoteBody::CanRun(int command) const {
    switch (command) {
        case IDM_UNDO: return CanUndo();
        case IDM_REDO: return CanRedo();
        case IDM_PASTE: return CanPaste();
        case IDM_CUT:
        case IDM_COPY: {
            int first = 0;
            int last = 0;
            GetSelection(&first, &last);
            return first != last;
        }
        case IDM_SELECT_ALL: return !IsEmpty();
        default: return false;
    }
}

bool NoteBody::RunCommand(int command) {
    const bool can = CanRun(command);
    switch (command) {
        case IDM_UNDO:
            if (can) Undo();
            break;
        case IDM_REDO:
            if (can) Redo();
            break;
        case IDM_CUT:
            if (can) Cut();
            break;
        case IDM_COPY:
            if (can) Copy();
            break;
        case IDM_PASTE:
            if (can) Paste();
            break;
        case IDM_SELECT_ALL: SetSelection(0, -1); break;
        default: return false;
    }
    return true;
}

void NoteBody::InsertStamp(const std::wstring& stamp) {
    std::wstring text = stamp + L" - ";
    if (!IsEmpty()) {
        SetSelection(GetTextLength(), GetTextLength());
        text.insert(0, L"\r\n");
    }
    ReplaceSelection(text.c_str(), true);
    ScrollToCaret();
}

int ZoomItem(int percent) {
    for (int item = 1; item < static_cast<int>(std::size(kZoomPercents)); ++item) {
        if (kZoomPercents[item] == percent) return item;
    }
    return 0;
}

std::wstring TimeStamp() {
    wchar_t buffer[20] = {};
    GetTimeFormatW(LOCALE_USER_DEFAULT, TIME_NOSECONDS, nullptr, nullptr, buffer, static_cast<int>(std::size(buffer)));
    return buffer;
}

std::wstring DateTimeStamp() {
    DateTime now;
    now.SetNow();
    std::wstring text;
    now.DateAndTime(text);
    return text;
}
