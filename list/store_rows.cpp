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
    CEPROPID ids[] = {kPropStart, kPropSubject, kPropCategories};
    WORD count = static_cast<WORD>(std::size(ids));
    RecordBuffer props;
    row.id = journal_.ReadRecordProps(&count, ids, props.Put());
    if (row.id == 0) return false;
    if (props.Has(0)) FormatDate(props[0].val.filetime, row.date);
    if (props.Has(1)) row.subject = props[1].val.lpwstr;
    return true;
}

LONG StoreRows::Count() {
    if (!filter_.active) return journal_.GetRecordCount();
    LONG count = 0;
    ListRow row;
    for (bool current = SeekPosition(0); current; current = SeekNext()) {
        if (ReadRow(row)) ++count;
    }
    return count;
}
