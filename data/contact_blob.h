// The bytes in which an entry keeps its contacts: for each, two NUL-terminated UTF-16 texts, name and company.
#pragma once

#include <string>
#include <vector>

#include <windbase.h>

#include "data/dba_item.h"
#include "data/orvane.h"
#include "data/ts_list.h"

// Appends the contacts that the bytes hold, in order, as far as they are sound: a text without its NUL is dropped (a
// contact that lost its company so keeps its name), and so is a contact with neither name nor company.
ORVANE_API void ReadContactBlob(const CEBLOB& blob, TSList<DbAItem>* contacts);
ORVANE_API std::vector<BYTE> MakeContactBlob(const TSList<DbAItem>& contacts);

// The names with "; " between them.
ORVANE_API std::wstring JoinContacts(const TSList<DbAItem>& contacts);
