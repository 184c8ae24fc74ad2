// The tool's commands, one file each. They answer the program's exit code.
#pragma once

#include <span>

enum ExitCode : int {
    kExitDone = 0,
    kExitIncomplete = 1,  // something was skipped or failed; what, was said
    kExitUsage = 2,       // the command line makes no sense; nothing was done
};

// What follows the command on the command line.
using Arguments = std::span<wchar_t* const>;

// seed N: adds N made-up entries, always the same ones.
int SeedCommand(Arguments arguments);
// load FILE: adds the entries of a file of tab-separated values.
int LoadCommand(Arguments arguments);
// list [N]: prints the first N entries, or all, in the journal's order.
int ListCommand(Arguments arguments);
// check: verifies that the store is sound, and mends counts of uses.
int CheckCommand(Arguments arguments);
