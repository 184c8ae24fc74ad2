#include "ui/application.h"

#include <aygshell.h>

#include <cassert>
#include <utility>

#include "res/ids.h"
#include "ui/window.h"

Application* Application::current_ = nullptr;

Application::Application(const wchar_t* path) : RegistryKey(path) {
    assert(!current_);
    current_ = this;
}

Application::~Application() {
    mainWindow_.reset();
    while (busyCount_ > 0)
        Application::SetBusy(false);
    current_ = nullptr;
}

bool Application::InitInstance(HINSTANCE instance, int /*showFlag*/) {
    instance_ = instance;
    return true;
}

bool Application::InitCommonControls() {
    SHInitExtraControls();  // a program that uses none of them starts without them, too
    INITCOMMONCONTROLSEX classes = {};
    classes.dwSize = sizeof(classes);
    classes.dwICC = ICC_LISTVIEW_CLASSES | ICC_BAR_CLASSES | ICC_TAB_CLASSES | ICC_DATE_CLASSES | ICC_COOL_CLASSES;
    return InitCommonControlsEx(&classes) != FALSE;
}

void Application::SetBusy(bool on) {
    busyCount_ += on ? 1 : -1;
    SetCursor(on ? LoadCursorW(nullptr, IDC_WAIT) : nullptr);
}

bool Application::RegisterWindowClass(HINSTANCE instance, const wchar_t* className, WNDPROC procedure) {
    WNDCLASSW windowClass = {};
    windowClass.style = CS_HREDRAW | CS_VREDRAW;
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = instance;
    windowClass.hIcon = LoadIconW(instance, MAKEINTRESOURCEW(IDI_JOURNAL));
    windowClass.hbrBackground = static_cast<HBRUSH>(GetStockObject(LTGRAY_BRUSH));
    windowClass.lpszClassName = className;
    return RegisterClassW(&windowClass) != 0;
}

HINSTANCE Application::GetInstance() const {
    return instance_;
}

int Application::Run() {
    // The resources have no such table: the handle is null and no key is taken. Kept as the place for accelerators.
    const HACCEL accelerators = LoadAcceleratorsW(GetInstance(), MAKEINTRESOURCEW(IDR_ACCELERATORS));
    const HWND main = mainWindow_ ? mainWindow_->GetHandle() : nullptr;

    MSG message = {};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (modelessDialog_ && IsDialogMessageW(modelessDialog_, &message)) continue;
        if (TranslateAcceleratorW(main, accelerators, &message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return static_cast<int>(message.wParam);
}

void Application::SetMainWindow(std::unique_ptr<Window> window) {
    mainWindow_ = std::move(window);
}
