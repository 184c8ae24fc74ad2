// A window to open modal screens over, and what a test does in a screen while its message loop runs.
#pragma once

#include <win.h>

#include <functional>

#include "ui/window.h"

// One at a time. A script may run a screen that opens over the one it is in.
class ModalStage {
public:
    using Script = std::function<void()>;

    // Makes and shows the owner window, in the place and size that the device's screen has.
    ModalStage();
    ~ModalStage();
    ModalStage(const ModalStage&) = delete;
    ModalStage& operator=(const ModalStage&) = delete;

    Window& Owner() { return owner_; }

    // Calls `modal`, which runs a screen modally, and answers its result. As soon as a window with the control `marker`
    // stands there, the script runs; a screen that is open afterwards is sent the command `closing`. A screen that
    // never comes, or outlives the call, fails the test.
    INT_PTR Run(int marker, WORD closing, const Script& script, const std::function<INT_PTR()>& modal);

    // The screen that the running script is in; null outside of scripts.
    HWND Screen() const;

    // Called with each command the owner is sent; a notification (a high word that is not 0) fails the test.
    std::function<void(WORD)> onCommand;

private:
    struct Act {
        int marker;
        WORD closing;
        const Script& script;
        HWND screen;
        bool ran;
        Act* outer;
    };

    static LRESULT CALLBACK Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam);
    void OnRunScript();

    static ModalStage* live_;

    Window owner_;
    Act* act_ = nullptr;  // the innermost
};
