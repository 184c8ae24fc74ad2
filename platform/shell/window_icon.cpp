#include "platform/shell/window_icon.h"

namespace {

HICON IconOf(HWND window, WPARAM size) {
    const auto set = reinterpret_cast<HICON>(SendMessageW(window, WM_GETICON, size, 0));
    return set ? set : reinterpret_cast<HICON>(GetClassLongPtrW(window, size == ICON_BIG ? GCLP_HICON : GCLP_HICONSM));
}

}  // namespace

void ShowIconsOf(HWND source, HWND window) {
    constexpr WPARAM kSizes[] = {ICON_BIG, ICON_SMALL};
    for (const WPARAM size : kSizes) {
        const HICON icon = IconOf(source, size);
        if (icon) SendMessageW(window, WM_SETICON, size, reinterpret_cast<LPARAM>(icon));
    }
}
