#include "editor/field_controls.h"

#include "ui/gdi_scope.h"

namespace {

constexpr int kLineBorders = 8;         // device pixels: the systems that draw them do not scale them either
constexpr UINT_PTR kWheelSubclass = 3;  // 1 watches the keys

LRESULT CALLBACK WheelProcedure(HWND control, UINT message, WPARAM wparam, LPARAM lparam, UINT_PTR,
                                DWORD_PTR form) noexcept {
    if (message == WM_NCDESTROY) RemoveWindowSubclass(control, WheelProcedure, kWheelSubclass);
    if (message != WM_MOUSEWHEEL || IsDroppedDown(control, reinterpret_cast<HWND>(form))) {
        return DefSubclassProc(control, message, wparam, lparam);
    }
    return SendMessageW(reinterpret_cast<HWND>(form), message, wparam, lparam);
}

}  // namespace

bool IsDroppedDown(HWND control, HWND form) {
    const auto dropped = [](HWND combo) { return SendMessageW(combo, CB_GETDROPPEDSTATE, 0, 0) != 0; };
    const HWND parent = GetParent(control);
    return dropped(control) || (parent != form && dropped(parent));
}

void WatchEditor(HWND control, const FieldEditorSite& site) {
    WatchKeys(control, *site.keys);
    SetWindowSubclass(control, WheelProcedure, kWheelSubclass, reinterpret_cast<DWORD_PTR>(site.form));
}

HiddenLabel::HiddenLabel(HWND form, const wchar_t* caption) {
    text_.CreateIn(form, -1, 0, {});
    text_.SetText(caption);
}

void RaiseInOrder(std::initializer_list<HWND> windows) {
    for (auto window = std::rbegin(windows); window != std::rend(windows); ++window) {
        SetWindowPos(*window, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    }
}

void SelectAllFromStart(HWND edit) {
    // The caret is at the selection's second end, and the edit keeps it in view.
    const int length = GetWindowTextLengthW(edit);
    SendMessageW(edit, EM_SETSEL, static_cast<WPARAM>(length), 0);
    SendMessageW(edit, EM_SCROLLCARET, 0, 0);
}

void PlaceInCell(Window& control, const RECT& cell, int height) {
    if (IsRectEmpty(&cell)) {
        control.Hide();
        return;
    }
    const auto place = [&](int own) {
        const int y = cell.top + (cell.bottom - cell.top - own) / 2;
        control.SetWindowPos(nullptr, cell.left, y, cell.right - cell.left, own,
                             SWP_NOZORDER | SWP_NOACTIVATE | SWP_SHOWWINDOW);
    };
    place(height);
    if (HeightOf(control) != height) place(HeightOf(control));  // it has a height of its own
}

int HeightOf(const Window& control) {
    RECT own = {};
    control.GetWindowRect(&own);
    return own.bottom - own.top;
}

int LineHeight(const Window& control) {
    const WindowDc dc(control.GetHandle());
    const SelectedObject font(dc.Dc(), reinterpret_cast<HFONT>(control.SendMessage(WM_GETFONT)));
    TEXTMETRICW metrics = {};
    GetTextMetricsW(dc.Dc(), &metrics);
    return metrics.tmHeight + kLineBorders;
}
