// Stands in for the export dialog: the main window is tested without the screen it opens.
#pragma once

#include <win.h>

#include <windbase.h>

#include <vector>

struct FilterSettings;

// What the main window asked of the dialog, in order.
struct FakeExport {
    struct Opening {
        std::vector<CEOID> selected;
        const FilterSettings* filter;
    };
    static std::vector<Opening> opened;
};
