// The journal filled with sample entries, in an object store of its own.
#pragma once

#include <win.h>

#include "bench/sample_entries.h"
#include "data/db_journal.h"

// Writes an entry's properties through the journal; 0: a new one. Answers its id.
CEOID WriteSample(DbJournal& journal, CEOID id, const SampleEntry& entry);

// Makes the store named by CE_OBJECT_STORE and fills it.
void FillJournal(unsigned entries);
