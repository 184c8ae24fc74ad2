#include "tests/support/pump.h"

#include <win.h>

void PumpOnce() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

bool PumpUntil(const std::function<bool()>& done, unsigned milliseconds) {
    const ULONGLONG end = GetTickCount64() + milliseconds;
    for (;;) {
        PumpOnce();
        if (done()) return true;
        if (GetTickCount64() >= end) return false;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
    }
}
