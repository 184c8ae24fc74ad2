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
//   category match      the filter asked for every entry, in memory     a loop that compares ids
//   first page          thirty rows through the list's cache            one statement with LIMIT 30
//   jump to middle      the same from half way                          the same by start >= ?
//   jump to end         the same from the end                           the same backward
//   page by category    from half way, filtered by two categories       the same rows out of one statement
//   show menu           the menu of the button "Show" made              a menu of as many items
//   walk all            start, subject, categories of all, in order     a scan of these columns
//   scan all            the same in no order (CeScanRecords)            a scan of these columns
//   insert, update, delete an entry                                     the bare statements
//   change sort         from start to subject                           building the same index
//   start up            journal.exe, from the start until it waits      a program with an empty window
#include <win.h>

#include <storebatch.h>

#include <algorithm>
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
#include "list/button_bar.h"
#include "list/entry_list.h"
#include "list/row_cache.h"
#include "list/store_rows.h"

namespace {

constexpr LONG kPage = 30;
constexpr int kRuns = 31;
constexpr int kWriteRuns = 51;
constexpr int kFewRuns = 15;
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
        CategoryMatch();
        Pages();
        ShowMenu();
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
    void Add(const char* operation, Pair measured, const char* against) {
        Add(operation, measured.time, measured.bound, against);
    }

    void OpenStore() {
        const auto close = [&] {
            journal_.Close();
            CeUnmountObjectStore();
        };
        Add("open store",
            MeasurePair(
                kRuns, [&] { Require(journal_.Open(nullptr) != 0, "opening the journal"); }, [&] { bare_.Reopen(); },
                close),
            "SQLite opened, one row");
        StoreRows rows(journal_, filter_);
        RowCache cache(rows);
        const auto reopen = [&] {
            close();
            journal_.Open(nullptr);
            cache.Clear();
        };
        Add("first jump",
            MeasurePair(
                kRuns, [&] { ReadPage(cache, Middle()); }, [&] { bare_.ReadMiddlePage(); }, reopen,
                [&] { bare_.Reopen(); }),
            "30 rows, start >= ?, just opened");
        close();
    }

    static HWND MakeFrame() {
        return CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 240, 320, nullptr, nullptr,
                               nullptr, nullptr);
    }

    // A list view of the system's own, of the same look.
    static HWND MakeBareList(HWND parent) {
        const HWND list = CreateWindowExW(0, WC_LISTVIEWW, L"",
                                          WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_OWNERDATA | LVS_NOCOLUMNHEADER, 0, 0,
                                          240, 294, parent, nullptr, nullptr, nullptr);
        LVCOLUMNW column = {};
        column.mask = LVCF_WIDTH;
        column.cx = 60;
        ::SendMessageW(list, LVM_INSERTCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
        column.cx = 180;
        ::SendMessageW(list, LVM_INSERTCOLUMNW, 1, reinterpret_cast<LPARAM>(&column));
        return list;
    }

    // What the control itself takes for more rows is in the bound: it is emptied and told the number of rows too.
    void RefreshList() {
        SelectionMemory selection;
        EntryList list(journal_, selection, filter_);
        StoreRows rows(journal_, filter_);
        const HWND parent = MakeFrame();
        const HWND bareParent = MakeFrame();
        const HWND bareList = MakeBareList(bareParent);
        Require(list.CreateIn(parent, {0, 0, 240, 294}), "making the list");
        ::ShowWindow(list.GetHandle(), SW_SHOW);
        const auto refresh = [&] { list.RefreshList(); };
        const auto tellBare = [&] {
            ::SendMessageW(bareList, LVM_DELETEALLITEMS, 0, 0);
            ::SendMessageW(bareList, LVM_SETITEMCOUNT, static_cast<WPARAM>(filter_.passed), 0);
        };
        Add("refresh list", MeasurePair(kRuns, refresh, [&] { bare_.ReadCount(), tellBare(); }),
            "bare list view, as many rows");
        const auto filtered = [&](const char* kind) {
            const std::string refreshed = std::string("refresh by ") + kind;
            const std::string counted = std::string("count by ") + kind;
            Add(refreshed.c_str(), MeasurePair(kFewRuns, refresh, [&] { bare_.ReadAll(), tellBare(); }),
                "scan of three columns, bare list view");
            Require(entries_ < 1000 || (filter_.passed > 0 && filter_.passed < static_cast<LONG>(entries_)),
                    "filtering some of the entries");
            Add(counted.c_str(),
                MeasurePair(
                    kFewRuns, [&] { rows.Count(); }, [&] { bare_.ReadAll(); }),
                "scan of three columns");
        };
        FilterByRange();
        filtered("range");
        FilterByMonths();
        filtered("months");
        FilterByCategory();
        filtered("category");
        filter_.active = FALSE;
        DestroyWindow(parent);
        DestroyWindow(bareParent);
    }

    // ---- The filter: each leaves some of the sample entries, which span ten years ----

    void FilterByRange() {
        filter_.active = TRUE;
        filter_.byRange = TRUE;
        const ULONGLONG first = DateTime(MakeSampleEntry(1).start).Ticks();
        filter_.rangeStart = TimeAt(first + 60 * DateTime::kTicksPerDay);
        filter_.rangeEnd = TimeAt(first + 790 * DateTime::kTicksPerDay);
    }
    void FilterByMonths() {
        filter_.byRange = FALSE;
        filter_.months = 0x0249;
    }
    void FilterByCategory() {
        for (const wchar_t* name : {L"Business", L"Family"})
            filter_.AddCategory(DbCItem(kPropCategoryName, name));
        filter_.RefreshCategories();
    }
    static DateTime TimeAt(ULONGLONG ticks) {
        return DateTime(FILETIME{static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)});
    }
    std::vector<DWORD> FilterIds() const {
        std::vector<DWORD> ids;
        for (const DbCItem& category : filter_.Categories())
            ids.push_back(category.GetOid());
        return ids;
    }

    void CategoryMatch() {
        std::vector<std::vector<DWORD>> entries;
        for (unsigned number = 0; number < entries_; ++number)
            entries.push_back(MakeSampleEntry(number).categories);
        filter_.active = TRUE;
        const std::vector<DWORD> wanted = FilterIds();
        unsigned passed = 0;
        unsigned compared = 0;
        const auto match = [&] {
            passed = 0;
            for (std::vector<DWORD>& categories : entries) {
                const CEBLOB blob = {static_cast<DWORD>(categories.size() * sizeof(DWORD)),
                                     reinterpret_cast<LPBYTE>(categories.data())};
                if (filter_.Match(FILETIME{}, blob)) ++passed;
            }
        };
        const auto compare = [&] {
            compared = 0;
            for (const std::vector<DWORD>& categories : entries) {
                if (std::find_first_of(categories.begin(), categories.end(), wanted.begin(), wanted.end()) !=
                    categories.end()) {
                    ++compared;
                }
            }
        };
        Add("category match", MeasurePair(kRuns, match, compare), "a loop that compares ids");
        Require(passed == compared && passed > 0, "matching the same entries");
        filter_.active = FALSE;
    }

    void ShowMenu() {
        const ButtonBar bar(journal_, filter_);
        int items = 0;
        const auto make = [&] { items = GetMenuItemCount(bar.MakeShowMenu().get()); };
        const auto makeBare = [&] {
            const HMENU menu = CreatePopupMenu();
            for (int i = 0; i < items; ++i)
                AppendMenuW(menu, MF_STRING, static_cast<UINT_PTR>(700 + i), L"Business");
            DestroyMenu(menu);
        };
        Add("show menu", MeasurePair(kRuns, make, makeBare), "a menu of as many items");
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
        const auto page = [&](LONG first, const std::function<void()>& bound) {
            return MeasurePair(
                kRuns, [&] { ReadPage(cache, first); }, bound, [&] { cache.Clear(); });
        };
        Add("first page", page(0, [&] { bare_.ReadFirstPage(); }), "30 rows from the start");
        Add("jump to middle", page(Middle(), [&] { bare_.ReadMiddlePage(); }), "30 rows, start >= ?");
        Add("jump to end", page(static_cast<LONG>(entries_) - kPage, [&] { bare_.ReadLastPage(); }),
            "30 rows from the end");
        filter_.active = TRUE;
        const std::vector<DWORD> wanted = FilterIds();
        Add("page by category",
            MeasurePair(
                kRuns, [&] { cache.Hint(Middle(), Middle() + kPage - 1, static_cast<LONG>(entries_)); },
                [&] { bare_.ReadPageWith(wanted); }, [&] { cache.Clear(); }),
            "30 rows of these categories");
        filter_.active = FALSE;
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
        const auto scan = [&] {
            unsigned seen = 0;
            const auto count = [](CEOID, WORD, const CEPROPVAL*, void* context) -> BOOL {
                ++*static_cast<unsigned*>(context);
                return TRUE;
            };
            Require(journal_.Scan(static_cast<WORD>(std::size(ids)), ids, count, &seen) && seen == entries_,
                    "scanning all entries");
        };
        const auto bound = [&] { bare_.ReadAll(); };
        Add("walk all", MeasurePair(kFewRuns, walk, bound), "scan of these columns");
        Add("scan all", MeasurePair(kFewRuns, scan, bound), "scan of these columns");
    }

    void Writes() {
        const SampleEntry entry = MakeSampleEntry(123'456);
        std::vector<CEOID> added;
        Add("insert",
            MeasurePair(
                kWriteRuns, [&] { added.push_back(WriteSample(journal_, 0, entry)); }, [&] { bare_.Insert(entry); }),
            "two INSERTs, one commit");
        CEPROPVAL subject = {};
        subject.propid = kPropSubject;
        subject.val.lpwstr = const_cast<LPWSTR>(L"ab");
        Add("update",
            MeasurePair(
                kWriteRuns, [&] { journal_.WriteRecordProps(added[0], 1, &subject); }, [&] { bare_.Update(); }),
            "UPDATE");
        const auto remove = [&] {
            journal_.DeleteRecord(added.back());
            added.pop_back();
        };
        Add("delete", MeasurePair(kWriteRuns, remove, [&] { bare_.DeleteLast(); }), "two DELETEs, one commit");
    }

    void ChangeSort() {
        const SORTORDERSPEC bySubject = {kPropSubject, CEDB_SORT_CASEINSENSITIVE};
        const SORTORDERSPEC byStart = {kPropStart, 0};
        Add("change sort",
            MeasurePair(
                kSlowRuns, [&] { Require(journal_.SetSortOrder(&bySubject, 1), "sorting by subject"); },
                [&] { bare_.SortBySubject(); },
                [&] { Require(journal_.SetSortOrder(&byStart, 1), "sorting by start"); }, [&] { bare_.SortByStart(); }),
            "CREATE INDEX of the same key");
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
