#include <storebatch.h>
#include <win.h>

#include "data/category_recount.h"
#include "tools/journal_tool/commands.h"
#include "tools/journal_tool/console.h"
#include "tools/journal_tool/store_access.h"

namespace {

void CALLBACK PrintProblem(LPCWSTR problem, void*) {
    Print(std::wstring(problem) + L"\n");
}

// Nothing else can be written between the count and its mending.
bool Mend(ConsoleJournal& journal, ConsoleCategories& categories) {
    if (!CeBeginBatch()) {
        ComplainAboutStore(L"the counts of the categories are wrong and cannot be written");
        return false;
    }
    std::vector<WrongUseCount> wrong;
    const bool written = FindWrongUseCounts(journal, categories, &wrong) && MendUseCounts(categories, wrong);
    if (!written) {
        CeCancelBatch();
        return false;
    }
    if (!CeCommitBatch()) {
        ComplainAboutStore(L"the counts of the categories are wrong and were not saved");
        return false;
    }
    for (const WrongUseCount& count : wrong)
        Print(L"mended: the category \"" + count.name + L"\" counted " + Entries(count.counted) + L", " +
              std::to_wstring(count.uses) + (count.uses == 1 ? L" has it\n" : L" have it\n"));
    return true;
}

bool CheckUseCounts(ConsoleJournal& journal) {
    ConsoleCategories categories;
    std::vector<WrongUseCount> wrong;
    if (!OpenOrComplain(categories) || !FindWrongUseCounts(journal, categories, &wrong)) return false;
    return wrong.empty() || Mend(journal, categories);
}

}  // namespace

int CheckCommand(Arguments arguments) {
    if (!arguments.empty()) {
        Complain(L"check takes nothing more");
        return kExitUsage;
    }
    if (!StoreIsThere()) return kExitIncomplete;
    if (!CeCheckObjectStore(PrintProblem, nullptr)) {
        // A store that cannot be read just now may be as sound as any.
        ComplainAboutStore(GetLastError() == ERROR_FILE_CORRUPT ? L"the store is not sound"
                                                                : L"the store cannot be checked");
        return kExitIncomplete;
    }
    ConsoleJournal journal;
    if (!OpenOrComplain(journal)) return kExitIncomplete;
    if (!CheckUseCounts(journal)) return kExitIncomplete;
    DWORD limit = 0;
    if (CeObjectStoreLimit(&limit) && limit == ERROR_DISK_FULL) {
        Print(L"the disk is full: the store can be read, and nothing written into it\n");
    }
    Print(L"the store is sound; the journal holds " + Entries(journal.GetRecordCount()) + L"\n");
    return kExitDone;
}
