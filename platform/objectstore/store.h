// The process's object store: the lock, the open file and the handles.
#pragma once

#include <memory>
#include <mutex>

#include "platform/objectstore/open_database.h"
#include "platform/objectstore/session.h"

namespace store {

class Store {
public:
    static Store& Instance();

    // Held during every call, and by the thread that has a batch open until its end.
    std::recursive_mutex& Mutex() { return mutex_; }

    // The file, opened if it isn't. Throws.
    Session& Open();
    // The same with what other processes wrote up to now. Every call begins with one of the two.
    Session& Fresh();
    bool IsOpen() const { return session_ != nullptr; }
    void Close() { session_.reset(); }

    HandleTable& Handles() { return handles_; }

    // The handle's database; throws ERROR_INVALID_PARAMETER for a handle that is none.
    OpenDatabase& FindOpen(HANDLE handle);
    Database& DatabaseOf(const OpenDatabase& open);
    // The order that the handle was opened in.
    OrderIndex& OrderOf(const OpenDatabase& open);

private:
    void RememberKeys() noexcept;

    std::recursive_mutex mutex_;
    HandleTable handles_;
    std::unique_ptr<Session> session_;
};

}  // namespace store
