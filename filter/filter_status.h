// What the filter dialog's bottom line says.
#pragma once

#include <string>

struct FilterSettings;

// Which test decides, and how many of how many entries pass it; or that nothing can pass, and why. A chosen category
// that is gone still decides and is named. The names of the filter's categories have been looked up.
std::wstring FilterStatus(const FilterSettings& filter, int passed, int total);
