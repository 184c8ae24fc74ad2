// When a record was last changed, kept by the store itself, whoever writes; ours, a device has no such call.
#pragma once

#include <windbase.h>

// From now on each write of a record of the handle's database, by whatever program, sets that property to the time of
// the write (UTC, 100-ns ticks). A write that names the property itself keeps what it says. Records written earlier
// lack it until they are written again. The choice stays with the database; 0 ends it, and so does deleting the
// database. Naming the property that is named already costs no write. FALSE: 87 for a property that is no FILETIME and
// for no handle, 170 in a scan, and the errors of a write.
CEHOST_API BOOL CeSetDatabaseStamp(HANDLE database, CEPROPID property);
