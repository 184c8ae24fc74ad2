// Static control: a line of text, or a picture.
#pragma once

#include "ui/control.h"

class StaticText : public Control {
public:
    StaticText() : Control(WC_STATICW) {}

    // The image (IMAGE_BITMAP or IMAGE_ICON) of a picture control. Answers the one before; the caller owns both.
    HANDLE SetImage(UINT type, HANDLE image);
};
