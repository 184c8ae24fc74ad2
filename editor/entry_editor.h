// The screen in which one journal entry is shown, edited and saved.
#pragma once

#include <win.h>

#include <memory>
#include <vector>

#include "editor/entry_form.h"
#include "editor/field_editor.h"
#include "ui/key_watch.h"

class SelectionMemory;

// Selecting a row opens its editor in the row; what it holds is taken when it closes. Closing the screen is OK: nothing
// typed is lost. Only OK writes, and only when a value is another one than it was: a list looked into, a text typed and
// taken back are no change.
class EntryEditor : public EntryForm, private KeyListener {
public:
    // Edits the selection's current entry (0: a new one) in a full-screen modal dialog over `owner` and returns when
    // the user has closed it. `editField` is the field id (101-111) whose row is selected first; 0 or an unknown id
    // selects the first row. An entry that was changed has been written to `journal` by then, and the id it was written
    // under is the only one selected, and the current entry; a write that failed leaves 0 there. The caller refills its
    // list. Returns IDOK, or -1 when the screen could not be made, or is open already and comes to the front (nothing
    // is written then).
    //
    // An entry that somebody else deleted meanwhile, or that could not be read, is written as a new one: what was typed
    // is kept, and nothing stored is replaced by fields that were never shown. What a failed write could not store is
    // what the next new entry starts with.
    static INT_PTR Run(Window& owner, DbJournal& journal, SelectionMemory& selection, unsigned short editField);

    // Edits a new entry with the values of a Pocket Outlook item; it is saved even when the user changes nothing. `id`
    // receives the entry's object id.
    static INT_PTR Run(Window& owner, DbJournal& journal, const PimData& item, CEOID& id);

    // OK for the program's end, while the journal is still open: the editor that is open, if any, has written its entry
    // when this returns, and ends as soon as its messages are seen to.
    static void FinishOpen();

private:
    friend class Dialog;  // begins and ends the procedure's live object

    // Private messages of this screen; no parameters unless told.
    enum : UINT {
        kEnterEditor = WM_APP + 1,  // go into the open editor, once the list has done with the tap that opened it
        kGoToPage,                  // wParam: the Page; once the editor that asks for it is out of the way
        kOpenPicker,                // wParam: the property id of the field to pick for; once the tap is done with
        kTypeOn,                    // wParam: a character, for whatever has the focus by then
        kEditSubjects,              // wParam: whether to open the quick subjects before the editor is renewed
    };

    explicit EntryEditor(DbJournal& journal) : EntryForm(journal) {}
    INT_PTR RunModal(Window& owner, const FormRecord& record);

    static INT_PTR CALLBACK Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) noexcept;
    static EntryEditor* live_;

    // ---- Messages (entry_editor.cpp) ----
    INT_PTR OnInitDialog(void* record);
    INT_PTR OnCommand(WORD code, WORD id);
    INT_PTR OnBodyCommand(int id);
    INT_PTR OnBodyNotification(WORD code);
    INT_PTR OnNotify(const NMHDR& header);
    INT_PTR OnListNotify(const NMHDR& header);
    INT_PTR OnDrawItem(const DRAWITEMSTRUCT& draw);
    INT_PTR OnMouseWheel(WPARAM wparam, LPARAM lparam);
    INT_PTR OnSize();
    INT_PTR OnInitMenuPopup(HMENU menu);
    INT_PTR OnOk();
    void Finish();

    // ---- Fields (entry_editor_fields.cpp) ----
    void OnRowChanged(const NMLISTVIEW& change);
    void OnFieldEvent(FieldEvent event);
    void OpenEditor(int row);
    void CloseEditor();
    void LeaveEditor();
    void PlaceEditor();
    void EnterEditor();
    void TypeIntoRow(UINT character);
    void TypeOn(WPARAM character);
    void TakeEntered();
    // Stores the entry, its flags and what its categories are used.
    void WriteEntry();
    void OpenPicker(CEPROPID propid);
    void TakePicked();
    void EditSubjects(bool open);
    void MoveRow(int step);
    bool WantsKey(HWND control, UINT key) const override;
    void OnKey(HWND control, UINT key) override;
    bool IsEditorControl(HWND control) const;

    // ---- Pages (entry_editor_pages.cpp) ----
    void OnTabChosen();
    void GoToPage(Page page);
    void ShowEntryPage();
    void ShowNotePage();
    void UseMenuBar(UINT resource);
    void CheckZoom(int item);
    void ShowViewMode();
    void OnZoom(int item);
    void OnViewMode();
    bool StoreBody();
    void ShowLimitReached();

    DbJItem* picking_ = nullptr;           // the field that a picker is open for
    std::vector<BYTE> pickedBefore_;       // what its categories or contacts were as bytes when the picker opened
    std::unique_ptr<FieldEditor> editor_;  // of the current field; null when none is open
    bool bodyChanged_ = false;             // since it was loaded
    bool editingSubjects_ = false;         // their screen is open
    bool wheeling_ = false;                // the list has the wheel; what it does not want comes back here
    bool closing_ = false;                 // OK is at work
};
