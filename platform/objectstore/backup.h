// Copies of the whole store: made, checked, and put in the store's place.
#pragma once

#include <string>

#include "platform/objectstore/session.h"

namespace store {

// Writes the store into a file; see CeBackupObjectStore. Throws.
void BackUp(Session& session, const std::wstring& path, const std::wstring& target);

// Puts a copy of `source` in the place of the store at `path`, which this process must not have open. Answers where the
// old store is kept, "" when there was none. Throws.
std::wstring Restore(const std::wstring& path, const std::wstring& source);

}  // namespace store
