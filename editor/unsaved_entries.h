// Entries that the journal could not store: a full or broken store shall not cost what somebody has typed.
#pragma once

#include <string>

#include "data/dbj_item.h"
#include "data/ts_list.h"

class Window;

// They are kept, the oldest first, in memory and in the file "<the store's file>.unsaved" (entry_file.h), until they
// are forgotten: so they outlive the program, also when it is killed. A file that cannot be written is tried again with
// each change and before the program closes. What is damaged in a file is set aside as "....unsaved.damaged".

// Keeps a copy of an entry's fields.
void KeepUnsaved(const TSList<DbJItem>& fields);

// The oldest entry, which stays kept; it replaces the content of `fields`. False, and nothing changes, when there is
// none.
bool ReadUnsaved(TSList<DbJItem>* fields);

// Forgets the oldest: it has been stored, or is kept anew.
void ForgetUnsaved();

// ---- Boxes ----

// Whether the program may close: true when nothing is kept, else what the user answers over `owner`.
bool MayCloseUnsaved(const Window& owner);

// Whether the user, asked over `owner`, wants to go on with the oldest entry now; false when nothing is kept.
bool WantsUnsaved(const Window& owner);
