// How large the device's screen is and how its pixels scale. No windows, so that the rules can be tested by themselves.
#pragma once

#include <win.h>

#include <optional>
#include <string_view>

inline constexpr SIZE kDefaultScreen{480, 720};  // logical pixels
inline constexpr int kTitleArea = 26;            // of the device's screen; a window's caption takes its place

// "480x640" as a size; nothing when it is not two plain numbers of 160 to 3840.
std::optional<SIZE> ParseScreenSize(std::wstring_view text);

// A percentage of 50 to 400 as dots per inch (100 is 96); nothing when it is not such a number.
std::optional<int> ParseScale(std::wstring_view text);

// The screen that CE_SCREEN says, else that of the stored choice; nothing when neither is a size, and the person's
// desktop decides.
std::optional<SIZE> ForcedScreen();

// What is left of the screen below its title area, in logical pixels: by CE_SCREEN, else by the stored choice, else
// the default; a choice that is no size does not count.
SIZE ContentSize();

// The smallest content a window can be given with the mouse, in logical pixels.
SIZE SmallestContent();

// Dots per inch that Px works with.
int ScreenDpi();
