// The panel in which a list of texts is kept: an edit, a list box, and buttons that add, change and delete.
//
//     [ text                     ]
//     | One              | [ Add    ]
//     | Two              | [ Modify ]
//     | Three            | [ Delete ]
#pragma once

#include <string>

#include "ui/dialog.h"
#include "ui/edit.h"
#include "ui/key_watch.h"
#include "ui/list_box.h"

// Selecting a text copies it into the edit. Enter in an edit that was typed into is Add, or with a text selected
// Modify; the Delete key in the list is Delete. After each of them the edit is empty, nothing is selected and the edit
// has the focus. One at a time.
class ListPanel : public Dialog, private KeyListener {
public:
    // Makes the panel as a hidden child of `parent` from the dialog `templateId`, whose controls are IDC_PANEL_...
    bool CreateIn(HWND parent, UINT templateId, int id);

    // Moves the panel; edit and list take the room that there is, the buttons stay at the right.
    void Place(const RECT& place);

    // Fills the list, empties the edit and gives it the focus.
    void Reset();

    // A panel's commands, which the dialog manager may send to the panel's parent instead.
    INT_PTR OnCommand(WORD code, WORD id);

protected:
    // At most so many characters can be typed.
    explicit ListPanel(int limit) : limit_(limit) {}

    ListBox& List() { return list_; }

private:
    // Puts the texts into the empty list.
    virtual void Fill() = 0;
    // Each answers whether the panel is to be reset. `row` is the one that is selected.
    virtual bool Add(const std::wstring& text) = 0;
    virtual bool Modify(int row, const std::wstring& text) = 0;
    virtual bool Delete(int row) = 0;
    // Whether the text can be added, or become another's.
    virtual bool IsAllowed(const std::wstring&) const { return true; }

    friend class Dialog;  // begins and ends the procedure's live object

    static INT_PTR CALLBACK Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) noexcept;
    static ListPanel* live_;

    INT_PTR OnInitDialog(void* data) override;
    bool WantsKey(HWND control, UINT key) const override;
    void OnKey(HWND control, UINT key) override;
    void CopySelected();
    void EnableButtons();
    std::wstring Text() const;

    int limit_;
    Edit text_;
    ListBox list_;
};
