// What records are ordered by. The same key is computed here, for the order in memory, and inside SQLite, for the index
// of a sort order; so the two cannot differ.
#pragma once

#include <windbase.h>

#include <cstdint>
#include <string>

#include "platform/objectstore/record_values.h"

namespace store {

// One record's key. Numbers order as numbers, bytes byte by byte with the shorter first.
struct SortKey {
    bool missing = true;  // the record lacks the property
    int64_t number = 0;   // of a number, time or truth value; else 0
    std::string bytes;    // of a string (its locale's sort key) or a blob; else empty
};

// Gives the process the locale that strings sort by; the store's file remembers its name. False: there is none such.
bool UseSortLocale(const std::wstring& name);

// The name of the system's locale, and what version of sort keys the current locale has here: keys made with another
// version order differently.
std::wstring SystemSortLocale();
std::string SortVersion();

SortKey MakeSortKey(const SORTORDERSPEC& order, const StoredValue& value);

// Less, equal or greater than 0 as record a stands before, at or behind record b. Records with the same key stand in
// the order of their ids, so only a record and itself are at one place.
int CompareInOrder(const SORTORDERSPEC& order, const SortKey& a, CEOID aOid, const SortKey& b, CEOID bOid);

// Gives the connection the function sort_key(value, flags), which the indexes on strings are made of.
void AddSortKeyFunction(sqlite3* connection);

// The expression an order's index is made of, for example p0065001F wrapped in sort_key().
std::string KeyExpression(const SORTORDERSPEC& order);

// The least key there is, as SQL: every record that has the property has a key at or above it.
std::string LeastKey(const SORTORDERSPEC& order);

}  // namespace store
