// Measures the journal's operations with 100, 10,000 and 65,000 entries, each beside its bound in the same run, and
// prints a table and one line of JSON for each. Figures mean something in the release build only.
//
//   usage: journal_bench [entries...]
//
//   open store       the file and the journal opened, the first entry found      against: SQLite opened, one row read
//   refresh list     EntryList::RefreshList without a filter, on the real control against: a bare list view
//   first page       thirty rows from the start, through the list's cache        against: one statement with LIMIT 30
//   jump to middle   the same from half way                                       against: the same by start >= ?
//   jump to end      the same from the end                                        against: the same backward
//   first jump       half way, in a store just opened                             against: the same, SQLite just opened
//   walk all         each entry's start, subject and categories                   against: a scan of these columns
//   insert, update, delete an entry                                               against: the bare statements
//   change sort      from start to subject                                        against: building the same index
//   start up         journal.exe, from the start until it waits                   against: a program with an empty
//   window
#include <win.h>

#include <storebatch.h>

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <iterator>
#include <string>
#include <vector>

#include "bench/bare_database.h"
#include "bench/journal_store.h"
#include "bench/report.h"
#include "bench/start_up.h"
#include "data/field_ids.h"
#include "data/record_buffer.h"
#include "filter/filter_settings.h"
#include "list/entry_list.h"
#include "list/row_cache.h"
#include "list/store_rows.h"

namespace {

constexpr LONG kPage = 30;
constexpr int kRuns = 31;
constexpr int kWriteRuns = 51;
constexpr int kSlowRuns = 5;

class Bench {
public:
    Bench(Report& report, const std::filesystem::path& folder, unsigned entries)
        : report_(report), entries_(entries), bare_((folder / "bare.db").wstring(), entries) {
        FillJournal(entries);
        Require(CeUnmountObjectStore(), "closing the filled store");
    }

    void Run() {
        OpenStore();
        Require(journal_.Open(nullptr) != 0, "opening the journal");
        RefreshList();
        Pages();
        WalkAll();
        Writes();
        ChangeSort();
        journal_.Close();
        Require(CeUnmountObjectStore(), "closing the store");
        StartUp();
        report_.AddMemory(entries_);
    }

private:
    void Add(const char* operation, double time, double bound, const char* against) {
        report_.Add({operation, entries_, time, bound, against});
    }

    void OpenStore() {
        const auto close = [&] {
            journal_.Close();
            CeUnmountObjectStore();
        };
        const double time = Measure(
            kRuns, [&] { Require(journal_.Open(nullptr) != 0, "opening the journal"); }, close);
        Add("open store", time, Measure(kRuns, [&] { bare_.Reopen(); }), "SQLite opened, one row");
        StoreRows rows(journal_, filter_);
        RowCache cache(rows);
        const auto reopen = [&] {
            close();
            journal_.Open(nullptr);
            cache.Clear();
        };
        const double jump = Measure(
            kRuns, [&] { ReadPage(cache, Middle()); }, reopen);
        const double bound = Measure(
            kRuns, [&] { bare_.ReadMiddlePage(); }, [&] { bare_.Reopen(); });
        Add("first jump", jump, bound, "30 rows, start >= ?, just opened");
        close();
    }

    void RefreshList() {
        SelectionMemory selection;
        EntryList list(journal_, selection, filter_);
        const HWND parent = CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 240, 320,
                                            nullptr, nullptr, nullptr, nullptr);
        Require(list.CreateIn(parent, {0, 0, 240, 294}), "making the list");
        ::ShowWindow(list.GetHandle(), SW_SHOW);
        const double time = Measure(kRuns, [&] { list.RefreshList(); });
        DestroyWindow(parent);
        Add("refresh list", time, MeasureBareList(), "bare list view, as many rows");
    }

    // A list view of the system's own that is emptied and told the number of rows, and a row from SQLite. What the
    // control itself takes for more rows is in the bound.
    double MeasureBareList() {
        const HWND parent = CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 240, 320,
                                            nullptr, nullptr, nullptr, nullptr);
        const HWND list = CreateWindowExW(0, WC_LISTVIEWW, L"", WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_OWNERDATA, 0,
                                          0, 240, 294, parent, nullptr, nullptr, nullptr);
        LVCOLUMNW column = {};
        column.mask = LVCF_WIDTH;
        column.cx = 60;
        ::SendMessageW(list, LVM_INSERTCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
        column.cx = 180;
        ::SendMessageW(list, LVM_INSERTCOLUMNW, 1, reinterpret_cast<LPARAM>(&column));
        const double time = Measure(kRuns, [&] {
            ::SendMessageW(list, LVM_DELETEALLITEMS, 0, 0);
            bare_.ReadCount();
            ::SendMessageW(list, LVM_SETITEMCOUNT, entries_, 0);
        });
        DestroyWindow(parent);
        return time;
    }

    LONG Middle() const { return static_cast<LONG>(entries_ / 2); }

    void ReadPage(RowCache& cache, LONG first) {
        const LONG last = std::min(first + kPage, static_cast<LONG>(entries_)) - 1;
        cache.Hint(first, last, static_cast<LONG>(entries_));
        for (LONG row = first; row <= last; ++row)
            Require(cache.Fetch(row).id != 0, "reading a row");
    }

    void Pages() {
        StoreRows rows(journal_, filter_);
        RowCache cache(rows);
        const auto page = [&](LONG first) {
            return Measure(
                kRuns, [&] { ReadPage(cache, first); }, [&] { cache.Clear(); });
        };
        Add("first page", page(0), Measure(kRuns, [&] { bare_.ReadFirstPage(); }), "30 rows from the start");
        Add("jump to middle", page(Middle()), Measure(kRuns, [&] { bare_.ReadMiddlePage(); }), "30 rows, start >= ?");
        Add("jump to end", page(static_cast<LONG>(entries_) - kPage), Measure(kRuns, [&] { bare_.ReadLastPage(); }),
            "30 rows from the end");
    }

    void WalkAll() {
        CEPROPID ids[] = {kPropStart, kPropSubject, kPropCategories};
        const auto walk = [&] {
            unsigned seen = 0;
            for (CEOID record = journal_.SeekFirst(); record != 0; record = journal_.SeekNext()) {
                WORD count = static_cast<WORD>(std::size(ids));
                RecordBuffer values;
                if (journal_.ReadRecordProps(&count, ids, values.Put()) != 0) ++seen;
            }
            Require(seen == entries_, "walking over all entries");
        };
        Add("walk all", Measure(kSlowRuns, walk), Measure(kSlowRuns, [&] { bare_.ReadAll(); }),
            "scan of these columns");
    }

    void Writes() {
        const SampleEntry entry = MakeSampleEntry(123'456);
        std::vector<CEOID> added;
        const double insert = Measure(kWriteRuns, [&] { added.push_back(WriteSample(journal_, 0, entry)); });
        Add("insert", insert, Measure(kWriteRuns, [&] { bare_.Insert(entry); }), "two INSERTs, one commit");
        CEPROPVAL subject = {};
        subject.propid = kPropSubject;
        subject.val.lpwstr = const_cast<LPWSTR>(L"ab");
        const double update = Measure(kWriteRuns, [&] { journal_.WriteRecordProps(added[0], 1, &subject); });
        Add("update", update, Measure(kWriteRuns, [&] { bare_.Update(); }), "UPDATE");
        const double remove = Measure(kWriteRuns, [&] {
            journal_.DeleteRecord(added.back());
            added.pop_back();
        });
        Add("delete", remove, Measure(kWriteRuns, [&] { bare_.DeleteLast(); }), "two DELETEs, one commit");
    }

    void ChangeSort() {
        const SORTORDERSPEC bySubject = {kPropSubject, CEDB_SORT_CASEINSENSITIVE};
        const SORTORDERSPEC byStart = {kPropStart, 0};
        const double time = Measure(
            kSlowRuns, [&] { Require(journal_.SetSortOrder(&bySubject, 1), "sorting by subject"); },
            [&] { Require(journal_.SetSortOrder(&byStart, 1), "sorting by start"); });
        const double bound = Measure(
            kSlowRuns, [&] { bare_.SortBySubject(); }, [&] { bare_.SortByStart(); });
        Add("change sort", time, bound, "CREATE INDEX of the same key");
        Require(journal_.SetSortOrder(&byStart, 1), "sorting by start");
    }

    void StartUp() {
        const double time = MeasureStart(JournalProgram(), L"");
        if (time == 0) {
            std::fprintf(stderr, "  no journal.exe beside this program: start up is not measured\n");
            return;
        }
        Add("start up", time, MeasureStart(OwnProgram(), L"--empty-window"), "empty window");
    }

    Report& report_;
    const unsigned entries_;
    BareDatabase bare_;
    DbJournal journal_;
    FilterSettings filter_;
};

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
    for (const unsigned size : sizes) {
        const std::filesystem::path folder = root / std::to_wstring(size);
        std::filesystem::create_directories(folder);
        SetEnvironmentVariableW(L"CE_OBJECT_STORE", (folder / "store.db").wstring().c_str());
        Bench(report, folder, size).Run();
    }
    report.Print();
    std::error_code ignored;
    std::filesystem::remove_all(root, ignored);
    return 0;
}
