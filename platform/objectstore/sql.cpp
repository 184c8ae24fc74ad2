#include "platform/objectstore/sql.h"

#include "platform/objectstore/fault.h"
#include "platform/objectstore/store_error.h"

namespace store {

Statement::Statement(sqlite3* connection, std::string_view sql) : connection_(connection) {
    sqlite3_stmt* statement = nullptr;
    const int result = sqlite3_prepare_v3(connection, sql.data(), static_cast<int>(sql.size()),
                                          SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
    statement_.reset(statement);
    if (result != SQLITE_OK) FailSqlite(connection, result);
}

void Statement::Check(int result) {
    if (result != SQLITE_OK) FailSqlite(connection_, result);
}

void Statement::Bind(int place, int64_t value) {
    Check(sqlite3_bind_int64(statement_.get(), place, value));
}

void Statement::BindNull(int place) {
    Check(sqlite3_bind_null(statement_.get(), place));
}

void Statement::BindBytes(int place, Bytes value) {
    // SQLite takes a null pointer for NULL, which here means "no value" and not "an empty one".
    Check(sqlite3_bind_blob(statement_.get(), place, value.data ? value.data : "", value.size, SQLITE_STATIC));
}

bool Statement::Step() {
    const int result = sqlite3_step(statement_.get());
    if (result == SQLITE_ROW) return true;
    if (result == SQLITE_DONE) return false;
    const DWORD error = ErrorFromSqlite(sqlite3_extended_errcode(connection_), connection_);
    sqlite3_reset(statement_.get());
    Fail(error);
}

Bytes Statement::Blob(int column) const {
    const void* data = sqlite3_column_blob(statement_.get(), column);
    return {data, sqlite3_column_bytes(statement_.get(), column)};
}

std::string Statement::Text(int column) const {
    const unsigned char* text = sqlite3_column_text(statement_.get(), column);
    return text ? reinterpret_cast<const char*>(text) : "";
}

Connection::Connection(const std::string& utf8Path, int flags) {
    const int result = sqlite3_open_v2(utf8Path.c_str(), &connection_, flags | SQLITE_OPEN_NOMUTEX, StoreVfs());
    if (result != SQLITE_OK) {
        const DWORD error = ErrorFromSqlite(result);
        sqlite3_close_v2(connection_);
        Fail(error);
    }
    sqlite3_extended_result_codes(connection_, 1);
}

Connection::~Connection() {
    statements_.clear();
    sqlite3_close_v2(connection_);
}

void Connection::Run(const std::string& sql) {
    const int result = sqlite3_exec(connection_, sql.c_str(), nullptr, nullptr, nullptr);
    if (result != SQLITE_OK) FailSqlite(connection_, result);
}

void Connection::TryRun(const char* sql) noexcept {
    sqlite3_exec(connection_, sql, nullptr, nullptr, nullptr);
}

Statement& Connection::Get(const std::string& sql) {
    const auto [first, last] = statements_.equal_range(sql);
    for (auto kept = first; kept != last; ++kept) {
        if (!kept->second.Running()) return kept->second;
    }
    return statements_.emplace(sql, Statement(connection_, sql))->second;
}

}  // namespace store
