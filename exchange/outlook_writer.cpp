#include "exchange/outlook_writer.h"

#include <storebatch.h>
#include <storescan.h>

#include <vector>

#include "data/record_buffer.h"

namespace import {
namespace {

constexpr int kItemsPerBatch = 2000;

// The strings stay the value's.
CEPROPVAL PropertyOf(CEPROPID id, const Value& value) {
    CEPROPVAL property = {};
    property.propid = id;
    switch (TypeFromPropID(id)) {
        case CEVT_LPWSTR: property.val.lpwstr = const_cast<wchar_t*>(std::get<std::wstring>(value).c_str()); break;
        case CEVT_R8: property.val.dblVal = std::get<double>(value); break;
        case CEVT_I4: property.val.lVal = std::get<long>(value); break;
        default: property.val.boolVal = std::get<bool>(value); break;
    }
    return property;
}

bool IsSame(const CEPROPVAL& stored, const Value& value) {
    switch (TypeFromPropID(stored.propid)) {
        case CEVT_LPWSTR: return stored.val.lpwstr == std::get<std::wstring>(value);
        case CEVT_R8: return stored.val.dblVal == std::get<double>(value);
        case CEVT_I4: return stored.val.lVal == std::get<long>(value);
        default: return (stored.val.boolVal != FALSE) == std::get<bool>(value);
    }
}

// Whether a file can say this of an item; ink and the uid are not of that kind.
bool IsImported(CEPROPID id) {
    return HIWORD(id) < HIWORD(kPimUid);
}

}  // namespace

bool OutlookWriter::Fail(Failure failure) {
    failure_ = failure;
    return false;
}

OutlookWriter::~OutlookWriter() {
    if (batch_) CeCancelBatch();
    for (const auto& [id, folder] : folders_)
        if (folder.database != INVALID_HANDLE_VALUE) CloseHandle(folder.database);
}

BOOL CALLBACK OutlookWriter::OnRecord(CEOID record, WORD, const CEPROPVAL* values, void* folder) noexcept {
    if (!(values[0].wFlags & CEDB_PROPNOTFOUND)) static_cast<Folder*>(folder)->known[values[0].val.lpwstr] = record;
    return TRUE;
}

OutlookWriter::Folder* OutlookWriter::Open(OlDefaultFolders id) {
    Folder& folder = folders_[id];
    if (folder.database != INVALID_HANDLE_VALUE) return &folder;
    folder.database = PimOpenDatabase(id);
    if (folder.database != INVALID_HANDLE_VALUE && CeScanRecords(folder.database, 1, &kPimUid, OnRecord, &folder)) {
        return &folder;
    }
    Fail(Failure::kOpen);
    return nullptr;
}

bool OutlookWriter::Put(const Item& item, Counts* counts) {
    if (!batch_) {
        batch_ = CeBeginBatch();
        if (!batch_) return Fail(Failure::kWrite);
    }
    Folder* folder = Open(item.folder);
    if (!folder) return false;
    const auto known = folder->known.find(item.uid);
    if (known != folder->known.end()) {
        if (!Replace(*folder, known->second, item, counts)) return false;
    } else {
        const Value uid = item.uid;
        std::vector<CEPROPVAL> properties = {PropertyOf(kPimUid, uid)};
        for (const auto& [id, value] : item.properties)
            properties.push_back(PropertyOf(id, value));
        const CEOID oid =
            CeWriteRecordProps(folder->database, 0, static_cast<WORD>(properties.size()), properties.data());
        if (!oid) return Fail(Failure::kWrite);
        folder->known[item.uid] = oid;
        ++counts->added;
    }
    return ++pending_ < kItemsPerBatch || Finish();
}

bool OutlookWriter::Replace(const Folder& folder, CEOID oid, const Item& item, Counts* counts) {
    RecordBuffer stored;
    WORD count = 0;
    DWORD size = 0;
    if (!CeSeekDatabase(folder.database, CEDB_SEEK_CEOID, oid, nullptr) ||
        !CeReadRecordProps(folder.database, CEDB_ALLOWREALLOC, &count, nullptr, stored.Put(), &size)) {
        return Fail(Failure::kRead);
    }
    std::vector<CEPROPVAL> changes;
    size_t same = 0;
    for (WORD i = 0; i < count; ++i) {
        const auto wanted = item.properties.find(stored[i].propid);
        if (wanted == item.properties.end()) {
            if (!IsImported(stored[i].propid)) continue;
            changes.push_back({});
            changes.back().propid = stored[i].propid;
            changes.back().wFlags = CEDB_PROPDELETE;
        } else if (IsSame(stored[i], wanted->second)) {
            ++same;
        }
    }
    if (changes.empty() && same == item.properties.size()) {
        ++counts->unchanged;
        return true;
    }
    for (const auto& [id, value] : item.properties)
        changes.push_back(PropertyOf(id, value));
    if (!CeWriteRecordProps(folder.database, oid, static_cast<WORD>(changes.size()), changes.data())) {
        return Fail(Failure::kWrite);
    }
    ++counts->changed;
    return true;
}

bool OutlookWriter::Finish() {
    if (!batch_) return true;
    batch_ = false;
    pending_ = 0;
    return CeCommitBatch() || Fail(Failure::kCommit);
}

}  // namespace import
