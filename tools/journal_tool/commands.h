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
// load FILE: adds the entries of a file of tab-separated values; - is the standard input.
int LoadCommand(Arguments arguments);
// list [N]: prints the first N entries, or all, in the journal's order.
int ListCommand(Arguments arguments);
// import FILE...: puts people, appointments and tasks of vCard and iCalendar files into Pocket Outlook.
int ImportCommand(Arguments arguments);
// contacts, appointments, tasks: print what Pocket Outlook holds, with its object ids.
int ContactsCommand(Arguments arguments);
int AppointmentsCommand(Arguments arguments);
int TasksCommand(Arguments arguments);
// link KIND ID: asks the running journal to begin an entry for a Pocket Outlook item.
int LinkCommand(Arguments arguments);
// export --csv|--text FILE: writes every entry into a file, as the journal's own export does.
int ExportCommand(Arguments arguments);
// backup FILE: copies the whole store, also while it is in use.
int BackupCommand(Arguments arguments);
// restore FILE: makes such a copy the store.
int RestoreCommand(Arguments arguments);
// check: verifies that the store is sound, and mends counts of uses.
int CheckCommand(Arguments arguments);
