#include "ui/frame_window.h"

BOOL FrameWindow::HandleSettingChange(WPARAM wparam, LPARAM lparam) {
    return SHHandleWMSettingChange(GetHandle(), wparam, lparam, &activation_);
}
