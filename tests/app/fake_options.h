// Stands in for the options screen: the main window is tested without the screen it opens.
#pragma once

#include <functional>

struct FakeOptions {
    static int opened;
    // What happens while it is open; nothing without one.
    static std::function<void()> meanwhile;
};
