// The store's file: where it is, how it comes to be, and whether it is fit to be used. docs/storage.md describes its
// tables.
#pragma once

#include <memory>
#include <string>

#include "platform/objectstore/shared_state.h"
#include "platform/objectstore/sql.h"

namespace store {

// Where the environment says the store is now.
std::wstring StorePath();

// A path as SQLite takes it.
std::string ToUtf8(const std::wstring& text);

struct StoreFile {
    std::unique_ptr<Connection> connection;
    DWORD refusal = ERROR_SUCCESS;  // what every write is refused with; 0: writes are tried
    // There was no room for what processes share beside the file: this one has it for itself until it closes it.
    // Reading works, and writing too once there is room.
    bool alone = false;
};

// Opens the store's file, made and provisioned first when there is none. It is made under another name and moved into
// place when it is complete: a file that is there is whole or damaged, never half made. Throws, and leaves a file that
// it cannot use as it is.
StoreFile OpenStoreFile(const std::wstring& path, SharedState& shared);

}  // namespace store
