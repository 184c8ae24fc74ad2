#include "platform/objectstore/record_block.h"

#include <cstring>

#include "platform/objectstore/store_error.h"

namespace store {
namespace {

constexpr size_t kAlignment = 8;  // of each string and blob in the block: clients read blobs as numbers

size_t Aligned(size_t size) {
    return (size + kAlignment - 1) & ~(kAlignment - 1);
}

}  // namespace

Bytes LargeValues::Get(int64_t id) {
    Statement& statement = connection_.Get("SELECT value FROM large WHERE id=?");
    held_.push_back(&statement);
    statement.Bind(1, id);
    if (!statement.Step()) Fail(ERROR_FILE_CORRUPT);  // the record refers to a value that is not there
    return statement.Blob(0);
}

void LargeValues::Release() noexcept {
    for (Statement* statement : held_)
        statement->Reset();
    held_.clear();
}

std::string SelectColumns(const Database& database, const CEPROPID* ids, size_t count, int first,
                          std::vector<int>& places) {
    std::string columns;
    for (size_t i = 0; i < count; ++i) {
        const bool there = database.columns.contains(ids[i]);
        places.push_back(there ? first++ : -1);
        if (there) columns += (columns.empty() ? "" : ",") + ColumnName(ids[i]);
    }
    return columns;
}

StoredValue ReadValue(const Statement& row, int column, CEPROPID property, LargeValues& large) {
    if (column < 0) return {};
    StoredValue value = FromColumn(row, column);
    if (!HasBytes(property)) return value.kind == StoredValue::kNumber ? value : StoredValue{};
    if (value.kind == StoredValue::kNumber) value = {StoredValue::kBytes, 0, large.Get(value.number)};
    if (value.bytes.size > CEDB_MAXPROPDATASIZE) return {};
    if (TypeFromPropID(property) == CEVT_LPWSTR) value.bytes.size &= ~1;
    return value;
}

size_t BlockSize(const CEPROPID* properties, const std::vector<StoredValue>& values) {
    size_t size = Aligned(values.size() * sizeof(CEPROPVAL));
    for (size_t i = 0; i < values.size(); ++i) {
        if (values[i].kind != StoredValue::kBytes) continue;
        const size_t end = TypeFromPropID(properties[i]) == CEVT_LPWSTR ? sizeof(wchar_t) : 0;
        size += Aligned(static_cast<size_t>(values[i].bytes.size) + end);
    }
    return size;
}

void FillBlock(const CEPROPID* properties, const std::vector<StoredValue>& values, BYTE* target) {
    auto* entries = reinterpret_cast<CEPROPVAL*>(target);
    BYTE* next = target + Aligned(values.size() * sizeof(CEPROPVAL));
    for (size_t i = 0; i < values.size(); ++i) {
        CEPROPVAL& entry = entries[i];
        entry = {};
        entry.propid = properties[i];
        const StoredValue& value = values[i];
        if (value.kind == StoredValue::kNone) {
            entry.wFlags = CEDB_PROPNOTFOUND;
        } else if (value.kind == StoredValue::kNumber) {
            DecodeNumber(value.number, entry);
        } else {
            const auto bytes = static_cast<size_t>(value.bytes.size);
            if (bytes > 0) std::memcpy(next, value.bytes.data, bytes);
            if (TypeFromPropID(entry.propid) == CEVT_LPWSTR) {
                std::memset(next + bytes, 0, sizeof(wchar_t));
                entry.val.lpwstr = reinterpret_cast<LPWSTR>(next);
                next += Aligned(bytes + sizeof(wchar_t));
            } else {
                entry.val.blob = {static_cast<DWORD>(bytes), next};
                next += Aligned(bytes);
            }
        }
    }
}

}  // namespace store
