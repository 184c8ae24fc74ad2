// A top-level window as a device screen: what the shell adds to a window that has a menu bar or is a full-screen
// dialog. The object is a subclass of the window and goes with it.
//
// 1. The bar, if there is one, is a child of the window and lies along the bottom of its client area.
// 2. A window that shows an OK button always has a bar to show it on: the program's, or an empty one made here.
// 3. Only a dialog has a close command.
// 4. While the input panel is up, a screen that can show one has it as a child above its bar.
#pragma once

#include <win.h>

#include <memory>

class PlaceKeeper;

class Screen {
public:
    // The screen a window is, or null.
    static Screen* Of(HWND window);
    // The same, made when it is none yet; null for what is no window of this thread.
    static Screen* Make(HWND window);

    HWND Window() const { return window_; }
    HWND Bar() const { return bar_; }
    int BarHeight() const;    // device pixels; 0 without a visible bar
    int PanelHeight() const;  // device pixels; 0 without an input panel

    // Takes a new bar and destroys the one before it.
    void SetBar(HWND bar);
    // Called by a bar that is being destroyed.
    void ForgetBar(HWND bar);
    // Puts the bar where it belongs, and the input panel above it, if it is up.
    void PlaceBar();
    // Shows on the bar whether the input panel is up.
    void ShowPanelState() const;

    bool HasDone() const { return done_; }
    void SetDone(bool shown);

    void SetCloseCommand(UINT command) { closeCommand_ = command; }
    UINT CloseCommand() const { return closeCommand_; }  // 0: not a dialog

private:
    explicit Screen(HWND window);
    ~Screen();

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam, UINT_PTR id,
                                      DWORD_PTR screen);
    static LRESULT OnPositionChanged(HWND window, WPARAM wparam, LPARAM lparam);
    LRESULT OnActivate(WPARAM wparam, LPARAM lparam);
    bool OnCommand(WPARAM wparam, LPARAM lparam);
    bool OnContextMenu(HWND clicked, LPARAM position);
    bool OnKeyMenu(wchar_t letter);
    bool TakeNewSize();
    void LimitSize(MINMAXINFO* limits) const;
    void EnsureBar();
    void PlacePanel();
    bool CanShowPanel() const;

    HWND window_;
    HWND bar_ = nullptr;
    HWND panel_ = nullptr;
    HWND focus_ = nullptr;                 // the control that had the focus when the window was last deactivated
    SIZE client_{};                        // as last reported to the window
    std::unique_ptr<PlaceKeeper> keeper_;  // of a main window alone
    UINT closeCommand_ = 0;
    bool done_ = false;
};
