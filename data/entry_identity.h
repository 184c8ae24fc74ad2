// What tells an entry from every other, in whatever journal it is: its UID. Beside it stands the time of its last
// change, which the store keeps (DbJournal::Open sees to that).
#pragma once

#include <string>

#include "data/db_journal.h"
#include "data/orvane.h"

// A new UID: a version 4 UUID of RFC 4122 as text, lower case, such as "f81d4fae-7dec-41d0-a765-00a0c91e6bf6". Empty
// when the system can't make one.
ORVANE_API std::wstring NewUid();

// The entry's UID, "" for none or an entry that is not there.
ORVANE_API std::wstring FindUid(DbJournal& journal, CEOID entry);

// The entry's UID, which it is given if it has none; "" when that fails, which was reported. Being given one is no
// change of the entry: the time of its last change stays. Moves the journal's current position.
ORVANE_API std::wstring NeedUid(DbJournal& journal, CEOID entry);

// Whether a property tells who an entry is and when it was changed, which a copy of it does not share.
ORVANE_API bool IsIdentity(CEPROPID property);
