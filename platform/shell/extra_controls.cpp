// The control classes a Pocket PC has beyond the common ones, the look of boxes, and the shell's out-of-memory message.
#include "aygshell.h"
#include "platform/shell/boxes.h"
#include "platform/window_support.h"

namespace {

WNDPROC edit_procedure = nullptr;
constexpr wchar_t kUpcaseProperty[] = L"CapEdit";  // a window without it capitalises its first letter
enum : UINT_PTR { kOff = 1, kAllWords = 2 };

UINT_PTR Flags(HWND edit) {
    return reinterpret_cast<UINT_PTR>(GetPropW(edit, kUpcaseProperty));
}

void SetFlag(HWND edit, UINT_PTR flag, bool on) {
    const UINT_PTR flags = on ? Flags(edit) | flag : Flags(edit) & ~flag;
    SetPropW(edit, kUpcaseProperty, reinterpret_cast<HANDLE>(flags));
}

// Whether a letter typed now stands where a capital belongs.
bool AtCapital(HWND edit) {
    const UINT_PTR flags = Flags(edit);
    if (flags & kOff) return false;
    DWORD start = 0;
    CallWindowProcW(edit_procedure, edit, EM_GETSEL, reinterpret_cast<WPARAM>(&start), 0);
    if (start == 0) return true;
    if (!(flags & kAllWords)) return false;
    wchar_t text[256];
    const DWORD length = static_cast<DWORD>(
        CallWindowProcW(edit_procedure, edit, WM_GETTEXT, ARRAYSIZE(text), reinterpret_cast<LPARAM>(text)));
    return start <= length && text[start - 1] == L' ';
}

LRESULT CALLBACK CapEditProcedure(HWND edit, UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
        case WM_CHAR:
            if (AtCapital(edit)) CharUpperBuffW(reinterpret_cast<wchar_t*>(&wparam), 1);
            break;
        case CEM_UPCASEALLWORDS: SetFlag(edit, kAllWords, wparam != 0); return 0;
        case CEM_ENABLEUPCASE: SetFlag(edit, kOff, wparam == 0); return 0;
        case WM_NCDESTROY: RemovePropW(edit, kUpcaseProperty); break;
    }
    return CallWindowProcW(edit_procedure, edit, message, wparam, lparam);
}

}  // namespace

BOOL SHInitExtraControls() {
    return PlaceBoxes() && RegisterSuperclass(WC_EDIT, WC_CAPEDIT, CapEditProcedure, &edit_procedure) &&
           RegisterWindowClass(WC_SIPPREF, DefWindowProcW);
}

int SHShowOutOfMemory(HWND owner, UINT) {
    return MessageBoxW(owner, L"There is not enough memory to complete this operation.", L"Out of Memory",
                       MB_OK | MB_ICONSTOP);
}
