#include "platform/objectstore/session.h"

#include "platform/objectstore/store_error.h"
#include "platform/objectstore/store_file.h"

namespace store {
namespace {

constexpr size_t kMostMessages = 100;  // of a batch: whoever gets so many reads everything anew anyway

}  // namespace

Session::Session(const std::wstring& path, std::recursive_mutex& lock)
    : lock_(lock), shared_(path), connection_(OpenStoreFile(path, shared_)), catalog_(*connection_) {
    timer_ = CreateThreadpoolTimer(OnTimer, this, nullptr);
    if (!timer_) Fail(GetLastError());
}

Session::~Session() {
    // OnTimer never waits for the lock, so waiting for it here cannot hang.
    SetThreadpoolTimer(timer_, nullptr, 0, 0);
    WaitForThreadpoolTimerCallbacks(timer_, TRUE);
    CloseThreadpoolTimer(timer_);
    if (connection_->InTransaction()) connection_->TryRun("ROLLBACK");
}

void Session::CloseFileAtExit() noexcept {
    if (connection_->InTransaction()) connection_->TryRun("ROLLBACK");
    catalog_.Clear();
    connection_.reset();
}

VOID CALLBACK Session::OnTimer(PTP_CALLBACK_INSTANCE, PVOID context, PTP_TIMER) noexcept {
    auto& self = *static_cast<Session*>(context);
    const std::unique_lock lock(self.lock_, std::try_to_lock);
    // Somebody is calling: he renews the snapshot himself, and sets the timer again.
    if (lock.owns_lock() && !self.batch_) self.EndSnapshot();
}

void Session::EndSnapshot() noexcept {
    if (!snapshot_) return;
    snapshot_ = false;
    connection_->TryRun("COMMIT");
}

// A change by this connection doesn't move the version, one by any other does.
void Session::ReloadIfChanged(bool always) {
    int64_t version = 0;
    {
        Query query(*connection_, "PRAGMA data_version");
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
    const ULONGLONG now = GetTickCount64();
    const LONG64 changes = shared_.Changes();
    if (snapshot_ && changes == seen_ && now - taken_ < kSnapshotAge && !stale_) return;
    EndSnapshot();
    connection_->Run("BEGIN");
    snapshot_ = true;
    taken_ = now;
    seen_ = changes;
    ReloadIfChanged(false);
    SetTimer();
}

void Session::BeginWriting() {
    EndSnapshot();
    // SQLite itself would begin, for reading, and refuse the first statement that writes.
    if (connection_->ReadOnly()) Fail(ERROR_WRITE_PROTECT);
    connection_->Run("BEGIN IMMEDIATE");
    try {
        ReloadIfChanged(false);
    } catch (...) {
        connection_->TryRun("ROLLBACK");
        throw;
    }
}

void Session::Commit() {
    shared_.CountChange();  // before: nobody may go on with a snapshot that is just becoming old
    connection_->Run("COMMIT");
    shared_.CountChange();  // after: whoever took one in between takes another
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
    if (connection_->InTransaction()) connection_->TryRun("ROLLBACK");
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
    session.connection_->Run("SAVEPOINT one");
}

Transaction::~Transaction() {
    if (!open_) return;
    Connection& connection = *session_.connection_;
    session_.stale_ = true;
    for (const auto& [oid, database] : session_.catalog_.All()) {
        for (const auto& index : database->indexes)
            index->Forget();
    }
    if (!session_.batch_) {
        if (connection.InTransaction()) connection.TryRun("ROLLBACK");
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
        session_.connection_->Run("RELEASE one");
    } else {
        session_.Commit();
    }
    open_ = false;
}

}  // namespace store
