// The base of the program's one application object: the settings key, the busy cursor, the message loop.
#pragma once

#include <win.h>

#include <cstdint>
#include <memory>

#include "ui/registry_key.h"

class Window;

// The program derives its own object from this and makes one static instance, before the entry function runs. Screens
// reach it, and with it settings and the busy cursor, through Current(). Used from the user-interface thread only.
//
// At the end the main window object is deleted first, then outstanding busy requests are taken back, then the settings
// key is closed. The order of the virtual operations is fixed; new ones go to derived classes.
class Application : public RegistryKey {
public:
    // `path` is the settings key under HKEY_CURRENT_USER. There is no other application object alive.
    explicit Application(const wchar_t* path);
    ~Application() override;

    // The application object; null before it is made and after its end.
    static Application* Current() { return current_; }

    // Keeps the instance and answers true: go on to Run. Derived classes do the rest of the start, and answer false to
    // end the program.
    virtual bool InitInstance(HINSTANCE instance, int showFlag);
    // Registers the classes of controls that screens are made of: the shell's, and list view, bars, tab, date and cool
    // bar. False when the latter fail.
    virtual bool InitCommonControls();
    // On: one more request for the wait cursor, which is shown. Off: one request less; no cursor is shown, however many
    // requests are left, and the system sets the right one at the next move. An off too many counts below 0.
    virtual void SetBusy(bool on);
    // Registers the main window's class: redrawn whole when resized, the icon of the program (103), no cursor, a light
    // grey background. False when that fails (a class of this name exists).
    virtual bool RegisterWindowClass(HINSTANCE instance, const wchar_t* className, WNDPROC procedure);
    // The instance all resources come from; null before InitInstance.
    virtual HINSTANCE GetInstance() const;
    // The message loop: runs until WM_QUIT and answers its wParam. Each message is offered to the modeless dialog
    // first, then to the accelerators of the main window, then dispatched.
    virtual int Run();

    // Takes the main window object over; may be null.
    void SetMainWindow(std::unique_ptr<Window> window);
    // Null before the main window is made.
    Window* GetMainWindow() const { return mainWindow_.get(); }

    // The modeless dialog that sees every message first; null for none. Whoever sets it takes it back before the dialog
    // is destroyed.
    void SetModelessDialog(HWND dialog) { modelessDialog_ = dialog; }
    HWND GetModelessDialog() const { return modelessDialog_; }

    // Outstanding requests for the wait cursor.
    int32_t BusyCount() const { return busyCount_; }

private:
    static Application* current_;

    int32_t busyCount_ = 0;
    HINSTANCE instance_ = nullptr;
    HWND modelessDialog_ = nullptr;
    std::unique_ptr<Window> mainWindow_;
};
