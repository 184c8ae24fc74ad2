#include <win.h>

#include "tools/journal_tool/commands.h"
#include "tools/journal_tool/console.h"
#include "tools/journal_tool/entry_writer.h"
#include "tools/journal_tool/lifelike.h"
#include "tools/journal_tool/number_argument.h"

int SeedCommand(Arguments arguments) {
    int count = 0;
    if (arguments.size() != 1 || !ReadNumberArgument(arguments[0], CEDB_MAXNUMRECORDS, &count)) {
        Complain(L"seed needs a number from 1 to 65535");
        return kExitUsage;
    }
    EntryWriter writer;
    if (!writer.Open()) return kExitIncomplete;
    bool stored = true;
    for (int number = 0; stored && number < count; ++number)
        stored = writer.Add(MakeLifelikeEntry(number));
    stored = writer.Finish() && stored;
    Print(Entries(writer.GetSaved()) + L" added\n");
    return stored ? kExitDone : kExitIncomplete;
}
