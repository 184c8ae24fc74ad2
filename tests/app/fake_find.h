// Stands in for the dialogs of find: the main window is tested without the screens it opens.
#pragma once

#include <win.h>

#include <functional>
#include <vector>

struct FindRequest;

struct FakeFind {
    // The requests that the dialogs were opened with, in order.
    static std::vector<FindRequest*> asked;
    static std::vector<FindRequest*> shown;
    // What the user does in the first; answers its result. Without one it is left with OK.
    static std::function<INT_PTR()> ask;
    // What happens while the second is open; nothing without one.
    static std::function<void()> meanwhile;

    static void Reset();
};
