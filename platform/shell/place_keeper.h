// Keeps the place, the size and the state of a program's main window from one run to the next.
//
// 1. A window that is kept is top-level, has no owner and can be maximised, as SHScreenWindow makes it.
// 2. A device of a given size (CE_SCREEN, or the stored choice) has that size every time: it is centred, not kept.
#pragma once

#include <win.h>

#include <memory>
#include <string>

#include "platform/shell/window_place.h"

class PlaceKeeper {
public:
    // The keeper of a window just made that is not shown yet, which gets its place at once; null for a window that is
    // not kept.
    static std::unique_ptr<PlaceKeeper> Begin(HWND window);

    // On WM_SHOWWINDOW, when the window is about to be shown.
    void OnShow();
    // After each WM_WINDOWPOSCHANGED of the window.
    void OnPositionChanged(const WINDOWPOS& position);
    // On WM_DISPLAYCHANGE: goes to the place kept for what is there now, or at least back into view.
    void OnDisplayChange();
    // When the person has moved or sized the window, and before it goes.
    void Save() const;

private:
    explicit PlaceKeeper(HWND window);
    void Restore();
    void MoveTo(const RECT& place) const;
    bool IsPlain() const { return !IsZoomed(window_) && !IsIconic(window_); }

    HWND window_;
    std::wstring class_;
    bool forced_;
    bool shown_ = false;
    bool maximise_ = false;  // as soon as it is shown
    RECT normal_{};          // neither maximised nor minimised
    RECT before_{};          // what `normal_` was before that
};
