// What the full-screen windows have in common in which something is picked: the frame, OK, closing, resizing.
#pragma once

#include "ui/dialog.h"

// OK, Enter, Escape and the close box are the same: whatever was done has been done already. One at a time.
class PickerScreen : public Dialog {
protected:
    // Runs the screen modally over `owner`. Answers IDOK, or -1 when it cannot be opened.
    INT_PTR RunModal(HWND owner);

    // Makes the controls and sets the focus. False: the screen does not open.
    virtual bool OnOpen() = 0;
    // Fits the controls into the client area, device pixels.
    virtual void LayOut(const RECT& client) = 0;
    // Commands but OK, answered as dialog procedures do.
    virtual INT_PTR OnCommand(WORD code, WORD id);
    // Answers the notification's result.
    virtual LRESULT OnNotify(const NMHDR& header);
    // A control that the screen draws itself.
    virtual void OnDrawItem(const DRAWITEMSTRUCT&) {}

private:
    friend class Dialog;  // begins and ends the procedure's live object

    static INT_PTR CALLBACK Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) noexcept;
    static PickerScreen* live_;

    INT_PTR OnInitDialog(void* data) override;
    void FitToWindow();

    bool open_ = false;  // the controls are there
};
