// Stands in for the detail view: the main window is tested without the screen it opens.
#pragma once

#include <win.h>

#include <windbase.h>

#include <functional>
#include <vector>

// What the main window asked of the view, in order: the selection's current entry at that time.
struct FakeDetail {
    static std::vector<CEOID> shown;
    // What the user does in it; answers the view's result. Without one it is closed with OK.
    static std::function<INT_PTR()> view;
    // Whether it was told to end for the editor, and so ends with 0.
    static bool ended;

    static void Reset();
};
