#include <algorithm>

#include "aygshell.h"
#include "px.h"

void SHScreenWindow(DWORD* style, SIZE* size) {
    *style = (*style | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX | WS_THICKFRAME) & ~static_cast<DWORD>(WS_VISIBLE);
    RECT frame{0, 0, size->cx, size->cy + Px(kMenuBarHeight)};
    AdjustWindowRectEx(&frame, *style, FALSE, 0);
    RECT work{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    size->cx = std::min(frame.right - frame.left, work.right - work.left);
    size->cy = std::min(frame.bottom - frame.top, work.bottom - work.top);
}

BOOL SHCreateMenuBar(SHMENUBARINFO*) {
    return FALSE;
}
HWND SHFindMenuBar(HWND owner) {
    return FindWindowExW(owner, nullptr, L"CBFRAME", nullptr);
}
int SHMenuBarHeight(HWND owner) {
    return SHFindMenuBar(owner) ? Px(kMenuBarHeight) : 0;
}
BOOL SHInitDialog(SHINITDLGINFO*) {
    return TRUE;
}
BOOL SHSetCloseCommand(HWND, UINT) {
    return TRUE;
}
BOOL SHDoneButton(HWND, DWORD) {
    return TRUE;
}
