// Beyond the device's calls: a copy of the whole store, and a store out of such a copy. For tools.
#pragma once

#include <windbase.h>

// Writes the store, as it is at one moment, into a file that is a store itself. Other processes may go on reading and
// writing. The copy is checked as CeCheckObjectStore does it, and takes the file's name only when it is whole; an
// earlier copy of that name is replaced then. FALSE: 87 when the file is the store itself, 80 when there is a file of
// that name that is no store, 170 in a batch, 1392 when the store is damaged, 112 and the other errors of a disk; then
// whatever had that name is as it was.
CEHOST_API BOOL CeBackupObjectStore(LPCWSTR file);

// Makes a copy of the file the store. The file is checked first, as CeCheckObjectStore does it, and stays as it is. The
// store that was there is kept beside it under a name with date and time, which is put into `kept` ("" when there was
// none). At every moment the store is the old or the new one, whole: also when the process is killed.
// FALSE, with the store as it was: 32 while any process uses the store; 1392 when the file is damaged or no store, 1306
// when a newer version wrote it; 87 when it is the store itself, or `room` (in characters) is less than MAX_PATH; 2, 3,
// 5 when it cannot be read; 112 and the other errors of a disk.
CEHOST_API BOOL CeRestoreObjectStore(LPCWSTR file, LPWSTR kept, DWORD room);
