// The tables every store has. Each database adds a table of its own, see catalog.h.
#pragma once

#include "platform/objectstore/sql.h"

namespace store {

constexpr int kPageSize = 4096;

// Makes the tables in an empty file.
void CreateSchema(Connection& connection);

// Throws ERROR_FILE_CORRUPT when the file is no store of ours, ERROR_REVISION_MISMATCH when a newer version made it.
// Takes over the locale that its strings sort by; makes their indexes anew when this system sorts them differently than
// the one that made them.
void CheckSchema(Connection& connection);

}  // namespace store
