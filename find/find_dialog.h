// The screen that asks what to look for.
#pragma once

#include "find/find_request.h"
#include "ui/button.h"
#include "ui/combo_box.h"
#include "ui/date_picker.h"
#include "ui/dialog.h"

class FindDialog : public Dialog {
public:
    // Runs the screen modally over `owner`. It starts with what the settings remember, and with the request's date and
    // text. Answers IDOK when there is something to look for: the request holds it then, and the settings have its
    // choices and its text, as the first of the last ten. IDCANCEL when the user left: of the request only "Match" may
    // have changed. -1 when the screen cannot be made, or is open already and comes to the front.
    static INT_PTR Run(Window& owner, FindRequest& request);

private:
    friend class Dialog;  // begins and ends the procedure's live object

    explicit FindDialog(FindRequest& request) : request_(request) {}

    static INT_PTR CALLBACK Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) noexcept;
    static FindDialog* live_;

    // ---- Messages ----
    INT_PTR OnInitDialog(void* data);
    INT_PTR OnCommand(WORD id);
    INT_PTR OnSettingChange(WPARAM wparam, LPARAM lparam);

    // ---- Start ----
    void AttachControls();
    bool MakeTextBox();
    void ShowSettings();
    void ShowHistory();

    // ---- Choices ----
    SearchBy ChosenBy() const;
    void OnSearchBy();
    void OnMatchCase();
    void OnOk();
    void TakeText();

    // ---- Layout (find_dialog_layout.cpp) ----
    void LayOut();
    void PlaceText(const RECT& place);

    FindRequest& request_;
    Button byDate_;
    Button bySubject_;
    Button byEntry_;
    Button fromTop_;
    Button fromCurrent_;
    Button matchCase_;
    DatePicker date_;
    ComboBox text_;
};
