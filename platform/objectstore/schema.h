// The tables every store has. Each database adds a table of its own, see catalog.h.
#pragma once

#include <win.h>

#include "platform/objectstore/sql.h"

namespace store {

constexpr int kPageSize = 4096;

// Makes the tables in an empty file.
void CreateSchema(Connection& connection);

// Throws ERROR_FILE_CORRUPT when the file is no store of ours, ERROR_REVISION_MISMATCH when a newer version made it.
// Takes over the locale that its strings sort by; makes their indexes anew when this system sorts them differently than
// the one that made them. Answers what every write has to be refused with: 0 for none is, ERROR_WRITE_PROTECT for a
// read-only file, ERROR_DISK_FULL when there was no room to make those indexes anew.
DWORD CheckSchema(Connection& connection);

}  // namespace store
