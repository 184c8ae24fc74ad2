#include <storebatch.h>
#include <win.h>

#include "tools/journal_tool/commands.h"
#include "tools/journal_tool/console.h"
#include "tools/journal_tool/store_access.h"

namespace {

void CALLBACK PrintProblem(LPCWSTR problem, void*) {
    Print(std::wstring(problem) + L"\n");
}

}  // namespace

int CheckCommand(Arguments arguments) {
    if (!arguments.empty()) {
        Complain(L"check takes nothing more");
        return kExitUsage;
    }
    if (!CeCheckObjectStore(PrintProblem, nullptr)) {
        ComplainAboutStore(L"the store is not sound");
        return kExitIncomplete;
    }
    ConsoleJournal journal;
    if (!OpenOrComplain(journal)) return kExitIncomplete;
    Print(L"the store is sound; the journal holds " + std::to_wstring(journal.GetRecordCount()) + L" entries\n");
    return kExitDone;
}
