// One order of a database's records, in memory: which record is at which place.
//
// Nothing is read before it is asked for. The first and the last places come from a short piece read from the index in
// the file; a place in between, or the place of a record, lets all ids be read once (four bytes each). After that
// neither costs any work in the file, and this process's own writes are entered one by one.
#pragma once

#include <windbase.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/objectstore/sort_key.h"
#include "platform/objectstore/sql.h"

namespace store {

// The record's id in the first column of a row; throws ERROR_FILE_CORRUPT when it cannot be one.
CEOID RecordIn(const Statement& row);

class OrderIndex {
public:
    // A sort order of the table, through its index.
    OrderIndex(Connection& connection, const std::string& table, const std::string& index, const SORTORDERSPEC& order);
    // The order of the ids.
    OrderIndex(Connection& connection, const std::string& table);

    // Everything read is out of date.
    void Forget();

    // The record at a place below count, which is the number of records. Throws ERROR_FILE_CORRUPT when the order holds
    // fewer.
    CEOID At(uint32_t place, uint32_t count);

    // A record's place, which is below count; nothing when the order doesn't hold it. hint: where it was last.
    std::optional<uint32_t> Find(CEOID record, uint32_t hint, uint32_t count);

    // The place at which a record with that key and id stands or would stand.
    uint32_t LowerBound(const SortKey& key, CEOID record);

    // The key of a record as it is in the file now; nothing when there is no such record.
    std::optional<SortKey> KeyOf(CEOID record);

    // A record came into the order, or left it, or may have another key now.
    void Inserted(CEOID record);
    void Removed(CEOID record);
    void Moved(CEOID record);

    // The record that a seek by value ends on, 0 when there is none. Only for a sort order.
    CEOID FirstEqual(const StoredValue& value);
    CEOID GreatestBelow(const StoredValue& value);
    CEOID LeastFrom(const StoredValue& value);
    bool IsEqual(CEOID record, const StoredValue& value);

private:
    // Throws ERROR_FILE_CORRUPT when the order holds what is no id, or more records than there can be.
    std::vector<CEOID> Load(bool backward, int64_t limit);
    void LoadAll();
    CEOID SeekValue(const char* comparison, const char* order, const StoredValue& value);

    Connection& connection_;
    const std::string table_;
    const bool natural_;           // by id
    const SORTORDERSPEC order_{};  // else
    std::string source_;           // what follows FROM
    std::string key_;
    std::string least_;

    bool whole_ = false;
    std::vector<CEOID> all_;   // when whole_
    std::vector<CEOID> head_;  // else the first records, or none yet
    std::vector<CEOID> tail_;  // and the last, last first

    // Where each record of all_ is, by id; made when many places are asked for between two changes.
    std::vector<std::pair<CEOID, uint32_t>> places_;
    unsigned searches_ = 0;
};

}  // namespace store
