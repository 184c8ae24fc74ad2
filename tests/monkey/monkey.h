// Somebody who taps, types, closes and sends commands without sense, at whatever screens the program shows.
#pragma once

#include <win.h>

#include <random>
#include <vector>

// Works from a timer, so that it goes on in every message loop the program runs in. Sends nothing that holds a pointer:
// what that may do is the system's affair. After its last message it closes what is open until nothing is left. The
// same seed makes the same choices, as far as the program shows the same windows. One at a time.
class Monkey {
public:
    // `messages` is about how many it sends; fewer on a machine so busy that they take more than half a minute.
    Monkey(unsigned seed, int messages);
    ~Monkey();
    Monkey(const Monkey&) = delete;
    Monkey& operator=(const Monkey&) = delete;

    int Left() const { return left_; }

private:
    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD) noexcept;
    void Act();
    void CloseSomething();

    // What it does, one each.
    void SendCommand();
    void SendScreenCommand();
    void PressKey();
    void Tap();
    void OpenMenu();
    void CloseScreen();
    void Request();
    void Resize();
    void SendPrivate();

    void Post(HWND window, UINT message, WPARAM wparam = 0, LPARAM lparam = 0);
    // At random: below `end`; one of them; any window, or top-level window, of the thread, null when there is none.
    int Below(int end);
    template <size_t count>
    auto OneOf(const unsigned (&values)[count]) {
        return values[Below(count)];
    }
    HWND AnyWindow();
    HWND AnyScreen();

    static Monkey* live_;

    std::mt19937 random_;
    const ULONGLONG end_;
    int left_;
    UINT_PTR timer_;
};

// The top-level windows of this thread that can be seen, topmost first.
std::vector<HWND> ShownWindows();
