#include "bench/bare_database.h"

#include <sqlite3.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <vector>

#include "bench/report.h"

namespace {

int64_t Number(FILETIME time) {
    return static_cast<int64_t>((uint64_t{time.dwHighDateTime} << 32) | time.dwLowDateTime);
}

std::string Narrow(const std::wstring& path) {
    char text[1024] = {};
    WideCharToMultiByte(CP_UTF8, 0, path.c_str(), -1, text, sizeof text, nullptr, nullptr);
    return text;
}

// The key that the object store's index has too: building one index must be compared with building the same.
void SubjectKey(sqlite3_context* context, int, sqlite3_value** arguments) {
    wchar_t name[LOCALE_NAME_MAX_LENGTH] = L"";
    static const int named = GetSystemDefaultLocaleName(name, LOCALE_NAME_MAX_LENGTH);
    static const std::wstring locale = named > 0 ? name : L"en-US";
    const auto* text = static_cast<const wchar_t*>(sqlite3_value_blob(arguments[0]));
    const int length = sqlite3_value_bytes(arguments[0]) / 2;
    char key[2048];
    const int size = length == 0 ? 0
                                 : LCMapStringEx(locale.c_str(), LCMAP_SORTKEY | NORM_IGNORECASE, text, length,
                                                 reinterpret_cast<wchar_t*>(key), sizeof key, nullptr, nullptr, 0);
    sqlite3_result_blob(context, key, size, SQLITE_TRANSIENT);
}

}  // namespace

BareDatabase::BareDatabase(const std::wstring& path, unsigned entries) : path_(Narrow(path)) {
    Open();
    Run("PRAGMA journal_mode=WAL; PRAGMA synchronous=FULL;"
        "CREATE TABLE entry(id INTEGER PRIMARY KEY, start, subject, company, type, priority, sensitivity, duration, "
        "categories); CREATE TABLE body(id INTEGER PRIMARY KEY, value); CREATE INDEX sorted ON entry(start); BEGIN");
    std::vector<int64_t> starts;
    for (unsigned number = 0; number < entries; ++number) {
        const SampleEntry entry = MakeSampleEntry(number);
        starts.push_back(Number(entry.start));
        InsertEntry(entry);
    }
    Run("COMMIT");
    std::sort(starts.begin(), starts.end());
    const auto middle = static_cast<uint64_t>(starts[starts.size() / 2]);
    middle_ = {static_cast<DWORD>(middle), static_cast<DWORD>(middle >> 32)};
}

BareDatabase::~BareDatabase() {
    Close();
}

void BareDatabase::Open() {
    Require(sqlite3_open(path_.c_str(), &database_) == SQLITE_OK, "opening the bare database");
    sqlite3_create_function(database_, "subject_key", 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS, nullptr,
                            SubjectKey, nullptr, nullptr);
    Run("PRAGMA synchronous=FULL; PRAGMA cache_size=-32768; PRAGMA temp_store=MEMORY");
}

void BareDatabase::Close() {
    sqlite3_close(database_);
    database_ = nullptr;
}

void BareDatabase::Run(const char* sql) {
    Require(sqlite3_exec(database_, sql, nullptr, nullptr, nullptr) == SQLITE_OK, sql);
}

void BareDatabase::Reopen() {
    Close();
    Open();
    ReadCount();
}

void BareDatabase::ReadCount() {
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(database_, "SELECT id FROM entry ORDER BY start LIMIT 1", -1, &statement, nullptr);
    sqlite3_step(statement);
    sqlite3_finalize(statement);
}

void BareDatabase::ReadPage(const char* sql, bool fromMiddle) {
    sqlite3_stmt* statement = nullptr;
    Require(sqlite3_prepare_v2(database_, sql, -1, &statement, nullptr) == SQLITE_OK, sql);
    if (fromMiddle) sqlite3_bind_int64(statement, 1, Number(middle_));
    volatile int bytes = 0;
    while (sqlite3_step(statement) == SQLITE_ROW) {
        sqlite3_column_int64(statement, 1);
        sqlite3_column_blob(statement, 2);
        sqlite3_column_blob(statement, 3);
        bytes = bytes + sqlite3_column_bytes(statement, 2);
    }
    sqlite3_finalize(statement);
}

void BareDatabase::ReadFirstPage() {
    ReadPage("SELECT id, start, subject, categories FROM entry ORDER BY start LIMIT 30", false);
}

void BareDatabase::ReadMiddlePage() {
    ReadPage("SELECT id, start, subject, categories FROM entry WHERE start>=? ORDER BY start LIMIT 30", true);
}

void BareDatabase::ReadLastPage() {
    ReadPage("SELECT id, start, subject, categories FROM entry ORDER BY start DESC LIMIT 30", false);
}

void BareDatabase::ReadAll() {
    ReadPage("SELECT id, start, subject, categories FROM entry", false);
}

void BareDatabase::ReadBodies(unsigned most) {
    sqlite3_stmt* statement = nullptr;
    constexpr char kSql[] = "SELECT value FROM body LIMIT ?";
    Require(sqlite3_prepare_v2(database_, kSql, -1, &statement, nullptr) == SQLITE_OK, kSql);
    sqlite3_bind_int64(statement, 1, most);
    volatile uint64_t seen = 0;
    while (sqlite3_step(statement) == SQLITE_ROW) {
        const auto* bytes = static_cast<const BYTE*>(sqlite3_column_blob(statement, 0));
        const int size = sqlite3_column_bytes(statement, 0);
        uint64_t sum = 0;
        for (int at = 0; at + 8 <= size; at += 8) {
            uint64_t word = 0;
            std::memcpy(&word, bytes + at, sizeof word);
            sum += word;
        }
        seen = seen + sum;
    }
    sqlite3_finalize(statement);
}

void BareDatabase::Dump(const std::wstring& path) {
    constexpr size_t kPiece = size_t{4} << 20;
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    Require(file != INVALID_HANDLE_VALUE, "making the dump's file");
    std::string bytes;
    const auto write = [&] {
        DWORD written = 0;
        Require(WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr), "dumping");
        bytes.clear();
    };
    sqlite3_stmt* statement = nullptr;
    constexpr char kSql[] =
        "SELECT subject, type, start, duration, priority, sensitivity, company, categories, value FROM entry JOIN body "
        "USING(id)";
    Require(sqlite3_prepare_v2(database_, kSql, -1, &statement, nullptr) == SQLITE_OK, kSql);
    const int columns = sqlite3_column_count(statement);
    while (sqlite3_step(statement) == SQLITE_ROW) {
        for (int column = 0; column < columns; ++column) {
            if (sqlite3_column_type(statement, column) == SQLITE_INTEGER) {
                const sqlite3_int64 number = sqlite3_column_int64(statement, column);
                bytes.append(reinterpret_cast<const char*>(&number), sizeof number);
            } else if (const void* value = sqlite3_column_blob(statement, column)) {
                bytes.append(static_cast<const char*>(value),
                             static_cast<size_t>(sqlite3_column_bytes(statement, column)));
            }
        }
        if (bytes.size() >= kPiece) write();
    }
    write();
    sqlite3_finalize(statement);
    FlushFileBuffers(file);
    CloseHandle(file);
}

unsigned BareDatabase::CountRows(const char* sql, const std::function<void(sqlite3_stmt*)>& bind) {
    sqlite3_stmt* statement = nullptr;
    Require(sqlite3_prepare_v2(database_, sql, -1, &statement, nullptr) == SQLITE_OK, sql);
    bind(statement);
    volatile int64_t ids = 0;
    unsigned rows = 0;
    for (; sqlite3_step(statement) == SQLITE_ROW; ++rows)
        ids = ids + sqlite3_column_int64(statement, 0);
    sqlite3_finalize(statement);
    return rows;
}

unsigned BareDatabase::CountSubjects(const std::wstring& text) {
    return CountRows("SELECT id FROM entry WHERE instr(subject, ?)", [&](sqlite3_stmt* statement) {
        sqlite3_bind_blob(statement, 1, text.data(), static_cast<int>(text.size() * sizeof(wchar_t)), SQLITE_STATIC);
    });
}

unsigned BareDatabase::CountBodies(const std::wstring& text) {
    const std::string bytes(text.begin(), text.end());
    return CountRows("SELECT id FROM body WHERE instr(value, ?)", [&](sqlite3_stmt* statement) {
        sqlite3_bind_blob(statement, 1, bytes.data(), static_cast<int>(bytes.size()), SQLITE_STATIC);
    });
}

unsigned BareDatabase::CountStarts(uint64_t first, uint64_t end) {
    return CountRows("SELECT id FROM entry NOT INDEXED WHERE start>=? AND start<?", [&](sqlite3_stmt* statement) {
        sqlite3_bind_int64(statement, 1, static_cast<int64_t>(first));
        sqlite3_bind_int64(statement, 2, static_cast<int64_t>(end));
    });
}

void BareDatabase::ReadPageWith(const std::vector<DWORD>& categories) {
    sqlite3_stmt* statement = nullptr;
    constexpr char kSql[] = "SELECT id, start, subject, categories FROM entry WHERE start>=? ORDER BY start";
    Require(sqlite3_prepare_v2(database_, kSql, -1, &statement, nullptr) == SQLITE_OK, kSql);
    sqlite3_bind_int64(statement, 1, Number(middle_));
    for (int rows = 0; rows < 30 && sqlite3_step(statement) == SQLITE_ROW;) {
        const auto* ids = static_cast<const BYTE*>(sqlite3_column_blob(statement, 3));
        const int size = sqlite3_column_bytes(statement, 3);
        for (int at = 0; at + 4 <= size; at += 4) {
            DWORD id = 0;
            std::memcpy(&id, ids + at, sizeof id);
            if (std::find(categories.begin(), categories.end(), id) == categories.end()) continue;
            sqlite3_column_blob(statement, 2);
            ++rows;
            break;
        }
    }
    sqlite3_finalize(statement);
}

void BareDatabase::InsertEntry(const SampleEntry& entry) {
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(database_,
                       "INSERT INTO entry(start, subject, company, type, priority, sensitivity, duration, categories) "
                       "VALUES(?,?,?,?,?,?,?,?)",
                       -1, &statement, nullptr);
    sqlite3_bind_int64(statement, 1, Number(entry.start));
    sqlite3_bind_blob(statement, 2, entry.subject.data(), static_cast<int>(entry.subject.size() * 2), SQLITE_STATIC);
    sqlite3_bind_blob(statement, 3, entry.company.data(), static_cast<int>(entry.company.size() * 2), SQLITE_STATIC);
    sqlite3_bind_int(statement, 4, entry.type);
    sqlite3_bind_int(statement, 5, entry.priority);
    sqlite3_bind_int(statement, 6, entry.sensitivity);
    sqlite3_bind_int64(statement, 7, Number(entry.duration));
    sqlite3_bind_blob(statement, 8, entry.categories.data(), static_cast<int>(entry.categories.size() * 4),
                      SQLITE_STATIC);
    Require(sqlite3_step(statement) == SQLITE_DONE, "inserting an entry");
    sqlite3_finalize(statement);
    sqlite3_prepare_v2(database_, "INSERT INTO body VALUES(last_insert_rowid(), ?)", -1, &statement, nullptr);
    sqlite3_bind_blob(statement, 1, entry.body.data(), static_cast<int>(entry.body.size()), SQLITE_STATIC);
    Require(sqlite3_step(statement) == SQLITE_DONE, "inserting a body");
    sqlite3_finalize(statement);
}

void BareDatabase::Insert(const SampleEntry& entry) {
    Run("BEGIN IMMEDIATE");
    InsertEntry(entry);
    Run("COMMIT");
}

// Another subject each time: SQLite leaves a page alone that would not change.
void BareDatabase::Update() {
    updated_ = !updated_;
    Run(updated_ ? "UPDATE entry SET subject=x'61006200' WHERE id=(SELECT max(id) FROM entry)/2+1"
                 : "UPDATE entry SET subject=x'62006200' WHERE id=(SELECT max(id) FROM entry)/2+1");
}

void BareDatabase::DeleteLast() {
    Run("BEGIN IMMEDIATE; DELETE FROM body WHERE id=(SELECT max(id) FROM entry);"
        "DELETE FROM entry WHERE id=(SELECT max(id) FROM entry); COMMIT");
}

void BareDatabase::SortBySubject() {
    Run("BEGIN IMMEDIATE; DROP INDEX IF EXISTS sorted; CREATE INDEX sorted ON entry(subject_key(subject)); COMMIT");
}

void BareDatabase::SortByStart() {
    Run("BEGIN IMMEDIATE; DROP INDEX IF EXISTS sorted; CREATE INDEX sorted ON entry(start); COMMIT");
}
