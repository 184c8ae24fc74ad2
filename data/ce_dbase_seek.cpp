// Finding records: the seeks, and the walks that look into each record.
#include <cwchar>
#include <string>

#include "data/ce_dbase.h"
#include "data/record_buffer.h"

CEOID CeDbase::Seek(DWORD type, DWORD_PTR value) {
    return CeSeekDatabase(handle_, type, value, nullptr);
}

CEOID CeDbase::SeekToOid(CEOID record) {
    return Seek(CEDB_SEEK_CEOID, record);
}
CEOID CeDbase::SeekFromBeginning(DWORD count) {
    return Seek(CEDB_SEEK_BEGINNING, count);
}
CEOID CeDbase::SeekFirst() {
    return Seek(CEDB_SEEK_BEGINNING, 0);
}
CEOID CeDbase::SeekCurrent() {
    return Seek(CEDB_SEEK_CURRENT, 0);
}
CEOID CeDbase::SeekNext() {
    return Seek(CEDB_SEEK_CURRENT, 1);
}
CEOID CeDbase::SeekPrevious() {
    return Seek(CEDB_SEEK_CURRENT, static_cast<DWORD_PTR>(-1));
}

CEOID CeDbase::SeekValueFirstEqual(CEPROPVAL* value) {
    SeekFirst();
    return Seek(CEDB_SEEK_VALUEFIRSTEQUAL, reinterpret_cast<DWORD_PTR>(value));
}

CEOID CeDbase::SeekValueNextEqual(CEOID start, CEPROPVAL* value) {
    if (start) SeekToOid(start);
    return Seek(CEDB_SEEK_VALUENEXTEQUAL, reinterpret_cast<DWORD_PTR>(value));
}

int CeDbase::SeekToOidIndex(CEOID record) {
    DWORD index = static_cast<DWORD>(-1);
    CeSeekDatabase(handle_, CEDB_SEEK_CEOID, record, &index);
    return static_cast<int>(index);
}

namespace {

std::wstring UpperCase(std::wstring text) {
    CharUpperBuffW(text.data(), static_cast<DWORD>(text.size()));
    return text;
}

// Walks from the record after `start` (0: from the current one) to the first whose property `ids[0]` is there and
// pleases `matches`.
template <typename Matches>
CEOID Walk(CeDbase& database, CEOID start, CEPROPID* ids, const Matches& matches) {
    if (start) {
        database.SeekToOid(start);
        if (!database.SeekNext()) return 0;
    }
    do {
        RecordBuffer record;
        WORD count = 1;
        const CEOID oid = database.ReadRecordProps(&count, ids, record.Put());
        if (oid && count && record.Has(0) && matches(record[0].val)) return oid;
    } while (database.SeekNext());
    return 0;
}

}  // namespace

CEOID CeDbase::FindFirstDate(CEPROPID* ids, FILETIME date) {
    SeekFirst();
    return FindDate(0, ids, date);
}

CEOID CeDbase::FindDate(CEOID start, CEPROPID* ids, FILETIME date) {
    SYSTEMTIME wanted;
    if (!FileTimeToSystemTime(&date, &wanted)) return 0;
    return Walk(*this, start, ids, [&wanted](const CEVALUNION& value) {
        SYSTEMTIME time;
        return FileTimeToSystemTime(&value.filetime, &time) && time.wYear == wanted.wYear &&
               time.wMonth == wanted.wMonth && time.wDay == wanted.wDay;
    });
}

CEOID CeDbase::FindFirstString(CEPROPID* ids, const wchar_t* text, BOOL matchCase) {
    SeekFirst();
    return FindString(0, ids, text, matchCase);
}

CEOID CeDbase::FindString(CEOID start, CEPROPID* ids, const wchar_t* text, BOOL matchCase) {
    const std::wstring wanted = matchCase ? text : UpperCase(text);
    return Walk(*this, start, ids, [&wanted, matchCase](const CEVALUNION& value) {
        if (!value.lpwstr || !value.lpwstr[0]) return false;
        if (matchCase) return std::wcsstr(value.lpwstr, wanted.c_str()) != nullptr;
        return UpperCase(value.lpwstr).find(wanted) != std::wstring::npos;
    });
}
