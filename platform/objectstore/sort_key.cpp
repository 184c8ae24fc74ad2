#include "platform/objectstore/sort_key.h"

#include <sqlite3.h>

#include <cstdio>
#include <cstring>

#include "platform/objectstore/store_error.h"

namespace store {
namespace {

// Written only while the store is being opened, under the store's lock.
wchar_t sortLocale[LOCALE_NAME_MAX_LENGTH] = L"en-US";

DWORD StringFlags(const SORTORDERSPEC& order) {
    return (order.dwFlags & CEDB_SORT_CASEINSENSITIVE) ? NORM_IGNORECASE : 0;
}

// The empty string has the empty key; no other string has.
std::string StringKey(Bytes text, DWORD flags) {
    const int length = text.size / 2;
    if (length == 0) return {};
    std::wstring copy(static_cast<size_t>(length), L'\0');  // SQLite's bytes need not be aligned
    std::memcpy(copy.data(), text.data, copy.size() * sizeof(wchar_t));
    // Most keys fit here; asking for the size first would double the work.
    char local[1024];
    int size = LCMapStringEx(sortLocale, LCMAP_SORTKEY | flags, copy.data(), length, reinterpret_cast<wchar_t*>(local),
                             sizeof local, nullptr, nullptr, 0);
    if (size > 0) return {local, static_cast<size_t>(size)};
    size = LCMapStringEx(sortLocale, LCMAP_SORTKEY | flags, copy.data(), length, nullptr, 0, nullptr, nullptr, 0);
    if (size <= 0) Fail(ERROR_NOT_ENOUGH_MEMORY);
    std::string key(static_cast<size_t>(size), '\0');
    LCMapStringEx(sortLocale, LCMAP_SORTKEY | flags, copy.data(), length, reinterpret_cast<wchar_t*>(key.data()), size,
                  nullptr, nullptr, 0);
    return key;
}

void SortKeyFunction(sqlite3_context* context, int, sqlite3_value** arguments) noexcept {
    if (sqlite3_value_type(arguments[0]) == SQLITE_NULL) return;  // the result stays NULL: "missing"
    try {
        const void* data = sqlite3_value_blob(arguments[0]);
        const std::string key =
            StringKey({data, sqlite3_value_bytes(arguments[0])}, static_cast<DWORD>(sqlite3_value_int(arguments[1])));
        sqlite3_result_blob64(context, key.data(), key.size(), SQLITE_TRANSIENT);
    } catch (...) {
        sqlite3_result_error_nomem(context);
    }
}

int CompareBytes(const std::string& a, const std::string& b) {
    const int order = std::memcmp(a.data(), b.data(), std::min(a.size(), b.size()));
    if (order != 0) return order;
    return a.size() < b.size() ? -1 : a.size() > b.size();
}

}  // namespace

bool UseSortLocale(const std::wstring& name) {
    if (name.size() >= LOCALE_NAME_MAX_LENGTH || !IsValidLocaleName(name.c_str())) return false;
    std::wmemcpy(sortLocale, name.c_str(), name.size() + 1);
    return true;
}

std::wstring SystemSortLocale() {
    wchar_t name[LOCALE_NAME_MAX_LENGTH] = {};
    return GetSystemDefaultLocaleName(name, LOCALE_NAME_MAX_LENGTH) > 0 ? name : L"en-US";
}

std::string SortVersion() {
    NLSVERSIONINFOEX version = {};
    version.dwNLSVersionInfoSize = sizeof version;
    GetNLSVersionEx(COMPARE_STRING, sortLocale, &version);
    char text[40];
    std::snprintf(text, sizeof text, "%08lx.%08lx", version.dwNLSVersion, version.dwDefinedVersion);
    return text;
}

SortKey MakeSortKey(const SORTORDERSPEC& order, const StoredValue& value) {
    SortKey key;
    if (value.kind == StoredValue::kNone) return key;
    key.missing = false;
    if (TypeFromPropID(order.propid) == CEVT_LPWSTR) {
        key.bytes = StringKey(value.bytes, StringFlags(order));
    } else if (value.kind == StoredValue::kBytes) {
        key.bytes.assign(static_cast<const char*>(value.bytes.data), static_cast<size_t>(value.bytes.size));
    } else {
        key.number = value.number;
    }
    return key;
}

int CompareInOrder(const SORTORDERSPEC& order, const SortKey& a, CEOID aOid, const SortKey& b, CEOID bOid) {
    if (a.missing != b.missing) {
        const bool missingFirst = (order.dwFlags & CEDB_SORT_UNKNOWNFIRST) != 0;
        return a.missing == missingFirst ? -1 : 1;
    }
    int result = 0;
    if (!a.missing) {
        result = a.number < b.number ? -1 : a.number > b.number;
        if (result == 0) result = CompareBytes(a.bytes, b.bytes);
        if (order.dwFlags & CEDB_SORT_DESCENDING) result = -result;
    }
    if (result == 0) result = aOid < bOid ? -1 : aOid > bOid;
    return result;
}

void AddSortKeyFunction(sqlite3* connection) {
    const int result =
        sqlite3_create_function_v2(connection, "sort_key", 2, SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS,
                                   nullptr, SortKeyFunction, nullptr, nullptr, nullptr);
    if (result != SQLITE_OK) FailSqlite(connection, result);
}

std::string KeyExpression(const SORTORDERSPEC& order) {
    const std::string column = ColumnName(order.propid);
    if (TypeFromPropID(order.propid) != CEVT_LPWSTR) return column;
    return "sort_key(" + column + "," + std::to_string(StringFlags(order)) + ")";
}

std::string LeastKey(const SORTORDERSPEC& order) {
    const bool bytes = TypeFromPropID(order.propid) == CEVT_LPWSTR || TypeFromPropID(order.propid) == CEVT_BLOB;
    return bytes ? "x''" : "-9223372036854775808";
}

}  // namespace store
