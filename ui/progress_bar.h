// Progress bar.
#pragma once

#include "ui/control.h"

class ProgressBar : public Control {
public:
    ProgressBar() : Control(PROGRESS_CLASSW) {}

    void SetRange(int low, int high);
    // Answers the position before.
    int SetPosition(int position);
    int GetPosition() const;
};
