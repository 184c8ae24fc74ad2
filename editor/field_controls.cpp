#include "editor/field_controls.h"

#include "ui/gdi_scope.h"

namespace {
constexpr int kLineBorders = 8;  // device pixels: the systems that draw them do not scale them either
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
    const int y = cell.top + (cell.bottom - cell.top - height) / 2;
    control.SetWindowPos(nullptr, cell.left, y, cell.right - cell.left, height,
                         SWP_NOZORDER | SWP_NOACTIVATE | SWP_SHOWWINDOW);
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
