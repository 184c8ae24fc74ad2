#include "platform/objectstore/session.h"

#include "platform/objectstore/fault.h"
#include "platform/objectstore/store_error.h"

namespace store {
namespace {

bool IsPassing(DWORD error) {
    return error == ERROR_LOCK_VIOLATION || error == ERROR_ACCESS_DENIED || error == ERROR_IO_DEVICE;
}

constexpr size_t kMostMessages = 100;  // of a batch: whoever gets so many reads everything anew anyway

}  // namespace

Session::Session(const std::wstring& path, std::recursive_mutex& lock, std::function<void()> leaving)
    : lock_(lock),
      leaving_(std::move(leaving)),
      shared_(path),
      file_(OpenStoreFile(path, shared_)),
      catalog_(*file_.connection) {
    noRoom_ = file_.alone || file_.refusal == ERROR_DISK_FULL;
    timer_ = CreateThreadpoolTimer(OnTimer, this, nullptr);
    if (!timer_) Fail(GetLastError());
}

Session::~Session() {
    // OnTimer never waits for the lock, so waiting for it here cannot hang.
    SetThreadpoolTimer(timer_, nullptr, 0, 0);
    WaitForThreadpoolTimerCallbacks(timer_, TRUE);
    CloseThreadpoolTimer(timer_);
    EndTransaction();
}

void Session::CloseFileAtExit() noexcept {
    EndTransaction();
    catalog_.Clear();
    file_.connection.reset();
}

VOID CALLBACK Session::OnTimer(PTP_CALLBACK_INSTANCE, PVOID context, PTP_TIMER) noexcept {
    auto& self = *static_cast<Session*>(context);
    const std::unique_lock lock(self.lock_, std::try_to_lock);
    // Somebody is calling: he renews the snapshot himself, and sets the timer again.
    if (lock.owns_lock() && !self.batch_) self.EndSnapshot();
}

void Session::EndSnapshot() noexcept {
    if (!snapshot_) return;
    if (leaving_) leaving_();
    snapshot_ = false;
    Sql().TryRun("COMMIT");
    EndTransaction();
}

// One that stayed open would let every later beginning fail.
void Session::EndTransaction() noexcept {
    if (Sql().InTransaction()) Sql().TryRun("ROLLBACK");
}

DWORD Session::Limit() const {
    if (file_.refusal) return file_.refusal;
    return noRoom_ ? ERROR_DISK_FULL : ERROR_SUCCESS;
}

// A change by this connection doesn't move the version, one by any other does.
void Session::ReloadIfChanged(bool always) {
    int64_t version = 0;
    {
        Query query(Sql(), "PRAGMA data_version");
        if (query.Step()) version = query->Number(0);
    }
    if (version == version_ && !stale_ && !always) return;
    stale_ = true;  // and stays so when the following fails
    catalog_.Reload();
    version_ = version;
    stale_ = false;
}

void Session::SetTimer() {
    ULARGE_INTEGER due;  // relative, in units of 100 ns
    due.QuadPart = static_cast<ULONGLONG>(-static_cast<LONGLONG>(kSnapshotAge * 10'000));
    FILETIME dueTime = {due.LowPart, due.HighPart};
    SetThreadpoolTimer(timer_, &dueTime, 0, 100);
}

void Session::Refresh() {
    if (scans_ > 0) return;
    if (batch_) {
        if (stale_ && !broken_) ReloadIfChanged(true);
        return;
    }
    if (snapshot_ && shared_.Changes() == seen_ && GetTickCount64() - taken_ < kSnapshotAge && !stale_) return;
    EndSnapshot();
    try {
        TakeSnapshot();
    } catch (const StoreError& failure) {
        // Many processes at work may be in each other's way for a moment. Whoever asks for a count and gets none takes
        // it for 0, so it is tried once more.
        if (!IsPassing(failure.code)) throw;
        snapshot_ = false;
        EndTransaction();
        TakeSnapshot();
    }
    SetTimer();
}

void Session::TakeSnapshot() {
    if (const DWORD error = TakeCallFault("snapshot")) Fail(error);
    const LONG64 changes = shared_.Changes();  // before: what is committed meanwhile is seen anew
    taken_ = GetTickCount64();
    Sql().Run("BEGIN");
    snapshot_ = true;
    seen_ = changes;
    ReloadIfChanged(false);
}

void Session::BeginWriting() {
    EndSnapshot();
    // SQLite itself would begin with a read-only file, and refuse the first statement that writes.
    if (file_.refusal) Fail(file_.refusal);
    Sql().Run("BEGIN IMMEDIATE");
    try {
        ReloadIfChanged(false);
    } catch (...) {
        EndTransaction();
        throw;
    }
}

void Session::Commit() {
    if (leaving_) leaving_();
    shared_.CountChange();  // before: nobody may go on with a snapshot that is just becoming old
    if (const DWORD error = TakeCallFault("commit: counted")) Fail(error);
    Sql().Run("COMMIT");
    shared_.CountChange();  // after: whoever took one in between takes another
    noRoom_ = false;
}

void Session::Notify(CEOID database, UINT message, CEOID object) {
    if (!batch_) {
        shared_.Notify(database, message, object);
    } else if (messages_.size() < kMostMessages) {
        messages_.push_back({database, message, object});
    }
}

void Session::BeginBatch() {
    if (scans_ > 0) Fail(ERROR_BUSY);
    BeginWriting();
    batch_ = true;
    broken_ = 0;
    messages_.clear();
}

void Session::EndBatch(bool commit) {
    DWORD error = broken_;
    if (error == 0 && commit) {
        try {
            Commit();
        } catch (const StoreError& failure) {
            error = failure.code;
        }
    }
    batch_ = false;
    EndTransaction();
    if (error != 0 || !commit) {
        for (const auto& [oid, database] : catalog_.All()) {
            for (const auto& index : database->indexes)
                index->Forget();
        }
        stale_ = true;
    } else {
        for (const Message& message : messages_)
            shared_.Notify(message.database, message.message, message.object);
    }
    messages_.clear();
    if (error != 0 && commit) Fail(error);
}

// The timer may have come while the scan held the lock, and gone without having done anything.
Scanning::~Scanning() {
    if (--session_.scans_ == 0 && session_.snapshot_) session_.SetTimer();
}

Transaction::Transaction(Session& session) : session_(session) {
    if (session.scans_ > 0) Fail(ERROR_BUSY);
    if (!session.batch_) {
        session.BeginWriting();
        return;
    }
    if (session.broken_) Fail(session.broken_);
    session.Refresh();
    session.Sql().Run("SAVEPOINT one");
}

Transaction::~Transaction() {
    if (!open_) return;
    Connection& connection = session_.Sql();
    session_.stale_ = true;
    for (const auto& [oid, database] : session_.catalog_.All()) {
        for (const auto& index : database->indexes)
            index->Forget();
    }
    if (!session_.batch_) {
        session_.EndTransaction();
    } else if (connection.InTransaction()) {
        connection.TryRun("ROLLBACK TO one; RELEASE one");
    } else {
        // SQLite has undone more than this write: all of the batch so far.
        session_.broken_ = ErrorFromSqlite(sqlite3_errcode(connection.Raw()));
        if (session_.broken_ == 0) session_.broken_ = ERROR_DISK_FULL;
    }
}

void Transaction::Commit() {
    if (session_.batch_) {
        session_.Sql().Run("RELEASE one");
    } else {
        session_.Commit();
    }
    open_ = false;
}

}  // namespace store
