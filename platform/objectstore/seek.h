// Moving a handle's position.
#pragma once

#include "platform/objectstore/store.h"

namespace store {

// On the first record, or behind the last when there is none.
void SeekFirst(Store& store, OpenDatabase& open);

// `steps` records on from the position, backward when negative; answers the record there, 0 and the position behind the
// last record when there is none.
CEOID SeekSteps(Store& store, OpenDatabase& open, int64_t steps);

// All of CeSeekDatabase; throws ERROR_INVALID_PARAMETER, answers 0 when there is no such record.
CEOID Seek(Store& store, OpenDatabase& open, DWORD kind, DWORD_PTR value, LPDWORD index);

// The handle stands on a record that is deleted: it now stands where that was.
void LeaveDeleted(OpenDatabase& open);

}  // namespace store
