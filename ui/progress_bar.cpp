#include "ui/progress_bar.h"

void ProgressBar::SetRange(int low, int high) {
    SendMessage(PBM_SETRANGE32, static_cast<WPARAM>(low), high);
}

int ProgressBar::SetPosition(int position) {
    return static_cast<int>(SendMessage(PBM_SETPOS, static_cast<WPARAM>(position)));
}

int ProgressBar::GetPosition() const {
    return static_cast<int>(SendMessage(PBM_GETPOS));
}
