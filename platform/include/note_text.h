// The plain text that a note's stream carries beside its rich text, in a destination that readers of rich text ignore:
// {\*\plainnote <hash> <text>}. Whoever wants only the text need not lay the note out.
//
// The hash is over all other bytes of the stream. A stream that somebody has changed, or cut, does not answer to it;
// then only its rich text counts, so that the two never disagree.
#pragma once

#include <string>
#include <string_view>

#include "cehost.h"

// Puts `text`, with CR LF line ends, into a stream that has none yet. A stream without a group inside, such as one
// without fonts, stays as it is.
CEHOST_API void AddNoteText(std::string* stream, std::wstring_view text);

// Gets that text into *text, whose memory is used again. False, with *text empty, when there is none or it does not
// belong to this stream.
CEHOST_API bool GetNoteText(std::string_view stream, std::wstring* text);
