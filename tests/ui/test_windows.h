// Real windows for the tests to work on.
#pragma once

#include <win.h>

#include <vector>

#include "ui/window.h"

// A hidden top-level window of a class of the tests' own, 300 x 200 with its frame; remembers what it is sent.
class RecordingWindow {
public:
    RecordingWindow();
    ~RecordingWindow();
    RecordingWindow(const RecordingWindow&) = delete;
    RecordingWindow& operator=(const RecordingWindow&) = delete;

    HWND Handle() const { return handle_; }

    // The messages with that number since the window was made.
    std::vector<MSG> Seen(UINT message) const;

private:
    static LRESULT CALLBACK Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam);

    HWND handle_ = nullptr;
    std::vector<MSG> seen_;
};

// The module of the tests, which has the resources in ids.h.
HINSTANCE TestInstance();

// Registers a class that does nothing of its own, once; answers its name.
const wchar_t* PlainClass(const wchar_t* name);

// A child of `parent`, 100 x 20 at its corner.
HWND MakeChild(HWND parent, const wchar_t* className, DWORD style = WS_VISIBLE);

// The text of a window straight from the system.
std::wstring TextOf(HWND window);
