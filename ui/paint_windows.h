// For work that keeps the program busy for long.
#pragma once

// Lets every window of this thread paint what has become invalid; keys and taps wait. What other threads and programs
// have sent is answered too, so that afterwards a window may be gone.
void PaintWindows();
