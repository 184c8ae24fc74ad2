// A top-level window that follows the input panel.
#pragma once

#include "ui/window.h"

class FrameWindow : public Window {
public:
    // Passes WM_SETTINGCHANGE to the shell, which fits the window above the input panel. Answers what the shell did.
    virtual BOOL HandleSettingChange(WPARAM wparam, LPARAM lparam);

private:
    SHACTIVATEINFO activation_ = {};
};
