// The input panel: a small keyboard that types into whatever has the focus. One window for each screen, a child of it
// above its menu bar, made while the panel is up; whether it is up is the same for all screens of the process.
//
// It never takes the focus, and never types into another program: its keys go to this thread's focus only.
#pragma once

#include <win.h>

#include <vector>

#include "platform/shell/panel_keys.h"

class InputPanel {
public:
    // Whether the panel is up.
    static bool IsUp();
    // Raises or lowers it on every screen of this thread. When that changes something, each of them gets
    // WM_SIZE, with its size as it is, and WM_SETTINGCHANGE with SPI_SETSIPINFO, and lays itself out again.
    static void SetUp(bool up);

    // Makes a hidden panel in a screen; the window owns the object. Null when the system is out of windows.
    static HWND Create(HWND screen);

private:
    enum class Shift { kOff, kOnce, kLocked };

    InputPanel() = default;
    ~InputPanel();
    InputPanel(const InputPanel&) = delete;
    InputPanel& operator=(const InputPanel&) = delete;

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam);
    void OnSize();
    LRESULT OnMouseActivate() const;
    void OnDown(POINT at);
    void OnUp();
    void OnTimer();

    // What the key does, now.
    void Strike(const PanelKey& key);
    static void TypeCharacter(wchar_t character);
    static void TypeKey(WORD key);

    // input_panel_paint.cpp
    void Paint() const;
    void DrawKey(HDC dc, const PanelKey& key, bool pressed) const;

    HWND window_ = nullptr;
    HFONT font_ = nullptr;
    HFONT smallFont_ = nullptr;
    std::vector<PanelKey> keys_;
    PanelPage page_ = PanelPage::kPlain;
    Shift shift_ = Shift::kOff;
    int pressed_ = -1;  // the key under the stylus
};
