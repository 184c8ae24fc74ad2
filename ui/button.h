// Push button, check box or radio button.
#pragma once

#include "ui/control.h"

class Button : public Control {
public:
    Button() : Control(WC_BUTTONW) {}

    bool IsChecked() const;
    void SetChecked(bool checked);
    // Acts as if it were tapped: the parent gets BN_CLICKED. Radio buttons are set this way at the start of a dialog,
    // so that their own handler sets the controls that depend on them.
    void Click();
};
