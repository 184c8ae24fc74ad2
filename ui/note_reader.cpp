#include "ui/note_reader.h"

#include <note_text.h>

#include <vector>

bool NoteReader::Read(const BYTE* bytes, size_t count, std::wstring& text) {
    if (GetNoteText({reinterpret_cast<const char*>(bytes), count}, &text)) return true;
    if (!control_.IsWindow()) {
        // As wide as a screen and with its scroll bar always there: whatever the control lays out it lays out once.
        control_.CreateIn(parent_, id_, WS_VSCROLL | ES_DISABLENOSCROLL | ES_MULTILINE | ES_AUTOVSCROLL,
                          {0, 0, 640, 480});
    }
    if (!control_.IsWindow() || !control_.StreamIn(SF_RTF, std::vector<BYTE>(bytes, bytes + count))) return false;
    text = control_.StreamOutText();
    return true;
}
