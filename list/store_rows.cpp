#include "list/store_rows.h"

#include <dateformat.h>
#include <storepage.h>

#include <algorithm>
#include <iterator>
#include <new>

#include "data/db_journal.h"
#include "data/field_ids.h"
#include "data/record_buffer.h"
#include "filter/filter_settings.h"

namespace {

// The filter wants the first two; one read serves it and the row.
constexpr CEPROPID kRowProps[] = {kPropStart, kPropCategories, kPropSubject};

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

LONG StoreRows::Count() {
    if (!filter_.active) return journal_.GetRecordCount();
    constexpr CEPROPID kIds[] = {kPropStart, kPropCategories};
    struct Counting {
        const StoreRows& rows;
        LONG passed;
    } counting = {*this, 0};
    const auto count = [](CEOID, WORD, const CEPROPVAL* props, void* context) -> BOOL {
        auto& it = *static_cast<Counting*>(context);
        if (it.rows.Passes(props)) ++it.passed;
        return TRUE;
    };
    journal_.Scan(static_cast<WORD>(std::size(kIds)), kIds, count, &counting);
    return counting.passed;
}
