#include "platform/objectstore/backup.h"

#include <sqlite3.h>

#include <cstring>
#include <memory>
#include <mutex>

#include "platform/objectstore/fault.h"
#include "platform/objectstore/integrity.h"
#include "platform/objectstore/store_error.h"
#include "platform/objectstore/store_file.h"

#undef CloseHandle

namespace store {
namespace {

// What SQLite keeps beside a file.
constexpr const wchar_t* kCompanions[] = {L"-wal", L"-shm", L"-journal"};

bool Exists(const std::wstring& path) {
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

// A file on its way to be a store: gone at the end, with all that came to be beside it, unless it got another name.
class UnfinishedFile {
public:
    explicit UnfinishedFile(std::wstring path) : path_(std::move(path)) { Remove(); }
    ~UnfinishedFile() { Remove(); }
    UnfinishedFile(const UnfinishedFile&) = delete;
    UnfinishedFile& operator=(const UnfinishedFile&) = delete;

    const std::wstring& Path() const { return path_; }
    // In one step: whoever looks finds what was there before, or this.
    void Become(const std::wstring& path) const {
        if (!MoveFileExW(path_.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) {
            Fail(GetLastError());
        }
    }

private:
    void Remove() const {
        DeleteFileW(path_.c_str());
        for (const wchar_t* companion : kCompanions)
            DeleteFileW((path_ + companion).c_str());
    }

    const std::wstring path_;
};

class File {
public:
    explicit File(const std::wstring& path)
        : handle_(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                              nullptr, OPEN_EXISTING, 0, nullptr)) {}
    ~File() {
        if (IsOpen()) CloseHandle(handle_);
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
    bool IsSame(const File& other) const {
        BY_HANDLE_FILE_INFORMATION one = {};
        BY_HANDLE_FILE_INFORMATION two = {};
        return IsOpen() && other.IsOpen() && GetFileInformationByHandle(handle_, &one) &&
               GetFileInformationByHandle(other.handle_, &two) &&
               one.dwVolumeSerialNumber == two.dwVolumeSerialNumber && one.nFileIndexHigh == two.nFileIndexHigh &&
               one.nFileIndexLow == two.nFileIndexLow;
    }
    // By the first bytes, which say so.
    bool IsStore() const {
        char head[72] = {};
        DWORD count = 0;
        return IsOpen() && ReadFile(handle_, head, sizeof head, &count, nullptr) && count == sizeof head &&
               std::memcmp(head, "SQLite format 3", 16) == 0 && std::memcmp(head + 68, "CEOS", 4) == 0;
    }

private:
    HANDLE handle_;
};

void CopyPages(Connection& from, const std::wstring& target) {
    // The system tells better than SQLite why a file cannot be made.
    const HANDLE file = CreateFileW(target.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) Fail(GetLastError());
    CloseHandle(file);
    Connection to(ToUtf8(target), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    sqlite3_backup* backup = sqlite3_backup_init(to.Raw(), "main", from.Raw(), "main");
    if (!backup) Fail(ErrorFromSqlite(sqlite3_extended_errcode(to.Raw())));
    // All pages in one step: one snapshot, whatever others write meanwhile.
    const int result = sqlite3_backup_step(backup, -1);
    sqlite3_backup_finish(backup);
    if (result != SQLITE_DONE) Fail(ErrorFromSqlite(result));
}

// Opens the file as a store, which brings it up to date and puts its log into it, and reads all of it.
void CheckCopy(const std::wstring& path) {
    std::recursive_mutex lock;
    Session copy(path, lock);
    if (!CheckStore(copy, [](const std::wstring&) {})) Fail(ERROR_FILE_CORRUPT);
}

// On the disk when this returns.
void CopyWhole(const std::wstring& from, const std::wstring& to) {
    if (!CopyFileW(from.c_str(), to.c_str(), FALSE)) Fail(GetLastError());
    SetFileAttributesW(to.c_str(), FILE_ATTRIBUTE_NORMAL);  // of a read-only copy
    const HANDLE file = CreateFileW(to.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    const bool flushed = file != INVALID_HANDLE_VALUE && FlushFileBuffers(file);
    const DWORD error = GetLastError();
    if (file != INVALID_HANDLE_VALUE) CloseHandle(file);
    if (!flushed) Fail(error);
}

// A step of a restore, at which tests let it fail or be killed.
void Step(const char* name) {
    if (const DWORD error = TakeCallFault(name)) Fail(error);
}

// "ObjectStore.db" becomes "ObjectStore-2026-11-21-174003.db", with a number when there is one of that name.
std::wstring DatedName(const std::wstring& path) {
    SYSTEMTIME now = {};
    GetLocalTime(&now);
    wchar_t date[40];
    wsprintfW(date, L"-%04u-%02u-%02u-%02u%02u%02u", now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute,
              now.wSecond);
    const size_t name = path.find_last_of(L"\\/") + 1;
    size_t dot = path.find_last_of(L'.');
    if (dot == std::wstring::npos || dot <= name) dot = path.size();
    for (int number = 1;; ++number) {
        const std::wstring suffix = number == 1 ? L"" : L"-" + std::to_wstring(number);
        const std::wstring dated = path.substr(0, dot) + date + suffix + path.substr(dot);
        if (!Exists(dated)) return dated;
    }
}

// Puts the log into the store. One that is too damaged for that keeps it.
void PutLogIntoStore(const std::wstring& path) {
    try {
        Connection connection(ToUtf8(path), SQLITE_OPEN_READWRITE);
        connection.Run("PRAGMA synchronous=FULL; PRAGMA wal_checkpoint(TRUNCATE)");
    } catch (const StoreError& failure) {
        if (failure.code != ERROR_FILE_CORRUPT) throw;
    }
}

// Copies the store to a dated name. The new store must not find the log of the old one, so that goes.
std::wstring KeepOld(const std::wstring& path) {
    const std::wstring log = path + L"-wal";
    if (!Exists(path)) {
        if (Exists(log) && !MoveFileExW(log.c_str(), (log + L".lost").c_str(), MOVEFILE_REPLACE_EXISTING)) {
            Fail(GetLastError());
        }
        return {};
    }
    PutLogIntoStore(path);
    Step("restore: log");
    const std::wstring kept = DatedName(path);
    if (Exists(log)) CopyWhole(log, kept + L"-wal");
    const UnfinishedFile copy(path + L".keep");
    CopyWhole(path, copy.Path());
    copy.Become(kept);
    Step("restore: kept");
    for (const wchar_t* companion : kCompanions) {
        const std::wstring beside = path + companion;
        if (!DeleteFileW(beside.c_str()) && GetLastError() != ERROR_FILE_NOT_FOUND) {
            const DWORD error = GetLastError();
            DeleteFileW(kept.c_str());
            DeleteFileW((kept + L"-wal").c_str());
            Fail(error);
        }
    }
    return kept;
}

}  // namespace

void BackUp(Session& session, const std::wstring& path, const std::wstring& target) {
    if (session.InBatch() || session.IsScanning()) Fail(ERROR_BUSY);
    {
        const File there(target);
        if (there.IsSame(File(path))) Fail(ERROR_INVALID_PARAMETER);
        if (!there.IsOpen() && Exists(target)) Fail(ERROR_ACCESS_DENIED);  // a folder
        if (there.IsOpen() && !there.IsStore()) Fail(ERROR_FILE_EXISTS);
    }
    const UnfinishedFile copy(target + L".part");
    CopyPages(session.Sql(), copy.Path());
    CheckCopy(copy.Path());
    copy.Become(target);
}

std::wstring Restore(const std::wstring& path, const std::wstring& source) {
    const UnfinishedFile copy(path + L".restore");
    {
        const File given(source);
        if (given.IsSame(File(path))) Fail(ERROR_INVALID_PARAMETER);
        CopyWhole(source, copy.Path());
        if (!given.IsStore()) Fail(ERROR_FILE_CORRUPT);
    }
    if (Exists(source + L"-wal")) CopyWhole(source + L"-wal", copy.Path() + L"-wal");
    Step("restore: copied");
    CheckCopy(copy.Path());
    Step("restore: checked");

    SharedState shared(path);
    SharedState::Lock lock(shared);  // nobody opens the store until this is over
    if (shared.IsInUse()) Fail(ERROR_SHARING_VIOLATION);
    const std::wstring kept = KeepOld(path);
    Step("restore: ready");
    try {
        copy.Become(path);
    } catch (const StoreError&) {
        if (!kept.empty()) DeleteFileW(kept.c_str());
        throw;
    }
    Step("restore: done");
    return kept;
}

}  // namespace store
