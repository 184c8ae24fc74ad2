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
    if (id == 0 || !Passes(props)) return false;
    row.id = id;
    if (props.Has(0)) FormatDate(props[0].val.filetime, row.date);
    if (props.Has(2)) row.subject = props[2].val.lpwstr;
    return true;
}

// `props` starts with the entry's start and categories. An entry without a start has the time 0.
bool StoreRows::Passes(const RecordBuffer& props) const {
    return filter_.Match(props.Has(0) ? props[0].val.filetime : FILETIME{},
                         props.Has(1) ? props[1].val.blob : CEBLOB{});
}

LONG StoreRows::Count() {
    if (!filter_.active) return journal_.GetRecordCount();
    LONG passed = 0;
    for (bool current = SeekPosition(0); current; current = SeekNext()) {
        CEPROPID ids[] = {kPropStart, kPropCategories};
        WORD count = static_cast<WORD>(std::size(ids));
        RecordBuffer props;
        if (journal_.ReadRecordProps(&count, ids, props.Put()) != 0 && Passes(props)) ++passed;
    }
    return passed;
}
