// A shown top-level window that writes down what it receives, and a hand on the mouse and keyboard.
#pragma once

#include <gtest/gtest.h>
#include <win.h>

#include <functional>
#include <string>
#include <vector>

#include "aygshell.h"
#include "tests/shell/shell_test_ids.h"

struct SeenMessage {
    UINT message;
    WPARAM wparam;
    LPARAM lparam;
};

class ShellTest : public testing::Test {
protected:
    ShellTest();
    ~ShellTest() override;

    // Waits until a window just shown is in front and the window manager has put it where it stays: it moves a new
    // window once into its frame and back.
    static void Settle(HWND window);

    // Gives the window the bar of a resource; answers what SHCreateMenuBar answers, the bar is in Bar().
    bool CreateBar(UINT resource, DWORD flags = 0);
    HWND Window() const { return window_; }
    HWND Bar() const { return SHFindMenuBar(window_); }

    // Found by class names as other programs would.
    HWND Toolbar() const;
    HWND DoneBar() const;

    // A place in a window, looked up anew each time: a window manager may still be moving the window.
    struct Place {
        HWND window;
        std::function<POINT()> point;
    };
    // The middle of a button, or its left or right part.
    static Place Middle(HWND toolbar, UINT command);
    static Place LeftPart(HWND toolbar, UINT command);
    static Place RightEnd(HWND toolbar, UINT command);
    // A point of a window's client area.
    static Place At(HWND window, int x, int y);

    // Real input: the pointer moves, the button goes down and up where the pointer is.
    static void MoveTo(POINT at);
    static void MoveTo(const Place& at);
    static void Press();
    static void Release();
    void Click(const Place& at);
    void RightClick(const Place& at);
    static void Type(WORD key);

    // Messages of that number received since the last Forget.
    std::vector<SeenMessage> Seen(UINT message) const;
    std::vector<WPARAM> Commands() const;  // low words of WM_COMMAND
    void Forget() { seen_.clear(); }
    bool WaitForCommand(UINT command) const;

    // Called for WM_NOTIFY; the answer is the message's.
    std::function<LRESULT(NMHDR*)> onNotify;

    // Called for WM_COMMAND.
    std::function<void()> onCommand;

    // Runs `act` when a popup menu is open, from inside its loop, and again as long as it stays open: the timer comes
    // only after all input that `act` made has been taken.
    void WhenMenuOpens(std::function<void(HWND menu)> act);

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);

    static void Click(const Place& at, DWORD down, DWORD up);

    HHOOK hook_;
    HWND window_ = nullptr;
    std::vector<SeenMessage> seen_;
    std::function<void(HWND)> whenMenuOpens_;
};
