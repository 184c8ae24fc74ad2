#include "list/store_rows.h"

#include <iterator>

#include "data/db_journal.h"
#include "data/field_ids.h"
#include "data/record_buffer.h"
#include "filter/filter_settings.h"

namespace {

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

bool StoreRows::SeekNext() {
    return journal_.SeekNext() != 0;
}

bool StoreRows::ReadRow(ListRow& row) {
    row.Clear();
    // The filter wants start and categories; one read serves it and the row.
    CEPROPID ids[] = {kPropStart, kPropCategories, kPropSubject};
    WORD count = static_cast<WORD>(std::size(ids));
    RecordBuffer props;
    const CEOID id = journal_.ReadRecordProps(&count, ids, props.Put());
    if (id == 0 || !Passes(&props[0])) return false;
    row.id = id;
    if (props.Has(0)) FormatDate(props[0].val.filetime, row.date);
    if (props.Has(2)) row.subject = props[2].val.lpwstr;
    return true;
}

// `props` are the entry's start and categories. An entry without a start has the time 0.
bool StoreRows::Passes(const CEPROPVAL* props) const {
    const auto has = [&](size_t i) { return (props[i].wFlags & CEDB_PROPNOTFOUND) == 0; };
    return filter_.Match(has(0) ? props[0].val.filetime : FILETIME{}, has(1) ? props[1].val.blob : CEBLOB{});
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
