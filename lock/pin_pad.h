// The screen on which a password of digits is entered.
#pragma once

#include <string>

#include "ui/dialog.h"
#include "ui/edit.h"

// Its keys are tapped, or typed: digits, C, Backspace for the last digit, Return for OK. There is no Cancel: closing is
// OK with what was entered so far.
class PinPad : public Dialog {
public:
    // What it is asked for; the first of these bits that is set counts.
    enum Mode : WORD {
        kNew = 0x0001,     // a new password; the digits are shown
        kAgain = 0x0010,   // the new password once more; the digits are shown
        kUnlock = 0x0100,  // the password that is set; an X is shown for each digit
    };

    // Runs the pad modally over `owner`, which need not be visible. Answers true when it was ended with OK and puts the
    // digits into `entry`, in the order entered, any number of them. False, and `entry` stays, when it could not be
    // made or went with its owner.
    static bool Run(Window& owner, WORD mode, std::wstring& entry);

private:
    friend class Dialog;  // begins and ends the procedure's live object

    explicit PinPad(WORD mode) : mode_(mode) {}

    static INT_PTR CALLBACK Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) noexcept;
    static PinPad* live_;

    INT_PTR OnInitDialog(void* data);
    INT_PTR OnCommand(WORD code, WORD id);
    INT_PTR OnColorStatic(HDC dc, HWND control) const;
    INT_PTR OnSettingChange(WPARAM wparam, LPARAM lparam);
    bool OnOk();
    void OnDigit(int key);
    void OnBackspace();
    void OnClear();

    // Takes a character typed in any of the controls; false when it is none of the pad's.
    bool OnCharacter(wchar_t character);
    static bool IsOwnCharacter(wchar_t character);
    static LRESULT CALLBACK KeyProcedure(HWND control, UINT message, WPARAM wparam, LPARAM lparam, UINT_PTR,
                                         DWORD_PTR data);

    UINT HeadingText() const;
    void ShowEntry();
    void LayOut();

    WORD mode_;
    std::wstring entry_;
    Edit display_;
    UniqueFont keyFont_;
    UniqueFont headingFont_;
};
