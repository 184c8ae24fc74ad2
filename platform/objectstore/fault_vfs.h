// A file layer for SQLite that passes everything on to the system's, and fails when told.
#pragma once

namespace store {

// What the next write, flush or growth of a file is to answer: SQLITE_OK, or an error.
int TakeDiskFault(int failure);

// Registers the layer once and answers its name.
const char* FaultVfs();

}  // namespace store
