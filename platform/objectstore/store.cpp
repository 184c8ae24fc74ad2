#include "platform/objectstore/store.h"

#include "platform/objectstore/store_error.h"
#include "platform/objectstore/store_file.h"

namespace store {
namespace {

// Closes the file at the end of the process, which saves the next start from reading the log. The system has ended all
// other threads by then; if one of them was in the store, it stays as it is, and the log puts it right.
struct CloseAtExit {
    ~CloseAtExit() {
        Store& store = Store::Instance();
        if (!store.Mutex().try_lock()) return;
        if (store.IsOpen()) store.Open().CloseFileAtExit();
        store.Mutex().unlock();
    }
} closeAtExit;

}  // namespace

Store& Store::Instance() {
    static auto& store = *new Store;  // never destroyed: threads may call to the very end
    return store;
}

Session& Store::Open() {
    if (!session_) session_ = std::make_unique<Session>(StorePath(), mutex_, [this] { RememberKeys(); });
    return *session_;
}

// Of the records that handles stand on: after this, other processes may delete them.
void Store::RememberKeys() noexcept {
    handles_.ForEach([this](OpenDatabase& open) {
        if (open.position.state != Position::kOn) return;
        try {
            auto key = OrderOf(open).KeyOf(open.position.record);
            if (key) open.position.key = std::move(key);
        } catch (...) {
            // Its place has to do, then.
        }
    });
}

Session& Store::Fresh() {
    Session& session = Open();
    session.Refresh();
    return session;
}

OpenDatabase& Store::FindOpen(HANDLE handle) {
    OpenDatabase* open = handles_.FindDatabase(handle);
    if (!open) Fail(ERROR_INVALID_PARAMETER);
    return *open;
}

Database& Store::DatabaseOf(const OpenDatabase& open) {
    Database* database = Open().Databases().Find(open.database);
    if (!database) Fail(ERROR_KEY_DELETED);
    return *database;
}

OrderIndex& Store::OrderOf(const OpenDatabase& open) {
    Database& database = DatabaseOf(open);
    const int order = database.FindOrder(open.sort);
    // Nobody can take an order away under a handle; a file that others than this library wrote may lack it.
    if (order < 0) Fail(ERROR_FILE_CORRUPT);
    return database.Index(order);
}

}  // namespace store
