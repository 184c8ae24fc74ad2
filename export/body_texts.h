// The plain text of entries' bodies, as the control that shows them reads it.
#pragma once

#include <windbase.h>

#include <string>

#include "ui/rich_ink.h"

class BodyTexts {
public:
    // Makes a hidden control in the parent, whose window destroys it. Where it cannot be made every text is empty.
    explicit BodyTexts(HWND parent);

    void Read(const CEBLOB& body, std::wstring& text);

private:
    RichInk control_;
};
