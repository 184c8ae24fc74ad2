// Logical pixels: every number of pixels in the program is written for a 96 DPI screen and goes through Px.
#pragma once

#include "cehost.h"

// `logical` pixels at 96 DPI in the pixels of this screen, rounded to the nearest; a negative number (a font height)
// keeps its sign, and what is not 0 never becomes 0. The scale is the system's DPI, the same for the process's whole
// life; the environment variable CE_SCALE (50 to 400, in percent; read once) takes its place, for a look at another.
CEHOST_API int Px(int logical);
