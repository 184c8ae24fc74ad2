#include "list/store_rows.h"

#include <dateformat.h>
#include <storepage.h>

#include <algorithm>
#include <iterator>
#include <new>
#include <utility>

#include "data/db_journal.h"
#include "data/field_ids.h"
#include "data/record_buffer.h"
#include "filter/filter_settings.h"
#include "filter/registry_filter_store.h"
#include "ui/application.h"

namespace {

constexpr wchar_t kWhole[] = L"fWhole";

// The filter wants the first two; one read serves it and the row.
constexpr CEPROPID kRowProps[] = {kPropStart, kPropCategories, kPropSubject};
constexpr CEPROPID kFilterProps[] = {kPropStart, kPropCategories};

bool IsThere(const CEPROPVAL& property) {
    return (property.wFlags & CEDB_PROPNOTFOUND) == 0;
}

void FormatDate(const FILETIME& start, std::wstring& text) {
    SYSTEMTIME time;
    wchar_t date[60];
    if (FileTimeToSystemTime(&start, &time) &&
        GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &time, nullptr, date, static_cast<int>(std::size(date)))) {
        text = date;
    }
}

}  // namespace

bool StoreRows::SeekPosition(LONG position) {
    if (passing_) return SeekEntry(passing_->At(position));
    return position >= 0 && journal_.SeekFromBeginning(static_cast<DWORD>(position)) != 0;
}

bool StoreRows::SeekEntry(CEOID id) {
    return id != 0 && journal_.SeekToOid(id) != 0;
}

bool StoreRows::ReadRow(ListRow& row) {
    WORD count = static_cast<WORD>(std::size(kRowProps));
    CEPROPID ids[std::size(kRowProps)];
    std::copy(std::begin(kRowProps), std::end(kRowProps), ids);
    RecordBuffer props;
    const CEOID id = journal_.ReadRecordProps(&count, ids, props.Put());
    row.Clear();
    return id != 0 && Fill(row, id, &props[0]);
}

LONG StoreRows::ReadRows(LONG position, std::span<ListRow> rows) {
    if (position < 0 || rows.empty()) return 0;
    if (passing_) return ReadPassing(position, rows);
    struct Reading {
        const StoreRows& source;
        std::span<ListRow> left;
    } reading = {*this, rows};
    const auto read = [](CEOID id, WORD, const CEPROPVAL* props, void* context) -> BOOL {
        auto& it = *static_cast<Reading*>(context);
        try {
            if (it.source.Fill(it.left.front(), id, props)) it.left = it.left.subspan(1);
        } catch (const std::bad_alloc&) {
            return FALSE;  // the store passes no exception on
        }
        return !it.left.empty();
    };
    // Failures are silent here: the rows that are missing then are read one by one, which reports them.
    CeScanRecordsFrom(journal_.GetHandle(), static_cast<DWORD>(position), static_cast<WORD>(std::size(kRowProps)),
                      kRowProps, read, &reading);
    return static_cast<LONG>(rows.size() - reading.left.size());
}

// `props` are kRowProps. False when the entry is not to be shown; the row is empty then.
bool StoreRows::Fill(ListRow& row, CEOID id, const CEPROPVAL* props) const {
    row.Clear();
    if (!Passes(props)) return false;
    row.id = id;
    if (IsThere(props[0])) FormatDate(props[0].val.filetime, row.date);
    if (IsThere(props[2])) row.subject = props[2].val.lpwstr;
    return true;
}

// `props` are the entry's start and categories. An entry without a start has the time 0.
bool StoreRows::Passes(const CEPROPVAL* props) const {
    return filter_.Match(IsThere(props[0]) ? props[0].val.filetime : FILETIME{},
                         IsThere(props[1]) ? props[1].val.blob : CEBLOB{});
}

LONG StoreRows::ReadPassing(LONG first, std::span<ListRow> rows) {
    const LONG filled = std::clamp<LONG>(passing_->Count() - first, 0, static_cast<LONG>(rows.size()));
    for (LONG i = 0; i < filled; ++i) {
        ListRow& row = rows[static_cast<size_t>(i)];
        row.Clear();
        if (SeekPosition(first + i)) ReadRow(row);
    }
    return filled;
}

bool StoreRows::LeavesOut() const {
    return filter_.active && !passing_;
}

// ---- Rows and entries ----

LONG StoreRows::RowOf(CEOID id) {
    if (id == 0) return -1;
    return passing_ ? passing_->RowOf(id) : journal_.SeekToOidIndex(id);
}

bool StoreRows::IsShown(CEOID id) {
    ListRow row;
    return SeekEntry(id) && ReadRow(row);
}

// ---- Counting ----

// Asked anew at each count, as all settings are.
bool StoreRows::CountsPassing() const {
    if (!filter_.active || Application::Current() == nullptr) return false;
    return RegistryFilterStore(*Application::Current()).ReadNumber(kWhole) != 0;
}

std::optional<LONG> StoreRows::Count() {
    if (journal_.GetHandle() == nullptr) return std::nullopt;
    if (CountsPassing()) return CollectPassing();
    const std::optional<LONG> count = filter_.active ? CountPassing() : CountAll();
    if (count) passing_.reset();
    return count;
}

std::optional<LONG> StoreRows::CountAll() {
    CEOIDINFO info = {};
    if (!journal_.GetInfo(&info)) return std::nullopt;
    return info.infDatabase.wNumRecords;
}

// In whatever order is quickest.
std::optional<LONG> StoreRows::CountPassing() {
    struct Counting {
        const StoreRows& rows;
        LONG passed;
    } counting = {*this, 0};
    const auto count = [](CEOID, WORD, const CEPROPVAL* props, void* context) -> BOOL {
        auto& it = *static_cast<Counting*>(context);
        if (it.rows.Passes(props)) ++it.passed;
        return TRUE;
    };
    if (!CeScanRecords(journal_.GetHandle(), static_cast<WORD>(std::size(kFilterProps)), kFilterProps, count,
                       &counting))
        return std::nullopt;
    return counting.passed;
}

std::optional<LONG> StoreRows::CollectPassing() {
    struct Collecting {
        const StoreRows& rows;
        PassingOrder passing;
        bool isFull;
    } collecting = {*this, {}, false};
    const auto collect = [](CEOID id, WORD, const CEPROPVAL* props, void* context) -> BOOL {
        auto& it = *static_cast<Collecting*>(context);
        try {
            if (it.rows.Passes(props)) it.passing.Append(id);
        } catch (const std::bad_alloc&) {
            it.isFull = true;  // the store passes no exception on
        }
        return !it.isFull;
    };
    if (!CeScanRecordsFrom(journal_.GetHandle(), 0, static_cast<WORD>(std::size(kFilterProps)), kFilterProps, collect,
                           &collecting) ||
        collecting.isFull)
        return std::nullopt;
    passing_ = std::move(collecting.passing);
    return passing_->Count();
}
