// How the journal is sorted by a field.
#pragma once

#include <windbase.h>

#include "data/orvane.h"

// The sort order for a field id, ascending: texts without regard to letter case, everything else as it is. The body
// (103) and ids that are no field (106, unknown ones) sort by the start time.
ORVANE_API SORTORDERSPEC SortKeyForField(unsigned fieldId);
