// The text of a date, as every system is meant to make it. Whoever calls GetDateFormatW includes this.
#pragma once

#include <win.h>

#include "cehost.h"

// GetDateFormatW, with its arguments, its result and its last error. An era ("g" or "gg" in a picture, be it the
// caller's or the locale's own) stands once in the text, also where the system writes one for every letter.
CEHOST_API int CeGetDateFormat(LCID locale, DWORD flags, const SYSTEMTIME* date, LPCWSTR picture, LPWSTR text,
                               int size);
#define GetDateFormatW CeGetDateFormat
