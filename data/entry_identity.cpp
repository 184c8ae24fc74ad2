#include "data/entry_identity.h"

#include <cstdio>

#include "data/field_ids.h"
#include "data/record_buffer.h"

namespace {

struct Identity {
    bool found = false;
    std::wstring uid;
    CEPROPVAL changed{};
};

Identity ReadIdentity(DbJournal& journal, CEOID entry) {
    Identity identity;
    CEPROPID ids[] = {kPropUid, kPropChanged};
    WORD count = 2;
    RecordBuffer record;
    if (entry == 0 || journal.SeekToOid(entry) != entry) return identity;
    if (journal.ReadRecordProps(&count, ids, record.Put()) != entry) return identity;
    identity.found = true;
    if (record.Has(0)) identity.uid = record[0].val.lpwstr;
    identity.changed.propid = kPropChanged;
    if (record.Has(1)) {
        identity.changed.val = record[1].val;
    } else {
        identity.changed.wFlags = CEDB_PROPDELETE;  // stays without
    }
    return identity;
}

}  // namespace

std::wstring NewUid() {
    GUID guid;
    if (FAILED(CoCreateGuid(&guid))) return {};
    wchar_t text[37];
    std::swprintf(text, 37, L"%08lx-%04x-%04x-%02x%02x-%02x%02x%02x%02x%02x%02x", guid.Data1, guid.Data2, guid.Data3,
                  guid.Data4[0], guid.Data4[1], guid.Data4[2], guid.Data4[3], guid.Data4[4], guid.Data4[5],
                  guid.Data4[6], guid.Data4[7]);
    return text;
}

std::wstring FindUid(DbJournal& journal, CEOID entry) {
    return ReadIdentity(journal, entry).uid;
}

std::wstring NeedUid(DbJournal& journal, CEOID entry) {
    const Identity identity = ReadIdentity(journal, entry);
    if (!identity.found || !identity.uid.empty()) return identity.uid;
    std::wstring uid = NewUid();
    if (uid.empty()) return uid;
    CEPROPVAL values[2] = {{}, identity.changed};
    values[0].propid = kPropUid;
    values[0].val.lpwstr = uid.data();
    return journal.WriteRecordProps(entry, 2, values) == entry ? uid : std::wstring();
}

bool IsIdentity(CEPROPID property) {
    return property == kPropUid || property == kPropChanged;
}
