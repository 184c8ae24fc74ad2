// The screen in which one journal entry is shown, edited and saved.
#pragma once

#include <win.h>

class DbJournal;
class SelectionMemory;
class Window;

class EntryEditor {
public:
    // Edits the selection's current entry (0: a new one) in a full-screen modal dialog over `owner` and returns when
    // the user has closed it. `editField` is the field id (101-111) whose row is selected first; 0 or an unknown id
    // selects the first row. An entry that was changed has been written to `journal` by then, and the id it was written
    // under is the selection's current entry; a write that failed leaves 0 there. The caller refills its list. Returns
    // IDOK, or -1 when the screen could not be made (nothing is written then).
    static INT_PTR Run(Window& owner, DbJournal& journal, SelectionMemory& selection, unsigned short editField);
};
