// A whole stream at once: the callbacks of EDITSTREAM on the one side, bytes in memory on the other.
#pragma once

#include <win.h>

#include <string>
#include <string_view>

// Reads until the callback gives no more. 0, or the error that the callback answered; ERROR_INVALID_DATA when it claims
// more than it was asked for, ERROR_FILE_TOO_LARGE beyond 64 MB.
DWORD ReadAll(const EDITSTREAM& stream, std::string* bytes);

// Gives the callback all bytes. 0, or its error; ERROR_WRITE_FAULT when it takes none or too many.
DWORD WriteAll(const EDITSTREAM& stream, std::string_view bytes);

// Streams of the system's rich edit, through its own procedure. Errors as above or the rich edit's.
DWORD LoadInto(WNDPROC richEdit, HWND control, UINT format, const std::string& bytes);
DWORD SaveFrom(WNDPROC richEdit, HWND control, UINT format, std::string* bytes);
