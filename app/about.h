// The About screen.
#pragma once

#include <win.h>

class Window;

// Shows the program's name and version over `owner` until the user closes it.
void RunAbout(Window& owner);
