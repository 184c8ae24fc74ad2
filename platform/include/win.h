// The one header that includes the system's: everybody sees the same macros, and with them the same names.
//
// The system's macros rename whatever is called SendMessage, PostMessage, MessageBox, GetWindowLong or GetClassName
// (to ...W). A class with a method of such a name would have one shape in files that saw <windows.h> and another in
// files that did not; so no file of ours includes a system header by itself.
#pragma once

#ifndef UNICODE
#define UNICODE
#endif
#ifndef _UNICODE
#define _UNICODE
#endif
#ifndef STRICT
#define STRICT
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif

// clang-format off
#include <windows.h>
#include <commctrl.h>
#include <commdlg.h>
#include <objbase.h>
#include <oleauto.h>
#include <richedit.h>
#include <richole.h>
#include <shellapi.h>
#include <shlobj.h>
#include <shlwapi.h>
#include <tom.h>
// clang-format on
