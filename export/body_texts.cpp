#include "export/body_texts.h"

#include <vector>

#include "res/ids.h"

BodyTexts::BodyTexts(HWND parent) {
    // As wide as a screen and with its scroll bar always there: whatever the control lays out it lays out once.
    control_.CreateIn(parent, IDC_EXPORT_BODY, WS_VSCROLL | ES_DISABLENOSCROLL | ES_MULTILINE | ES_AUTOVSCROLL,
                      {0, 0, 640, 480});
}

void BodyTexts::Read(const CEBLOB& body, std::wstring& text) {
    text.clear();
    if (!control_.IsWindow()) return;
    if (control_.StreamIn(SF_RTF, std::vector<BYTE>(body.lpb, body.lpb + body.dwCount)))
        text = control_.StreamOutText();
}
