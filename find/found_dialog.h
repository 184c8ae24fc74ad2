// The screen that searches and shows what was found.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "find/find_request.h"
#include "ui/dialog.h"
#include "ui/key_watch.h"
#include "ui/list_view.h"
#include "ui/note_reader.h"
#include "ui/static_text.h"

class DbJournal;
class EntrySearch;
class SelectionMemory;

// A tap on a row opens the entry as the main window's list would: it becomes the one selected entry, its detail view
// opens and, if the user goes on to it, its editor; then the search is run again. Of a note that was found the first
// match is selected and in sight. F3 opens the next row.
//
// A search that takes its time shows the screen and how many were found so far; leaving it ends the search.
class FoundDialog : public Dialog, private KeyListener {
public:
    // Searches, and runs the screen modally over `owner`; when nothing is found that is said instead. A search from the
    // current entry starts behind the one that is current now, however often it is run again. Answers IDOK, or -1 when
    // the screen cannot be made, or is open already and comes to the front. Moves the journal's current position.
    static INT_PTR Run(Window& owner, DbJournal& journal, SelectionMemory& selection, FindRequest& request);

private:
    friend class Dialog;  // begins and ends the procedure's live object

    // Private message: the second half of a double tap on a row has come. No parameters.
    static constexpr UINT kSecondTap = WM_APP + 1;

    struct Row {
        CEOID entry;
        std::wstring date;
        std::wstring subject;
    };

    FoundDialog(DbJournal& journal, SelectionMemory& selection, FindRequest& request);

    static INT_PTR CALLBACK Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) noexcept;
    static FoundDialog* live_;

    // ---- Messages ----
    INT_PTR OnInitDialog(void* data);
    INT_PTR OnCommand(WORD id);
    INT_PTR OnNotify(NMHDR& header);
    INT_PTR OnSettingChange(WPARAM wparam, LPARAM lparam);
    bool WantsKey(HWND control, UINT key) const override;
    void OnKey(HWND control, UINT key) override;
    INT_PTR Answer(LRESULT result);
    void Finish();

    // ---- Searching ----
    bool Search();
    bool GoOn(const EntrySearch* search = nullptr);
    void ShowCount(int found);
    void TakeInput();
    bool IsOver() const { return over_ || !IsWindow(); }

    // ---- Rows (found_dialog_rows.cpp) ----
    void MakeList();
    void ShowResults();
    bool ReadRow(CEOID entry, Row& row);
    void ShowRows();
    void OnGetDispInfo(LVITEMW& item) const;
    void OnTap(int row);
    void OpenNext();
    void OpenEntry(CEOID entry);
    void LayOut();

    DbJournal& journal_;
    SelectionMemory& selection_;
    FindRequest& request_;
    const CEOID start_;                // the entry that was current when the screen opened
    std::optional<NoteReader> notes_;  // once the screen is there
    std::vector<Row> rows_;
    StaticText count_;
    ListView list_;
    CEOID opened_ = 0;        // the entry that was opened last
    bool searching_ = false;  // rows are not what they were
    bool over_ = false;       // told to end
    DWORD painted_ = 0;       // when a search let the windows paint last
};
