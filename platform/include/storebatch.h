// Beyond the device's calls: many writes at once, and a check of the whole store. For tools.
#pragma once

#include <windbase.h>

// Begins a batch: every write of this thread until CeCommitBatch becomes permanent together, which is some hundred
// times as fast as one by one. A write that fails in between is undone by itself; the batch goes on. Other threads of
// the process wait for the end of the batch; other processes can read, and see nothing of it before its end, but wait
// when they write (see ERROR_LOCK_VIOLATION), so commit every few thousand records. FALSE: 87 when one is open already.
CEHOST_API BOOL CeBeginBatch(void);

// Makes the batch's writes permanent and tells other threads' and processes' windows, with a hundred messages at most
// for each window. On failure (112, 1117) all of it is undone and the batch is over. 87 when this thread has no batch
// open.
CEHOST_API BOOL CeCommitBatch(void);

// Undoes all writes of the batch. 87 when this thread has no batch open.
CEHOST_API BOOL CeCancelBatch(void);

// Receives one line about something wrong in the store.
typedef void(CALLBACK* CeCheckReport)(LPCWSTR problem, void* context);

// Checks the store's file and what is in it: the file's structure, the sort orders, the record counts, ids, values kept
// outside their records. Calls report (which may be null) for each problem found and changes nothing. TRUE when there
// was none; FALSE with 1392 when there was one, or with another code when the check could not be made.
CEHOST_API BOOL CeCheckObjectStore(CeCheckReport report, void* context);
