// How long the program takes from being started to waiting for the user.
#pragma once

#include <string>

// Microseconds, the median of some starts; 0 when there is no such program. It gets the environment of this one.
double MeasureStart(const std::wstring& program, const std::wstring& arguments);

// What a program that only shows an empty window does; the bound for the other. Returns when the window is closed.
int ShowEmptyWindow();

// journal.exe, and this program itself.
std::wstring JournalProgram();
std::wstring OwnProgram();
