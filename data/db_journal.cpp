#include "data/db_journal.h"

#include <storestamp.h>

#include <iterator>
#include <vector>

#include "data/field_definitions.h"
#include "data/record_buffer.h"
#include "data/sort_key.h"

namespace {

// Tells the journal's database from others in an enumeration: "JRNL".
constexpr DWORD kDatabaseType = 0x4C4E524A;

}  // namespace

DbJournal::~DbJournal() {
    DbJournal::Close();
}

int DbJournal::Open(HWND notify) {
    Close();
    SORTORDERSPEC orders[CEDB_MAXSORTORDER] = {SortKeyForField(kFieldStart)};
    if (!Exists(kJournalDatabase)) {
        if (GetLastError() != ERROR_FILE_NOT_FOUND) return 0;
        if (!CreateIfMissing(kJournalDatabase, kDatabaseType, 1, orders)) return 0;
    }
    // People choose the order and it stays with the database; it can be opened in no other.
    if (!CeDbase::Open(kJournalDatabase, 0, 0, nullptr)) return 0;
    orders[0].propid = 0;
    GetSortOrders(orders);
    CEOID oid = GetOid();
    const HANDLE held = CeOpenDatabase(&oid, nullptr, 0, 0, nullptr);  // until the end nobody can choose another
    Close();
    const BOOL opened = CeDbase::Open(kJournalDatabase, orders[0].propid, 0, notify);
    if (held != INVALID_HANDLE_VALUE) CloseHandle(held);
    if (opened)
        CeSetDatabaseStamp(GetHandle(), kPropChanged);  // what can't be written has no changes to keep the time of
    return opened;
}

int DbJournal::Initialize(TSList<DbJItem>* fields) {
    for (const FieldDefinition& field : kFieldDefinitions)
        fields->Append(
            DbJItem(field.id, field.propid, field.label, field.control, field.flags, kItemValue, field.defaultText));
    return 1;
}

unsigned long DbJournal::Read(unsigned long oid, TSList<DbJItem>* fields) {
    fields->RemoveAll();
    Initialize(fields);
    return oid && SeekToOid(oid) ? ReadCurrent(oid, fields) : 0;
}

unsigned long DbJournal::ReadValues(unsigned long oid, TSList<DbJItem>* fields) {
    for (DbJItem& field : *fields)
        field.Unset();
    // The next entry in order is a step away, any other has to be looked for.
    return oid && (SeekNext() == oid || SeekToOid(oid)) ? ReadCurrent(oid, fields) : 0;
}

unsigned long DbJournal::ReadCurrent(unsigned long oid, TSList<DbJItem>* fields) {
    CEPROPID ids[std::size(kFieldDefinitions)];
    WORD count = 0;
    for (const FieldDefinition& field : kFieldDefinitions)
        ids[count++] = field.propid;
    RecordBuffer record;
    if (ReadRecordProps(&count, ids, record.Put()) != oid) return 0;
    size_t index = 0;
    for (DbJItem& field : *fields)
        field.FromProperty(record[index++]);
    return oid;
}

unsigned long DbJournal::Write(unsigned long oid, TSList<DbJItem>* fields) {
    std::vector<CEPROPVAL> values;
    CEPROPVAL value;
    for (const DbJItem& field : *fields)
        if (field.ToProperty(&value)) values.push_back(value);
    return WriteRecordProps(oid, static_cast<WORD>(values.size()), values.data());
}

unsigned long DbJournal::SetFlags(unsigned long oid, unsigned flags) {
    if (!oid) return 0;  // would make a record of nothing but flags
    CEPROPVAL value{};
    value.propid = kPropRecordFlags;
    value.val.ulVal = flags;
    return WriteRecordProps(oid, 1, &value);
}
