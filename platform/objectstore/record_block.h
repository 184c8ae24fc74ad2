// From the columns of a row to the block that a reader gets: an array of CEPROPVAL, then the strings and blobs.
#pragma once

#include <vector>

#include "platform/objectstore/catalog.h"

namespace store {

// Large values of one record, each held by a statement of its own until everything is copied, so that no body is
// copied twice.
class LargeValues {
public:
    explicit LargeValues(Connection& connection) : connection_(connection) {}
    ~LargeValues() { Release(); }
    LargeValues(const LargeValues&) = delete;
    LargeValues& operator=(const LargeValues&) = delete;

    // The value, good until Release. Throws when there is none of that number.
    Bytes Get(int64_t id);
    void Release() noexcept;

private:
    Connection& connection_;
    std::vector<Statement*> held_;
};

// The database's columns for these properties, as a list for SELECT ("" for none), counted from `first`; `places`
// receives for each property its column in the row, -1 when no record has it.
std::string SelectColumns(const Database& database, const CEPROPID* ids, size_t count, int first,
                          std::vector<int>& places);

// The value of a property in a column of the current row, wherever it is kept.
StoredValue ReadValue(const Statement& row, int column, CEPROPID property, LargeValues& large);

// How many bytes the block needs.
size_t BlockSize(const CEPROPID* properties, const std::vector<StoredValue>& values);
// Fills it; `target` is aligned as memory from the system is.
void FillBlock(const CEPROPID* properties, const std::vector<StoredValue>& values, BYTE* target);

}  // namespace store
