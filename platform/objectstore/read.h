// Reading a record's properties into a caller's buffer.
#pragma once

#include "platform/objectstore/store.h"

namespace store {

// CeReadRecordProps on an open handle; throws its errors.
CEOID ReadProperties(Store& store, OpenDatabase& open, DWORD flags, LPWORD count, const CEPROPID* ids, LPBYTE* buffer,
                     LPDWORD size);

}  // namespace store
