// Entries that the journal could not store: a full or broken store shall not cost what somebody has typed.
#pragma once

#include "data/dbj_item.h"
#include "data/ts_list.h"

// Keeps a copy of an entry's fields until TakeUnsaved or the end of the program.
void KeepUnsaved(const TSList<DbJItem>& fields);

// Gives out what was kept, the oldest first, and forgets it; it replaces the content of `fields`. False, and nothing
// changes, when nothing is kept.
bool TakeUnsaved(TSList<DbJItem>* fields);
