#include "tests/support/modal_stage.h"

#include <aygshell.h>
#include <gtest/gtest.h>
#include <px.h>

#include <utility>

#include "tests/support/pump.h"

namespace {

constexpr UINT kRunScript = WM_APP;
constexpr UINT_PTR kRetry = 1;  // timer

BOOL CALLBACK FindScreen(HWND window, LPARAM search) {
    auto& [marker, found] = *reinterpret_cast<std::pair<int, HWND>*>(search);
    if (!IsWindowVisible(window) || !GetDlgItem(window, marker)) return TRUE;
    found = window;
    return FALSE;
}

SIZE OwnerSize() {
    SIPINFO sip = {};
    sip.cbSize = sizeof sip;
    SHSipInfo(SPI_GETSIPINFO, 0, &sip, 0);
    const RECT& screen = sip.rcVisibleDesktop;
    return {screen.right - screen.left, screen.bottom - screen.top - Px(kMenuBarHeight)};
}

}  // namespace

ModalStage* ModalStage::live_ = nullptr;

ModalStage::ModalStage() {
    WNDCLASSW windowClass = {};
    windowClass.lpfnWndProc = Procedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hbrBackground = GetSysColorBrush(COLOR_WINDOW);
    windowClass.lpszClassName = L"ModalStage";
    RegisterClassW(&windowClass);
    DWORD style = WS_VISIBLE;
    SIZE size = OwnerSize();
    SHScreenWindow(&style, &size);
    owner_.Create(windowClass.lpszClassName, L"Owner", style, 40, 40, size.cx, size.cy, nullptr, nullptr,
                  windowClass.hInstance, nullptr);
    owner_.Show();
    live_ = this;
}

ModalStage::~ModalStage() {
    live_ = nullptr;
    owner_.Destroy();
}

LRESULT CALLBACK ModalStage::Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) {
    if (live_ && (message == kRunScript || message == WM_TIMER)) {
        live_->OnRunScript();
        return 0;
    }
    if (live_ && message == WM_COMMAND) {
        EXPECT_EQ(HIWORD(wparam), 0);
        if (live_->onCommand) live_->onCommand(LOWORD(wparam));
        return 0;
    }
    return DefWindowProcW(hwnd, message, wparam, lparam);
}

// A dialog appears only when its message queue has been empty, so that this comes back until it stands there.
void ModalStage::OnRunScript() {
    if (!act_ || act_->ran) return;
    std::pair<int, HWND> search(act_->marker, nullptr);
    EnumThreadWindows(GetCurrentThreadId(), FindScreen, reinterpret_cast<LPARAM>(&search));
    if (!search.second) {
        owner_.SetTimer(kRetry, 10);
        return;
    }
    owner_.KillTimer(kRetry);
    Act& act = *act_;
    act.screen = search.second;
    act.ran = true;
    PumpOnce();
    act.script();
    PumpOnce();
    // A screen that has ended is hidden until its loop is left.
    if (IsWindowVisible(act.screen)) SendMessageW(act.screen, WM_COMMAND, act.closing, 0);
}

INT_PTR ModalStage::Run(int marker, WORD closing, const Script& script, const std::function<INT_PTR()>& modal) {
    Act act = {marker, closing, script, nullptr, false, act_};
    act_ = &act;
    owner_.PostMessage(kRunScript);
    const INT_PTR result = modal();
    owner_.KillTimer(kRetry);
    act_ = act.outer;
    EXPECT_TRUE(act.ran) << "no screen with the control " << marker << " came";
    EXPECT_FALSE(IsWindow(act.screen)) << "the screen outlived its loop";
    return result;
}

HWND ModalStage::Screen() const {
    return act_ ? act_->screen : nullptr;
}
