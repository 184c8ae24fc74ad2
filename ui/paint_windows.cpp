#include "ui/paint_windows.h"

#include <win.h>

void PaintWindows() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE | PM_QS_PAINT))
        DispatchMessageW(&message);
}
