// The program's objects and its entry function.
#include "app/journal_app.h"
#include "data/db_journal.h"
#include "filter/filter_settings.h"
#include "list/selection_memory.h"

namespace {

// Made before the entry function runs. At the end the application object goes first, and the main window with it: the
// window uses the other three.
SelectionMemory selection;
DbJournal journal;
FilterSettings filter;
JournalApp application(journal, selection, filter);

}  // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, PWSTR, int showFlag) {
    return application.InitInstance(instance, showFlag) ? application.Run() : 0;
}
