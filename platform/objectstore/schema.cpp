#include "platform/objectstore/schema.h"

#include <string>

#include "platform/objectstore/sort_key.h"
#include "platform/objectstore/store_error.h"

namespace store {
namespace {

constexpr int64_t kApplication = 0x43454F53;  // "CEOS": tells a store from any other SQLite file
constexpr int64_t kVersion = 1;

std::string ReadSetting(Connection& connection, const char* key) {
    Query query(connection, std::string("SELECT value FROM setting WHERE key='") + key + "'");
    return query.Step() ? query->Text(0) : "";
}

void WriteSetting(Connection& connection, const char* key, const std::string& value) {
    connection.Run(std::string("INSERT OR REPLACE INTO setting VALUES('") + key + "','" + value + "')");
}

int64_t ReadPragma(Connection& connection, const char* name) {
    Query query(connection, std::string("PRAGMA ") + name);
    return query.Step() ? query->Number(0) : 0;
}

}  // namespace

void CreateSchema(Connection& connection) {
    const std::wstring locale = SystemSortLocale();
    UseSortLocale(locale);
    connection.Run("PRAGMA page_size=" + std::to_string(kPageSize) + ";PRAGMA encoding='UTF-16le'");
    connection.Run(
        "BEGIN;"
        "CREATE TABLE setting(key TEXT PRIMARY KEY, value TEXT) WITHOUT ROWID;"
        // orders: a SORTORDERSPEC's two numbers for each sort order, "property:flags property:flags"
        "CREATE TABLE database(oid INTEGER PRIMARY KEY, name BLOB NOT NULL, type INTEGER NOT NULL, "
        "orders TEXT NOT NULL, flags INTEGER NOT NULL);"
        // outside: some value of the property may be in the table large
        "CREATE TABLE property(database INTEGER, property INTEGER, outside INTEGER NOT NULL, "
        "PRIMARY KEY(database, property)) WITHOUT ROWID;"
        // What every write touches, on one page. Object 0: value is the last id given. A database: value is the number
        // of its records, changes the number of writes, modified the time of the last one as a FILETIME's 64 bits.
        "CREATE TABLE counter(oid INTEGER PRIMARY KEY, value INTEGER NOT NULL, changes INTEGER NOT NULL, "
        "modified INTEGER NOT NULL);"
        "INSERT INTO counter VALUES(0, 0, 0, 0);"
        "CREATE TABLE large(id INTEGER PRIMARY KEY, value BLOB NOT NULL);"
        "PRAGMA application_id=" +
        std::to_string(kApplication) + ";PRAGMA user_version=" + std::to_string(kVersion) + ";COMMIT");
    // A locale's name is letters, digits, '-' and '_'.
    WriteSetting(connection, "locale", std::string(locale.begin(), locale.end()));
    WriteSetting(connection, "sort version", SortVersion());
}

DWORD CheckSchema(Connection& connection) {
    if (ReadPragma(connection, "application_id") != kApplication) Fail(ERROR_FILE_CORRUPT);
    if (ReadPragma(connection, "user_version") > kVersion) Fail(ERROR_REVISION_MISMATCH);
    const std::string locale = ReadSetting(connection, "locale");
    if (!UseSortLocale(std::wstring(locale.begin(), locale.end()))) UseSortLocale(L"en-US");
    if (connection.ReadOnly()) return ERROR_WRITE_PROTECT;
    if (ReadSetting(connection, "sort version") == SortVersion()) return ERROR_SUCCESS;
    try {
        connection.Run("BEGIN IMMEDIATE");
        connection.Run("REINDEX");
        WriteSetting(connection, "sort version", SortVersion());
        connection.Run("COMMIT");
    } catch (const StoreError& failure) {
        if (connection.InTransaction()) connection.TryRun("ROLLBACK");
        if (failure.code != ERROR_DISK_FULL) throw;
        return ERROR_DISK_FULL;
    }
    return ERROR_SUCCESS;
}

}  // namespace store
