// Lets a screen take keys from its controls before the controls and the dialog manager see them.
#pragma once

#include <win.h>

// Who takes keys. WantsKey is asked more than once for a key press and changes nothing; OnKey then acts on it. OnKey
// may destroy the control.
class KeyListener {
public:
    virtual bool WantsKey(HWND control, UINT key) const = 0;
    virtual void OnKey(HWND control, UINT key) = 0;

protected:
    ~KeyListener() = default;
};

// Watches a control for as long as it lives; the listener outlives it.
void WatchKeys(HWND control, KeyListener& listener);
