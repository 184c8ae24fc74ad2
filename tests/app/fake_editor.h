// Stands in for the entry editor: the main window is tested without the screen it opens.
#pragma once

#include <win.h>

#include <windbase.h>

#include <functional>
#include <vector>

#include "editor/form_record.h"

// What the main window asked of the editor, in order: the selection's current entry at that time.
struct FakeEditor {
    static std::vector<CEOID> opened;
    // The fields it was to begin with, 0 for none in particular.
    static std::vector<unsigned short> fields;
    // What the user does in it; answers the current entry that it leaves. Without one the entry stays current.
    static std::function<CEOID(CEOID)> edit;
    // The Pocket Outlook items that new entries were begun for, and what the user does then; answers the entry written.
    static std::vector<PimData> items;
    static std::function<CEOID(const PimData&)> editItem;
    // Told that the program ends.
    static std::function<void()> finish;

    static void Reset();
};
