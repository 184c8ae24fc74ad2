// What the store costs: opening, pages of rows, walks, writes, a sort change.
#include <win.h>

#include <algorithm>
#include <iterator>
#include <vector>

#include "bench/bench.h"
#include "bench/journal_store.h"
#include "data/field_ids.h"
#include "data/record_buffer.h"
#include "list/row_cache.h"
#include "list/store_rows.h"

namespace {

constexpr LONG kPage = 30;

}  // namespace

void Bench::OpenStore() {
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

void Bench::ReadPage(RowCache& cache, LONG first) {
    const LONG last = std::min(first + kPage, static_cast<LONG>(entries_)) - 1;
    cache.Hint(first, last, static_cast<LONG>(entries_));
    for (LONG row = first; row <= last; ++row)
        Require(cache.Fetch(row).id != 0, "reading a row");
}

void Bench::Pages() {
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

void Bench::WalkAll() {
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

void Bench::Writes() {
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

void Bench::ChangeSort() {
    const SORTORDERSPEC bySubject = {kPropSubject, CEDB_SORT_CASEINSENSITIVE};
    const SORTORDERSPEC byStart = {kPropStart, 0};
    Add("change sort",
        MeasurePair(
            kSlowRuns, [&] { Require(journal_.SetSortOrder(&bySubject, 1), "sorting by subject"); },
            [&] { bare_.SortBySubject(); }, [&] { Require(journal_.SetSortOrder(&byStart, 1), "sorting by start"); },
            [&] { bare_.SortByStart(); }),
        "CREATE INDEX of the same key");
    Require(journal_.SetSortOrder(&byStart, 1), "sorting by start");
}
