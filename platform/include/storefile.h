// Beyond the device's calls: where the store's file is. For what is kept beside it.
#pragma once

#include <win.h>

#include "cehost.h"

// Puts the path of the store's file into `path`, which has room for `room` characters. The file need not be there.
// FALSE: 122 when it does not fit, 3 when the environment names no place.
CEHOST_API BOOL CeObjectStoreFile(LPWSTR path, DWORD room);
