// The plain text of notes, one after another: for whoever searches or writes them out and shows none.
#pragma once

#include <win.h>

#include <string>

#include "ui/rich_ink.h"

class NoteReader {
public:
    // `parent` gets a hidden control with that id once a note comes whose stream does not tell its text; it goes with
    // the parent, which must outlive the reader. Where it cannot be made, such notes are empty.
    NoteReader(HWND parent, int id) : parent_(parent), id_(id) {}

    // The text of a note's stream as the control would show it, with CR LF line ends and without its ink, into `text`,
    // whose memory is used again. False, with an empty text, for what is no note.
    //
    // A note of ours costs little more than to look at its bytes. For one of another program, or of an older version,
    // the control has to lay it out: about a thousand times as much.
    bool Read(const BYTE* bytes, size_t count, std::wstring& text);

private:
    HWND parent_;
    int id_;
    RichInk control_;
};
