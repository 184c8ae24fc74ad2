// The screen that shows one entry to read: what a tap on it in the list opens.
#pragma once

#include <string>

#include "data/db_journal.h"
#include "list/detail_note.h"
#include "list/detail_panel.h"
#include "ui/dialog.h"
#include "ui/static_text.h"

class SelectionMemory;

// A text that is to be selected in the note, where it stands first; empty for none.
struct NoteMatch {
    std::wstring text;
    bool matchCase = true;
};

class DetailView : public Dialog {
public:
    // Beside the field ids, what the view ends with.
    static constexpr INT_PTR kClosed = 1;     // closed with OK, or the entry is gone
    static constexpr INT_PTR kEditEntry = 0;  // to be edited, no field in particular

    // Shows the selection's current entry in a full-screen modal dialog over `owner`, and `match` in its note. Answers
    // one of the results above, or the id of the field (101-111) that was tapped, for the caller to open the editor on;
    // -1 when the view could not be made. Follows changes that others make to the entry.
    static INT_PTR Run(Window& owner, SelectionMemory& selection, const NoteMatch& match = {});

    // Ends the view that is shown, with kEditEntry: the second half of a double tap. False when none is shown.
    static bool EndToEdit();

private:
    friend class Dialog;  // begins and ends the procedure's live object

    explicit DetailView(const NoteMatch& match) : match_(match) {}

    static INT_PTR CALLBACK Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) noexcept;
    static DetailView* live_;

    // Private message: the view's loop has begun. No parameters.
    static constexpr UINT kBegun = WM_APP + 1;

    INT_PTR OnInitDialog(void* data);
    INT_PTR OnCommand(WORD code, WORD id);
    INT_PTR OnSize();
    INT_PTR OnChanged(CEOID record, CEOID database);
    INT_PTR OnDeleted(CEOID record, CEOID database);
    bool MakeControls();
    void Load();
    void PlaceNote();
    bool IsShown(CEOID record, CEOID database);
    void Finish(INT_PTR result);

    DbJournal journal_;  // its own: the store tells this window what others change
    TSList<DbJItem> fields_;
    DetailPanel panel_;
    StaticText noteLabel_;  // hidden; what screen readers call the note
    DetailNote note_;
    SelectionMemory* selection_ = nullptr;
    const NoteMatch& match_;
};
