// Reading all records of a database in one pass; ours, a device has no such call.
#pragma once

#include <windbase.h>

// Receives one record: its id and the properties asked for, in the order asked. One that the record lacks carries
// CEDB_PROPNOTFOUND and a value of zeros. The values, their strings (which end with a NUL) and blobs (which are aligned
// for any number) are good until the visitor returns. FALSE ends the scan. It must not throw, and not wait: other
// threads that need the store wait for the end of the scan.
//
// A visitor may read the store, with this handle too, and sees it as it was when the scan began. Calls that write, a
// batch's beginning and end among them, fail with 170 (ERROR_BUSY) and do nothing; so does CeUnmountObjectStore, with
// 32.
typedef BOOL(CALLBACK* CeScanVisitor)(CEOID record, WORD count, const CEPROPVAL* values, void* context);

// Visits every record of the handle's database once, in no particular order, which is several times as fast as a seek
// and a read for each. What other processes write meanwhile is not seen. The handle's position stays. ids lists count
// properties; with 0 the visitor gets ids of records alone. A string or blob of more than a kilobyte costs a search of
// its own, and nothing when it is not asked for.
// TRUE at the end and when the visitor ended it; FALSE on failure, when some records may have been visited: 87, 1392
// and the other errors of the store's file.
CEHOST_API BOOL CeScanRecords(HANDLE database, WORD count, const CEPROPID* ids, CeScanVisitor visit, void* context);
