// A connection to SQLite and its statements. Whatever SQLite refuses is thrown as StoreError.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

namespace store {

struct Bytes {
    const void* data = nullptr;
    int size = 0;
};

// One compiled statement.
class Statement {
public:
    Statement(sqlite3* connection, std::string_view sql);

    void Bind(int place, int64_t value);
    void BindNull(int place);
    void BindBytes(int place, Bytes value);  // the bytes must stay until the statement is reset; null data: empty

    [[nodiscard]] bool Step();  // true: there is a row
    void Reset() noexcept { sqlite3_reset(statement_.get()); }
    bool Running() const { return sqlite3_stmt_busy(statement_.get()) != 0; }

    // Columns of the current row, from 0. Bytes stay until the next Step or Reset.
    bool IsNull(int column) const { return sqlite3_column_type(statement_.get(), column) == SQLITE_NULL; }
    bool IsNumber(int column) const { return sqlite3_column_type(statement_.get(), column) == SQLITE_INTEGER; }
    int64_t Number(int column) const { return sqlite3_column_int64(statement_.get(), column); }
    Bytes Blob(int column) const;
    std::string Text(int column) const;

private:
    struct Finalizer {
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };
    void Check(int result);

    sqlite3* connection_;
    std::unique_ptr<sqlite3_stmt, Finalizer> statement_;
};

// Resets a statement at the end of a scope, so that it doesn't hold rows or a snapshot.
class ResetAtEnd {
public:
    explicit ResetAtEnd(Statement& statement) : statement_(statement) {}
    ~ResetAtEnd() { statement_.Reset(); }
    ResetAtEnd(const ResetAtEnd&) = delete;
    ResetAtEnd& operator=(const ResetAtEnd&) = delete;

private:
    Statement& statement_;
};

// The connection; closing it finishes the file's work (checkpoint).
class Connection {
public:
    // Opens the file with SQLITE_OPEN_* flags. Throws.
    Connection(const std::string& utf8Path, int flags);
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    ~Connection();

    sqlite3* Raw() const { return connection_; }
    bool ReadOnly() const { return sqlite3_db_readonly(connection_, "main") == 1; }
    // Whether a transaction is open; SQLite ends one by itself after some failures.
    bool InTransaction() const { return sqlite3_get_autocommit(connection_) == 0; }

    // Runs statements without results.
    void Run(const std::string& sql);
    // The same, for clearing up: a failure changes nothing.
    void TryRun(const char* sql) noexcept;

    // The compiled form of the text, kept for the next time; a fresh one, kept too, while that is running.
    Statement& Get(const std::string& sql);

private:
    sqlite3* connection_ = nullptr;
    std::unordered_multimap<std::string, Statement> statements_;
};

// One use of a kept statement: bound, stepped, and reset at the end of the scope.
class Query {
public:
    Query(Connection& connection, const std::string& sql) : statement_(connection.Get(sql)), reset_(statement_) {}

    Query& operator<<(int64_t value) { return statement_.Bind(++bound_, value), *this; }
    Query& operator<<(Bytes value) { return statement_.BindBytes(++bound_, value), *this; }
    bool Step() { return statement_.Step(); }
    void Finish() {
        while (statement_.Step()) {
        }
    }
    Statement* operator->() { return &statement_; }

private:
    Statement& statement_;
    ResetAtEnd reset_;
    int bound_ = 0;
};

}  // namespace store
