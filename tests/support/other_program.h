// Another program of the tests, which uses the same store.
#pragma once

#include <win.h>

#include <string>

// Runs `program` (a file beside the test's own) with the words on its command line and answers its exit code when it
// has ended.
DWORD RunOtherProgram(const std::wstring& program, const std::wstring& words);
