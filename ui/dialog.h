// A window made from a dialog template, and the block through which its procedure finds the object.
//
// A screen is a class derived from Dialog with one static procedure and one static pointer to its live object:
//
//     INT_PTR CALLBACK Lock::Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) noexcept {
//         switch (message) {
//         case WM_INITDIALOG:    return Begin(hwnd, lparam, live_);  // attaches, then OnInitDialog(data)
//         case WM_COMMAND:       return live_ ? live_->OnCommand(HIWORD(wparam), LOWORD(wparam)) : FALSE;
//         case WM_SETTINGCHANGE: return live_ ? live_->HandleSettingChange(wparam, lparam) : FALSE;
//         case WM_NCDESTROY:     return End(live_);
//         default:               return FALSE;
//         }
//     }
//
// Messages that come before WM_INITDIALOG (WM_SETFONT does) or after the end find no live object: not handled.
#pragma once

#include <cassert>

#include "ui/window.h"

class DialogParams;

class Dialog : public Window {
public:
    Dialog() = default;

    // Without these, the names below would hide the window's own.
    using Window::ClientToScreen;
    using Window::IsVisible;
    using Window::ScreenToClient;
    using Window::Show;

    // The item (control) with that id, 0 when the dialog has none.
    virtual HWND GetDlgItem(int id) const;
    // False when the dialog has no such item.
    virtual bool EnableItem(int id, bool enable = true);
    // The visibility of one item; hidden with its dialog counts as visible. False when there is no such item.
    virtual bool IsVisible(int id) const;
    virtual bool Show(int id, bool show);
    // End the dialog with result 1 and 0. A dialog that always ends with EndCancel always answers 0, whatever it did.
    virtual bool EndOk();
    virtual bool EndCancel();
    // The rectangle of an item, in client coordinates of the dialog and on the screen. False, with an empty rectangle,
    // when there is no such item.
    virtual bool ScreenToClient(int id, RECT* rect) const;
    virtual bool ClientToScreen(int id, RECT* rect) const;
    // Places the dialog in the work area: x = (right - width) / 2, y = (bottom - height) / 3, never above 0. High on
    // purpose: clear of the input panel.
    virtual bool Centre();
    // Passes WM_SETTINGCHANGE to the shell, which fits the dialog above the input panel. Answers what the shell did.
    virtual BOOL HandleSettingChange(WPARAM wparam, LPARAM lparam);
    // The shell's initialisation of a dialog with SHIDIF_ flags.
    virtual bool InitDialog(DWORD flags);
    // Attaches a handle only when none is attached. True when the object has a handle afterwards.
    virtual bool AttachIfNone(HWND handle);
    // Runs the dialog template `templateId` of `instance` modally over `owner`. `procedure` gets `params` as the
    // lParam of WM_INITDIALOG. Answers the result given to EndDialog, -1 when the template is missing or bad. A screen
    // is open once at most: when a dialog of that procedure runs already, whoever asked for another, that one comes to
    // the front, and the answer is -1 at once.
    virtual INT_PTR DoModal(HINSTANCE instance, UINT templateId, HWND owner, DLGPROC procedure, DialogParams* params);
    // The same without waiting: answers the dialog, 0 on failure. `params` must live until WM_INITDIALOG is over.
    virtual HWND CreateModeless(HINSTANCE instance, UINT templateId, HWND owner, DLGPROC procedure,
                                DialogParams* params);

protected:
    // The screen's own initialisation, with the data of the parameter block. Answers as a dialog procedure does to
    // WM_INITDIALOG: TRUE to let the system set the focus. Here: TRUE.
    virtual INT_PTR OnInitDialog(void* data);

    // The beginning every dialog shares: takes the object out of the parameter block, keeps it in the procedure's
    // `live` pointer, attaches the handle, lets the shell initialise the dialog (an OK button, sized to the screen) and
    // ends with OnInitDialog, whose answer it returns. A WM_INITDIALOG that no dialog of ours begins with (anybody may
    // send one) is not handled.
    template <class Screen>
    static INT_PTR Begin(HWND hwnd, LPARAM lparam, Screen*& live);

    // The same for a dialog that is a panel in another one: the shell has nothing to do with it.
    template <class Screen>
    static INT_PTR BeginPanel(HWND hwnd, LPARAM lparam, Screen*& live);

    // The end every dialog shares, at WM_NCDESTROY: forgets the handle and the live object.
    template <class Screen>
    static INT_PTR End(Screen*& live);

    // SHIDIF_DONEBUTTON | SHIDIF_SIZEDLG
    static constexpr DWORD kInitFlags = 3;

private:
    // The parameter block that WM_INITDIALOG came with, once for each dialog made; null for any other lParam.
    static const DialogParams* TakeParams(LPARAM lparam);
    static const Dialog* FindOpen(DLGPROC procedure);

    static Dialog* top_;              // the modal dialog begun last
    static DialogParams* beginning_;  // of the dialog that is being made

    Dialog* below_ = nullptr;  // the modal dialog that was on top when this one was begun
    DLGPROC procedure_ = nullptr;
    SHACTIVATEINFO activation_ = {};
};

// What a dialog is run with. Made by the caller, together with the dialog; owns neither.
class DialogParams {
public:
    explicit DialogParams(Dialog* object, void* callerData = nullptr) : data(callerData), dialog(object) {}
    virtual ~DialogParams() = default;

    void* data;  // the shared record the screen works on, as its OnInitDialog expects it
    Dialog* dialog;
};

// Change notifications of the object store have the numbers WM_USER+1 to +6, two of which a dialog takes for its own
// (DM_SETDEFID, DM_REPOSITION). The procedure of a dialog that a store notifies answers TRUE for all of them, so that
// no change of a record moves the default button:
//
//     default: return IsStoreNotification(message) ? TRUE : FALSE;
constexpr bool IsStoreNotification(UINT message) {
    return message >= WM_USER + 1 && message <= WM_USER + 6;
}

template <class Screen>
INT_PTR Dialog::Begin(HWND hwnd, LPARAM lparam, Screen*& live) {
    const DialogParams* params = TakeParams(lparam);
    if (params == nullptr) return FALSE;
    assert(live == nullptr);  // DoModal sees to it, and whoever makes a panel
    Dialog& dialog = *params->dialog;
    live = static_cast<Screen*>(&dialog);
    dialog.Attach(hwnd);
    dialog.InitDialog(kInitFlags);
    return dialog.OnInitDialog(params->data);
}

template <class Screen>
INT_PTR Dialog::BeginPanel(HWND hwnd, LPARAM lparam, Screen*& live) {
    const DialogParams* params = TakeParams(lparam);
    if (params == nullptr) return FALSE;
    assert(live == nullptr);  // DoModal sees to it, and whoever makes a panel
    Dialog& dialog = *params->dialog;
    live = static_cast<Screen*>(&dialog);
    dialog.Attach(hwnd);
    return dialog.OnInitDialog(params->data);
}

template <class Screen>
INT_PTR Dialog::End(Screen*& live) {
    if (live == nullptr) return FALSE;
    live->Detach();
    live = nullptr;
    return FALSE;
}
