// Whether an enhanced metafile from a note can be played. The system follows the counts, places and handles in its
// records without a doubt, and takes as long as they want.
#pragma once

#include <win.h>

#include <string_view>

// True when `bytes` are a header and records of lines, shapes, pens, brushes and mapping up to the last, all fields of
// which have been checked: sizes, counts, handles, and that nothing lies or reaches absurdly far when the picture is
// drawn `area` pixels large. False for any other record, such as text and bitmaps.
bool IsPlayableMetafile(std::string_view bytes, SIZE area);

// Plays a metafile that is playable into `area`, and nothing outside it. False when it was given up because it took
// longer than `milliseconds`; half of it may be drawn then.
bool PlayMetafile(HDC dc, std::string_view bytes, const RECT& area, DWORD milliseconds);
