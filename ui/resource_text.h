// Texts of the program's string table.
#pragma once

#include <win.h>

#include <string>

// String `id` of the running program's resources; empty when it has none of that id.
std::wstring LoadText(UINT id);
