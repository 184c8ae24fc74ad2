#include "platform/objectstore/store_file.h"

#include <filesystem>
#include <system_error>

#include "platform/objectstore/provision.h"
#include "platform/objectstore/schema.h"
#include "platform/objectstore/sort_key.h"
#include "platform/objectstore/store_error.h"

#undef CloseHandle

namespace store {
namespace {

constexpr int kWritersPatience = 5000;  // milliseconds

std::wstring FromEnvironment(const wchar_t* name) {
    std::wstring value(GetEnvironmentVariableW(name, nullptr, 0), L'\0');  // with room for the NUL
    if (!value.empty()) value.resize(GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size())));
    return value;
}

// The size of a file in bytes, -1 when there is none.
int64_t SizeOf(const std::wstring& path) {
    WIN32_FILE_ATTRIBUTE_DATA data = {};
    if (!GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data)) return -1;
    return (int64_t{data.nFileSizeHigh} << 32) | data.nFileSizeLow;
}

void Configure(Connection& connection, bool alone) {
    sqlite3_busy_timeout(connection.Raw(), kWritersPatience);
    // Tables of ours have neither triggers nor views; those in a file that others prepared must not run.
    for (const int option :
         {SQLITE_DBCONFIG_ENABLE_TRIGGER, SQLITE_DBCONFIG_ENABLE_VIEW, SQLITE_DBCONFIG_TRUSTED_SCHEMA})
        sqlite3_db_config(connection.Raw(), option, 0, nullptr);
    AddSortKeyFunction(connection.Raw());
    // Before anything reads the file: what would be shared is in this process's memory then.
    if (alone) connection.Run("PRAGMA locking_mode=EXCLUSIVE");
    connection.Run(
        "PRAGMA synchronous=FULL;"  // a write that returned survives a power cut
        "PRAGMA cache_size=-32768;"
        "PRAGMA temp_store=MEMORY;"
        "PRAGMA journal_size_limit=16777216");
}

void MakeStoreFile(const std::wstring& path) {
    std::error_code error;
    const std::filesystem::path folder = std::filesystem::path(path).parent_path();
    if (!folder.empty()) std::filesystem::create_directories(folder, error);
    if (error) Fail(path.size() >= MAX_PATH ? ERROR_FILENAME_EXCED_RANGE : ERROR_ACCESS_DENIED);

    // A log without its store would be taken for the new store's; whatever it holds is kept aside.
    if (SizeOf(path + L"-wal") > 0 &&
        !MoveFileExW((path + L"-wal").c_str(), (path + L"-wal.lost").c_str(), MOVEFILE_REPLACE_EXISTING)) {
        Fail(ERROR_ACCESS_DENIED);
    }
    const std::wstring unfinished = path + L".new";
    DeleteFileW(unfinished.c_str());
    DeleteFileW((unfinished + L"-journal").c_str());
    try {
        Connection connection(ToUtf8(unfinished), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
        Configure(connection, false);
        CreateSchema(connection);
        Provision(connection);
        connection.Run("PRAGMA journal_mode=WAL");
    } catch (...) {
        DeleteFileW(unfinished.c_str());
        DeleteFileW((unfinished + L"-journal").c_str());
        DeleteFileW((unfinished + L"-wal").c_str());
        DeleteFileW((unfinished + L"-shm").c_str());
        throw;
    }
    if (!MoveFileExW(unfinished.c_str(), path.c_str(), MOVEFILE_WRITE_THROUGH)) Fail(GetLastError());
}

// What SQLite would not notice, or only when it reads the missing part: an empty file counts as a new one for it.
void CheckSize(const std::wstring& path) {
    if (SizeOf(path + L"-wal") > 0) return;  // the log may hold what the file lacks; SQLite puts them together
    const int64_t size = SizeOf(path);
    if (size == 0 || size % kPageSize != 0) Fail(ERROR_FILE_CORRUPT);
}

// Whether what processes share beside the file is there, or can be made. Asked beforehand, since a system may promise
// room that it hasn't got, and end the program that uses it.
bool HasRoomToShare(const std::wstring& path) {
    constexpr int64_t kShared = 32768;  // bytes of the file -shm at first
    if (SizeOf(path + L"-shm") >= kShared) return true;
    const std::wstring folder = std::filesystem::absolute(path).parent_path();
    ULARGE_INTEGER free = {};
    return !GetDiskFreeSpaceExW(folder.c_str(), &free, nullptr, nullptr) || free.QuadPart >= 2 * kShared;
}

StoreFile Open(const std::wstring& path, int flags, bool alone) {
    StoreFile file = {std::make_unique<Connection>(ToUtf8(path), flags), ERROR_SUCCESS, alone};
    Configure(*file.connection, alone);
    file.refusal = CheckSchema(*file.connection);
    return file;
}

}  // namespace

std::string ToUtf8(const std::wstring& text) {
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.c_str(), -1, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<size_t>(size > 0 ? size : 1), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.c_str(), -1, utf8.data(), size, nullptr, nullptr);
    utf8.pop_back();
    return utf8;
}

std::wstring StorePath() {
    std::wstring path = FromEnvironment(L"CE_OBJECT_STORE");
    if (!path.empty()) return path;
    path = FromEnvironment(L"LOCALAPPDATA");
    if (path.empty()) Fail(ERROR_PATH_NOT_FOUND);
    return path + L"\\Pocket PC\\ObjectStore.db";
}

StoreFile OpenStoreFile(const std::wstring& path, SharedState& shared) {
    // Nobody else makes, opens or finishes the file meanwhile.
    SharedState::Lock lock(shared);
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        const DWORD error = GetLastError();
        if (error != ERROR_FILE_NOT_FOUND && error != ERROR_PATH_NOT_FOUND) Fail(error);
        MakeStoreFile(path);
    } else if (attributes & FILE_ATTRIBUTE_DIRECTORY) {
        Fail(ERROR_ACCESS_DENIED);
    }
    CheckSize(path);
    const bool readOnly = attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY);
    const int flags = readOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE;
    if (HasRoomToShare(path)) {
        try {
            return Open(path, flags, false);
        } catch (const StoreError& failure) {
            if (failure.code != ERROR_DISK_FULL) throw;
        }
    }
    return Open(path, flags, true);
}

}  // namespace store
