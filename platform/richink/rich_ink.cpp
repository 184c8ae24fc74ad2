#include "inkx.h"
#include "platform/window_support.h"
#include "richink.h"

namespace {

WNDPROC rich_edit_procedure = nullptr;

LRESULT CALLBACK RichInkProcedure(HWND control, UINT message, WPARAM wparam, LPARAM lparam) {
    return CallWindowProcW(rich_edit_procedure, control, message, wparam, lparam);
}

}  // namespace

void InitRichInkDLL() {
    if (LoadLibraryW(L"msftedit.dll")) {
        RegisterSuperclass(MSFTEDIT_CLASS, WC_RICHINK, RichInkProcedure, &rich_edit_procedure);
    }
}

void InitInkX() {
    InitRichInkDLL();
}
