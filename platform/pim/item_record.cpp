#include "platform/pim/item_record.h"

#include "platform/pim/com_object.h"

namespace pim {
namespace {

struct LocalBytes {
    ~LocalBytes() { LocalFree(bytes); }
    BYTE* bytes = nullptr;
};

// The property to write; strings and blobs are those of `value`.
CEPROPVAL PropertyOf(CEPROPID id, const Value& value) {
    CEPROPVAL property = {};
    property.propid = id;
    switch (TypeFromPropID(id)) {
        case CEVT_LPWSTR: property.val.lpwstr = const_cast<wchar_t*>(std::get<std::wstring>(value).c_str()); break;
        case CEVT_R8: property.val.dblVal = std::get<double>(value); break;
        case CEVT_I4: property.val.lVal = std::get<long>(value); break;
        case CEVT_BOOL: property.val.boolVal = std::get<bool>(value); break;
        default: {
            const auto& bytes = std::get<std::vector<BYTE>>(value);
            property.val.blob = {static_cast<DWORD>(bytes.size()), const_cast<BYTE*>(bytes.data())};
            break;
        }
    }
    return property;
}

}  // namespace

bool TakeValue(const CEPROPVAL& property, Value* value) {
    if (property.wFlags & CEDB_PROPNOTFOUND) return false;
    switch (TypeFromPropID(property.propid)) {
        case CEVT_LPWSTR: *value = std::wstring(property.val.lpwstr); return true;
        case CEVT_R8: *value = property.val.dblVal; return true;
        case CEVT_I4: *value = static_cast<long>(property.val.lVal); return true;
        case CEVT_BOOL: *value = property.val.boolVal != FALSE; return true;
        case CEVT_BLOB:
            *value = std::vector<BYTE>(property.val.blob.lpb, property.val.blob.lpb + property.val.blob.dwCount);
            return true;
        default: return false;
    }
}

const Value* ItemRecord::Find(CEPROPID id) {
    auto found = values_.find(id);
    if (found == values_.end() && !complete_) {
        Complete();
        found = values_.find(id);
    }
    return found == values_.end() ? nullptr : &found->second;
}

void ItemRecord::Set(CEPROPID id, Value value) {
    Complete();
    values_[id] = std::move(value);
    changed_[id] = true;
}

void ItemRecord::Remove(CEPROPID id) {
    Complete();
    if (values_.erase(id)) changed_[id] = false;
}

void ItemRecord::Complete() {
    if (complete_) return;
    const KindDatabase database(kind_);
    if (!CeSeekDatabase(database.Handle(), CEDB_SEEK_CEOID, oid_, nullptr)) throw Failure{E_INVALIDARG};
    LocalBytes buffer;
    DWORD size = 0;
    WORD count = 0;
    if (!CeReadRecordProps(database.Handle(), CEDB_ALLOWREALLOC, &count, nullptr, &buffer.bytes, &size)) {
        FailWithLastError();
    }
    const auto* properties = reinterpret_cast<const CEPROPVAL*>(buffer.bytes);
    for (WORD i = 0; i < count; ++i) {
        Value value;
        if (TakeValue(properties[i], &value)) values_[properties[i].propid] = std::move(value);
    }
    complete_ = true;
}

void ItemRecord::Save() {
    Complete();
    std::vector<CEPROPVAL> properties;
    for (const auto& [id, there] : changed_) {
        if (there) {
            properties.push_back(PropertyOf(id, values_.at(id)));
        } else if (oid_) {
            properties.push_back({});
            properties.back().propid = id;
            properties.back().wFlags = CEDB_PROPDELETE;
        }
    }
    if (properties.empty() && oid_) return;
    if (properties.empty()) {  // a record has one property at least
        values_[kind_.order] = TypeFromPropID(kind_.order) == CEVT_LPWSTR ? Value(std::wstring()) : Value(0.0);
        properties.push_back(PropertyOf(kind_.order, values_[kind_.order]));
    }
    const KindDatabase database(kind_);
    const CEOID written =
        CeWriteRecordProps(database.Handle(), oid_, static_cast<WORD>(properties.size()), properties.data());
    if (!written) FailWithLastError();
    oid_ = written;
    changed_.clear();
}

void ItemRecord::Delete() {
    if (!oid_) throw Failure{E_INVALIDARG};
    Complete();
    const KindDatabase database(kind_);
    if (!CeDeleteRecord(database.Handle(), oid_)) FailWithLastError();
    oid_ = 0;
    for (const auto& [id, value] : values_)
        changed_[id] = true;
}

ItemRecord ItemRecord::Copy() {
    Complete();
    ItemRecord copy(kind_);
    copy.values_ = values_;
    copy.values_.erase(kPimUid);
    for (const auto& [id, value] : copy.values_)
        copy.changed_[id] = true;
    return copy;
}

}  // namespace pim
