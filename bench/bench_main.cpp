// Measures the journal's operations with 100, 10,000 and 65,000 entries, each beside its bound in the same run and by
// turns with it, and prints a table and one line of JSON for each. Figures mean something in the release build only.
//
//   usage: journal_bench [entries...]
//
//   operation           what is measured                                against
//   open store          the file and the journal opened, one entry      SQLite opened, one row read
//   first jump          half way, in a store just opened                the same, SQLite just opened
//   refresh list        EntryList::RefreshList on the real control      a bare list view told as many rows
//   refresh by range    the same with a filter by two years             a scan of start, subject and categories,
//   refresh by months                          by four months             and the bare list view
//   refresh by category                        by two categories
//   count by ...        what these three ask of the store               the scan
//   select all          every row, and every entry remembered            a bare list view
//   refresh, all selected                                                a bare list view, as many rows selected
//   select entry 0      nothing selected any more, after one row         a bare list view
//   refresh, one forgotten  one row selected, no current entry           a bare list view, emptied and filled
//   scroll a page       on the real control, drawn                       a bare list view with ready texts
//   scroll by ...       the same, filtered                               the same
//   category match      the filter asked for every entry, in memory     a loop that compares ids
//   first page          thirty rows through the list's cache            one statement with LIMIT 30
//   jump to middle      the same from half way                          the same by start >= ?
//   jump to end         the same from the end                           the same backward
//   page by category    from half way, filtered by two categories       the same rows out of one statement
//   show menu           the menu of the button "Show" made              a menu of as many items
//   walk all            start, subject, categories of all, in order     a scan of these columns
//   scan all            the same in no order (CeScanRecords)            a scan of these columns
//   note texts          the plain text of all bodies out of the store   a scan of their bytes
//   note texts, control                           by a hidden control   a scan of their bytes
//   100 foreign notes   bodies that do not carry it                     a scan of as many
//   export ...          every entry with every field, its note included   every value as stored, into a file
//   ... flushes         how often the file was flushed
//   find ...            a search through all: subjects, notes, starts   a scan of the column with instr; of the starts
//   find subject, first the same in a store just opened                 the same, SQLite just opened
//   insert, update, delete an entry                                     the bare statements
//   change sort         from start to subject                           building the same index
//   start up            journal.exe, from the start until it waits      a program with an empty window
#include <win.h>

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include "bench/bench.h"
#include "bench/journal_store.h"
#include "bench/start_up.h"

Bench::Bench(Report& report, const std::filesystem::path& folder, unsigned entries)
    : report_(report), folder_(folder), entries_(entries), bare_((folder / "bare.db").wstring(), entries) {
    FillJournal(entries);
    Require(CeUnmountObjectStore(), "closing the filled store");
}

void Bench::Run() {
    OpenStore();
    Require(journal_.Open(nullptr) != 0, "opening the journal");
    RefreshList();
    Selection();
    CategoryMatch();
    Pages();
    ShowMenu();
    WalkAll();
    NoteTexts();
    Export();
    Find();
    Writes();
    ChangeSort();
    FirstFind();
    journal_.Close();
    Require(CeUnmountObjectStore(), "closing the store");
    StartUp();
    report_.AddMemory(entries_);
}

void Bench::StartUp() {
    const double time = MeasureStart(JournalProgram(), L"");
    if (time == 0) {
        std::fprintf(stderr, "  no journal.exe beside this program: start up is not measured\n");
        return;
    }
    Add("start up", time, MeasureStart(OwnProgram(), L"--empty-window"), "empty window");
}

namespace {

std::filesystem::path PrivateFolder() {
    wchar_t temp[MAX_PATH + 1] = {};
    GetTempPathW(MAX_PATH + 1, temp);
    return std::filesystem::path(temp) / (L"journal-bench-" + std::to_wstring(GetCurrentProcessId()));
}

}  // namespace

int main(int count, char** arguments) {
    std::vector<unsigned> sizes;
    for (int i = 1; i < count; ++i) {
        if (std::strcmp(arguments[i], "--empty-window") == 0) return ShowEmptyWindow();
        const unsigned size = static_cast<unsigned>(std::strtoul(arguments[i], nullptr, 10));
        if (size < 100 || size > 65'000) {
            std::fprintf(stderr, "usage: journal_bench [entries...]     each between 100 and 65000\n");
            return 2;
        }
        sizes.push_back(size);
    }
    if (sizes.empty()) sizes = {100, 10'000, 65'000};

    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
    Report report;
    const std::filesystem::path root = PrivateFolder();
    std::error_code ignored;
    std::filesystem::remove_all(root, ignored);  // of a run that failed
    for (const unsigned size : sizes) {
        const std::filesystem::path folder = root / std::to_wstring(size);
        std::filesystem::create_directories(folder);
        SetEnvironmentVariableW(L"CE_OBJECT_STORE", (folder / "store.db").wstring().c_str());
        Bench(report, folder, size).Run();
    }
    report.Print();
    std::filesystem::remove_all(root, ignored);
    return 0;
}
