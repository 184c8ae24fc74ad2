#include "editor/field_controls.h"

HiddenLabel::HiddenLabel(HWND form, const wchar_t* caption) {
    text_.CreateIn(form, -1, 0, {});
    text_.SetText(caption);
}

void RaiseInOrder(std::initializer_list<HWND> windows) {
    for (auto window = std::rbegin(windows); window != std::rend(windows); ++window) {
        SetWindowPos(*window, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    }
}

void PlaceInCell(Window& control, const RECT& cell, bool ownHeight) {
    if (IsRectEmpty(&cell)) {
        control.Hide();
        return;
    }
    RECT own = {};
    control.GetWindowRect(&own);
    const int cellHeight = cell.bottom - cell.top;
    const int height = ownHeight ? own.bottom - own.top : cellHeight;
    const int y = cell.top + (cellHeight - height) / 2;
    control.SetWindowPos(nullptr, cell.left, y, cell.right - cell.left, height,
                         SWP_NOZORDER | SWP_NOACTIVATE | SWP_SHOWWINDOW);
}
