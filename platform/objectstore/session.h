// The store's file, opened: snapshots for reading, transactions for writing, batches. All under the store's lock.
//
// Reading keeps one snapshot of the file over many calls, because taking one costs several file locks. It is renewed
// when another process has written (shared memory says so) and when it is older than kSnapshotAge in any case; a timer
// gives it up when the process stops calling, so that it never keeps the log from being cleared.
#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <string>

#include "platform/objectstore/catalog.h"
#include "platform/objectstore/shared_state.h"
#include "platform/objectstore/sql.h"
#include "platform/objectstore/store_file.h"

namespace store {

constexpr ULONGLONG kSnapshotAge = 250;  // milliseconds

class Session {
public:
    // Opens the store. `lock` is the store's, for the timer. `leaving` is called whenever what the calls have seen of
    // the file is about to pass, while it can still be read; it must not throw.
    Session(const std::wstring& path, std::recursive_mutex& lock, std::function<void()> leaving = nullptr);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    // At the end of the process, when all other threads are gone, the timer's too: finishes the file and nothing else.
    void CloseFileAtExit() noexcept;

    Connection& Sql() { return *file_.connection; }
    SharedState& Shared() { return shared_; }
    Catalog& Databases() { return catalog_; }

    // Every call that reads begins with this.
    void Refresh();

    // What keeps this process from writing, as far as it is known: 0, ERROR_WRITE_PROTECT, or ERROR_DISK_FULL when
    // there was no room at the opening and nothing has been written since.
    DWORD Limit() const;

    // A batch: writes until the end of it are one transaction.
    bool InBatch() const { return batch_; }
    void BeginBatch();
    void EndBatch(bool commit);
    // Posts a change to other threads and processes; in a batch when it ends.
    void Notify(CEOID database, UINT message, CEOID object);

    // A scan is going on: its one snapshot stays, and nothing may be written.
    bool IsScanning() const { return scans_ > 0; }

private:
    friend class Transaction;
    friend class Scanning;
    struct Message {
        CEOID database;
        UINT message;
        CEOID object;
    };

    static VOID CALLBACK OnTimer(PTP_CALLBACK_INSTANCE, PVOID self, PTP_TIMER) noexcept;
    void TakeSnapshot();
    void EndSnapshot() noexcept;
    void EndTransaction() noexcept;
    void SetTimer();
    void ReloadIfChanged(bool always);
    void BeginWriting();
    void Commit();

    std::recursive_mutex& lock_;
    const std::function<void()> leaving_;
    SharedState shared_;
    StoreFile file_;
    Catalog catalog_;
    PTP_TIMER timer_ = nullptr;
    bool snapshot_ = false;
    bool noRoom_ = false;
    bool stale_ = true;  // the catalog must be read anew
    ULONGLONG taken_ = 0;
    LONG64 seen_ = 0;
    int64_t version_ = -1;
    int scans_ = 0;
    bool batch_ = false;
    DWORD broken_ = 0;  // what undid the batch before its end
    std::vector<Message> messages_;
};

// A scan, while it lives. What the store was when it began, it shows to the end.
class Scanning {
public:
    explicit Scanning(Session& session) : session_(session) { ++session_.scans_; }
    ~Scanning();
    Scanning(const Scanning&) = delete;
    Scanning& operator=(const Scanning&) = delete;

private:
    Session& session_;
};

// One change of the store: everything written while it lives, or nothing.
class Transaction {
public:
    explicit Transaction(Session& session);
    ~Transaction();  // undoes, unless committed
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void Commit();

private:
    Session& session_;
    bool open_ = true;
};

}  // namespace store
