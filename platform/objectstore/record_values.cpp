#include "platform/objectstore/record_values.h"

#include <bit>
#include <cstdio>

namespace store {
namespace {

constexpr uint64_t kSign = uint64_t{1} << 63;

int64_t FromTime(FILETIME time) {
    const uint64_t ticks = (uint64_t{time.dwHighDateTime} << 32) | time.dwLowDateTime;
    return static_cast<int64_t>(ticks ^ kSign);
}

FILETIME ToTime(int64_t number) {
    const uint64_t ticks = static_cast<uint64_t>(number) ^ kSign;
    return {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
}

// Negative doubles have their other bits turned, so that the numbers order as the doubles do; turning twice undoes it.
int64_t Turn(int64_t bits) {
    return bits < 0 ? bits ^ INT64_MAX : bits;
}

}  // namespace

bool IsKnownType(WORD type) {
    switch (type) {
        case CEVT_I2:
        case CEVT_I4:
        case CEVT_R8:
        case CEVT_BOOL:
        case CEVT_UI2:
        case CEVT_UI4:
        case CEVT_LPWSTR:
        case CEVT_FILETIME:
        case CEVT_BLOB: return true;
        default: return false;
    }
}

bool HasBytes(CEPROPID property) {
    return TypeFromPropID(property) == CEVT_LPWSTR || TypeFromPropID(property) == CEVT_BLOB;
}

bool IsWritable(const CEPROPVAL& value) {
    if (!IsKnownType(TypeFromPropID(value.propid))) return false;
    if (value.wFlags & CEDB_PROPDELETE) return true;
    switch (TypeFromPropID(value.propid)) {
        case CEVT_LPWSTR: return value.val.lpwstr && wcslen(value.val.lpwstr) * sizeof(wchar_t) <= CEDB_MAXPROPDATASIZE;
        case CEVT_BLOB:
            return value.val.blob.dwCount <= CEDB_MAXPROPDATASIZE &&
                   (value.val.blob.lpb || value.val.blob.dwCount == 0);
        default: return true;
    }
}

StoredValue Encode(const CEPROPVAL& value) {
    if (value.wFlags & CEDB_PROPDELETE) return {};
    StoredValue stored{StoredValue::kNumber, 0, {}};
    switch (TypeFromPropID(value.propid)) {
        case CEVT_I2: stored.number = value.val.iVal; break;
        case CEVT_I4: stored.number = value.val.lVal; break;
        case CEVT_UI2: stored.number = value.val.uiVal; break;
        case CEVT_UI4: stored.number = value.val.ulVal; break;
        case CEVT_BOOL: stored.number = value.val.boolVal; break;
        case CEVT_R8: stored.number = Turn(std::bit_cast<int64_t>(value.val.dblVal)); break;
        case CEVT_FILETIME: stored.number = FromTime(value.val.filetime); break;
        case CEVT_LPWSTR:
            stored.kind = StoredValue::kBytes;
            stored.bytes = {value.val.lpwstr, static_cast<int>(wcslen(value.val.lpwstr) * sizeof(wchar_t))};
            break;
        case CEVT_BLOB:
            stored.kind = StoredValue::kBytes;
            stored.bytes = {value.val.blob.lpb, static_cast<int>(value.val.blob.dwCount)};
            break;
        default: break;
    }
    return stored;
}

void DecodeNumber(int64_t number, CEPROPVAL& value) {
    switch (TypeFromPropID(value.propid)) {
        case CEVT_I2: value.val.iVal = static_cast<short>(number); break;
        case CEVT_I4: value.val.lVal = static_cast<long>(number); break;
        case CEVT_UI2: value.val.uiVal = static_cast<USHORT>(number); break;
        case CEVT_UI4: value.val.ulVal = static_cast<ULONG>(number); break;
        case CEVT_BOOL: value.val.boolVal = static_cast<BOOL>(number); break;
        case CEVT_R8: value.val.dblVal = std::bit_cast<double>(Turn(number)); break;
        case CEVT_FILETIME: value.val.filetime = ToTime(number); break;
        default: break;
    }
}

StoredValue FromColumn(const Statement& row, int column) {
    if (row.IsNull(column)) return {};
    if (row.IsNumber(column)) return {StoredValue::kNumber, row.Number(column), {}};
    return {StoredValue::kBytes, 0, row.Blob(column)};
}

std::string ColumnName(CEPROPID property) {
    char name[12];
    std::snprintf(name, sizeof name, "p%08lX", static_cast<unsigned long>(property));
    return name;
}

}  // namespace store
