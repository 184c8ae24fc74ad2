#include "platform/richink/rich_ink.h"

#include <algorithm>
#include <new>
#include <numeric>

#include "platform/shell/screen_geometry.h"
#include "platform/window_support.h"

namespace {

constexpr UINT kSmallestZoom = 75;
constexpr UINT kLargestZoom = 300;
constexpr LONG kNoLimit = 0x7FFFFFFE;
constexpr UINT kLastSharedMessage = WM_USER + 100;  // up to here the numbers mean the same in both worlds
constexpr COLORREF kDrawingPaper = RGB(0xFF, 0xFC, 0xE6);

// Of ITextDocument; not every import library has it.
constexpr GUID kTextDocument = {0x8CC497C0, 0xA1DF, 0x11CE, {0x80, 0x98, 0x00, 0xAA, 0x00, 0x47, 0xBE, 0x5D}};

WNDPROC base_procedure = nullptr;
int control_pointer = 0;  // of the window's extra bytes

}  // namespace

WNDPROC* RichInkControl::BaseProcedure() {
    return &base_procedure;
}

LRESULT RichInkControl::Base(UINT message, WPARAM wparam, LPARAM lparam) const {
    return CallWindowProcW(base_procedure, window_, message, wparam, lparam);
}

LRESULT CALLBACK RichInkControl::Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    auto* control = reinterpret_cast<RichInkControl*>(GetWindowLongPtrW(window, control_pointer));
    if (message == WM_NCCREATE && !control) {
        control = new (std::nothrow) RichInkControl(window);
        if (!control) return FALSE;
        SetWindowLongPtrW(window, control_pointer, reinterpret_cast<LONG_PTR>(control));
        // Several lines, and Return for itself: always. And a scroll bar that does not come and go, as for each change
        // of it some systems wrap the whole text anew while they load it.
        constexpr LONG kAlways = ES_MULTILINE | ES_WANTRETURN | ES_DISABLENOSCROLL;
        reinterpret_cast<CREATESTRUCTW*>(lparam)->style |= kAlways;
        SetWindowLongW(window, GWL_STYLE, GetWindowLongW(window, GWL_STYLE) | kAlways);
    }
    if (message == WM_DESTROY && control) control->Release();
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(window, control_pointer, 0);
        delete control;
        control = nullptr;
    }
    if (!control) return CallWindowProcW(base_procedure, window, message, wparam, lparam);
    try {
        return control->OnMessage(message, wparam, lparam);
    } catch (const std::bad_alloc&) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return 0;
    }
}

LRESULT RichInkControl::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
    if (NeedsContents(message)) {
        Realise();
        blank_ = false;
    }
    if (OnPlain(message, wparam) || OnPen(message, lparam)) return 0;
    switch (message) {
        case WM_CREATE: {
            const LRESULT result = Base(message, wparam, lparam);
            if (result != -1) OnCreated();
            return result;
        }
        case WM_CHAR:
            if (OnChar(static_cast<wchar_t>(wparam))) return 0;
            break;
        case WM_KEYDOWN:
            if (OnKeyDown(wparam)) return 0;
            break;
        case WM_PAINT: return OnPaint(wparam, lparam);
        case WM_SETCURSOR:
            if (LOWORD(lparam) != HTCLIENT || view_ != VT_DRAWINGVIEW || IsReadOnly()) break;
            SetCursor(LoadCursorW(nullptr, IDC_CROSS));
            return TRUE;
        case WM_COPY:
        case WM_CUT:
            if (OnCopy(message == WM_CUT)) return 0;
            break;
        case EM_CANPASTE: return CanPaste();
        case EM_PASTESPECIAL:
        case WM_PASTE:
            if (OnPaste()) return 0;
            break;
        case EM_REPLACESEL:
            if (OnReplace(wparam != 0, reinterpret_cast<const wchar_t*>(lparam))) return 0;
            break;
        case EM_SETLIMITTEXT:
            limit_ = wparam ? static_cast<LONG>(std::min<WPARAM>(wparam, kNoLimit)) : 32'767;
            return 0;
        case EM_EXLIMITTEXT:
            limit_ = lparam > 0 ? static_cast<LONG>(std::min<LPARAM>(lparam, kNoLimit)) : 32'767;
            return 0;
        case EM_GETLIMITTEXT: return limit_;
        case WM_UNDO:
        case EM_UNDO: return Step(EM_UNDO);
        case EM_REDO: return Step(EM_REDO);
        case EM_SETEVENTMASK: return Base(message, wparam, lparam | ENM_CHANGE);
        case EM_STREAMIN: return OnStreamIn(static_cast<UINT>(wparam), reinterpret_cast<EDITSTREAM*>(lparam));
        case EM_STREAMOUT: return OnStreamOut(static_cast<UINT>(wparam), reinterpret_cast<EDITSTREAM*>(lparam));
    }
    if (message > kLastSharedMessage && message < WM_APP) return OnInkMessage(message, wparam, lparam);
    return Base(message, wparam, lparam);
}

LRESULT RichInkControl::OnInkMessage(UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
        case EM_UNDOEVENT: return Step(EM_UNDO);
        case EM_REDOEVENT: return Step(EM_REDO);
        case EM_INKCANREDO: return Base(EM_CANREDO);
        case EM_GETVIEW: return view_;
        case EM_SETVIEW: SetView(static_cast<UINT>(wparam)); return 0;
        case EM_GETZOOMPERCENT: return zoom_;
        case EM_SETZOOMPERCENT: SetZoom(static_cast<UINT>(std::clamp<LPARAM>(lparam, 0, kLargestZoom))); return 0;
        case EM_GETPAGESTYLE: return pageStyle_;
        case EM_SETPAGESTYLE:
            pageStyle_ = static_cast<UINT>(wparam);
            InvalidateRect(window_, nullptr, TRUE);
            return 0;
        case EM_SETINKLAYER: {
            const UINT before = inkLayer_;
            inkLayer_ = static_cast<UINT>(wparam);
            return before;
        }
        case EM_SETVIEWATTRIBUTES:
            if (lparam) SetAttributes(*reinterpret_cast<const VIEWATTRIBUTES*>(lparam));
            return 0;
        case EM_CLEARALL:
            Clear();
            if (wparam) UpdateWindow(window_);
            return 0;
    }
    return 0;
}

void RichInkControl::OnCreated() {
    IRichEditOle* contents = nullptr;
    if (Base(EM_GETOLEINTERFACE, 0, reinterpret_cast<LPARAM>(&contents)) && contents) {
        contents->QueryInterface(kTextDocument, reinterpret_cast<void**>(&document_));
        contents->Release();
    }
    Base(EM_EXLIMITTEXT, 0, kNoLimit);
    Base(EM_SETTEXTMODE, TM_RICHTEXT | TM_MULTILEVELUNDO);
    Clear();
    SetZoom(zoom_);
}

// The rich edit scales by the system's DPI; CE_SCALE asks for another.
void RichInkControl::SetZoom(UINT percent) {
    zoom_ = std::clamp(percent, kSmallestZoom, kLargestZoom);
    InvalidateRect(window_, nullptr, TRUE);
    if (zoom_ == laidOutZoom_) return;  // for a long text it is work
    laidOutZoom_ = zoom_;
    const HDC screen = GetDC(nullptr);
    const int systemDpi = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    const UINT percentShown = zoom_ * ScreenDpi() / systemDpi;
    const UINT common = std::gcd(percentShown, 100u);
    // In small numbers: some rich edits multiply widths by the upper one, and never end behind a tab where that
    // overflows.
    Base(EM_SETZOOM, percentShown / common, 100 / common);
    RefreshFonts();
}

// Taking a step is a change whatever the rich edit thinks of it: it counts back to the last EM_SETMODIFY.
LRESULT RichInkControl::Step(UINT message) {
    if (!Base(message == EM_UNDO ? EM_CANUNDO : EM_CANREDO) || !Base(message)) return FALSE;
    Base(EM_SETMODIFY, TRUE);
    RefreshFonts();  // the step may have brought back a format of another zoom
    return TRUE;
}

// The paper shows which view it is. In every view the keyboard types; in the drawing view the pen draws.
void RichInkControl::SetView(UINT view) {
    if (view != VT_TYPINGVIEW && view != VT_WRITINGVIEW && view != VT_DRAWINGVIEW) return;
    view_ = view;
    const bool drawing = view == VT_DRAWINGVIEW;
    Base(EM_SETBKGNDCOLOR, !drawing, drawing ? kDrawingPaper : 0);
    InvalidateRect(window_, nullptr, TRUE);
}

void RichInkControl::SetAttributes(const VIEWATTRIBUTES& attributes) {
    if (attributes.mask & VIEWATTRIBUTES_ZOOM) SetZoom(attributes.uZoom);
    if (attributes.mask & VIEWATTRIBUTES_VIEW) SetView(attributes.uView);
    if (attributes.mask & VIEWATTRIBUTES_PAGESTYLE) pageStyle_ = attributes.uPageStyle;
    if (attributes.mask & VIEWATTRIBUTES_INKLAYER) inkLayer_ = attributes.uInkLayer;
}

void InitRichInkDLL() {
    if (LoadLibraryW(L"msftedit.dll")) {
        RegisterSuperclass(MSFTEDIT_CLASS, WC_RICHINK, RichInkControl::Procedure, RichInkControl::BaseProcedure(),
                           &control_pointer);
    }
}
