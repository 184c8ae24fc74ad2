#include "platform/objectstore/order_index.h"

#include <algorithm>

#include "platform/objectstore/store_error.h"

namespace store {
namespace {

constexpr uint32_t kPiece = 128;        // records of a piece read at either end: some screens full
constexpr unsigned kManySearches = 16;  // from so many on, a table of places is cheaper than looking through the ids

}  // namespace

CEOID RecordIn(const Statement& row) {
    const int64_t record = row.Number(0);
    if (record <= 0 || record > MAXDWORD) Fail(ERROR_FILE_CORRUPT);
    return static_cast<CEOID>(record);
}

OrderIndex::OrderIndex(Connection& connection, const std::string& table, const std::string& index,
                       const SORTORDERSPEC& order)
    : connection_(connection),
      table_(table),
      natural_(false),
      order_(order),
      source_(table + " INDEXED BY " + index),
      key_(KeyExpression(order)),
      least_(LeastKey(order)) {}

OrderIndex::OrderIndex(Connection& connection, const std::string& table)
    : connection_(connection), table_(table), natural_(true), source_(table) {}

void OrderIndex::Forget() {
    whole_ = false;
    all_.clear();
    head_.clear();
    tail_.clear();
    places_.clear();
    searches_ = 0;
}

// Records that have the property and those that lack it are two ranges of the index.
std::vector<CEOID> OrderIndex::Load(bool backward, int64_t limit) {
    std::vector<CEOID> records;
    const std::string idOrder = backward ? "oid DESC" : "oid";
    const auto take = [&](const std::string& rest) {
        Query query(connection_, "SELECT oid FROM " + source_ + rest + " LIMIT ?");
        query << (limit < 0 ? limit : limit - static_cast<int64_t>(records.size()));
        while (query.Step()) {
            if (records.size() == CEDB_MAXNUMRECORDS) Fail(ERROR_FILE_CORRUPT);
            records.push_back(RecordIn(*query.operator->()));
        }
    };
    if (natural_) {
        take(" ORDER BY " + idOrder);
        return records;
    }
    const bool descending = ((order_.dwFlags & CEDB_SORT_DESCENDING) != 0) != backward;
    const bool missingFirst = ((order_.dwFlags & CEDB_SORT_UNKNOWNFIRST) != 0) != backward;
    for (const bool missing : {missingFirst, !missingFirst}) {
        if (missing) {
            take(" WHERE " + key_ + " IS NULL ORDER BY " + idOrder);
        } else {
            take(" WHERE " + key_ + ">=" + least_ + " ORDER BY " + key_ + (descending ? " DESC, " : ", ") + idOrder);
        }
    }
    return records;
}

void OrderIndex::LoadAll() {
    if (whole_) return;
    Forget();
    all_ = Load(false, -1);
    whole_ = true;
}

CEOID OrderIndex::At(uint32_t place, uint32_t count) {
    if (!whole_) {
        if (head_.empty() && place < kPiece) head_ = Load(false, kPiece);
        if (place < head_.size()) return head_[place];
        const uint32_t fromEnd = count - 1 - place;
        if (tail_.empty() && fromEnd < kPiece) tail_ = Load(true, kPiece);
        if (fromEnd < tail_.size()) return tail_[fromEnd];
        LoadAll();
    }
    // Fewer records than were counted: the file contradicts itself.
    if (place >= all_.size()) Fail(ERROR_FILE_CORRUPT);
    return all_[place];
}

std::optional<uint32_t> OrderIndex::Find(CEOID record, uint32_t hint, uint32_t count) {
    if (!whole_) {
        const auto first = std::find(head_.begin(), head_.end(), record);
        if (first != head_.end()) return static_cast<uint32_t>(first - head_.begin());
        const auto last = std::find(tail_.begin(), tail_.end(), record);
        const auto fromEnd = static_cast<uint32_t>(last - tail_.begin());
        if (last != tail_.end() && fromEnd < count) return count - 1 - fromEnd;
        LoadAll();
    }
    if (hint < all_.size() && all_[hint] == record) return hint;
    if (places_.empty() && ++searches_ >= kManySearches) {
        places_.reserve(all_.size());
        for (uint32_t place = 0; place < all_.size(); ++place)
            places_.emplace_back(all_[place], place);
        std::sort(places_.begin(), places_.end());
    }
    if (!places_.empty()) {
        const auto found = std::lower_bound(places_.begin(), places_.end(), std::pair{record, uint32_t{0}});
        if (found == places_.end() || found->first != record) return std::nullopt;
        return found->second;
    }
    const auto found = std::find(all_.begin(), all_.end(), record);
    if (found == all_.end()) return std::nullopt;
    return static_cast<uint32_t>(found - all_.begin());
}

std::optional<SortKey> OrderIndex::KeyOf(CEOID record) {
    if (natural_) return SortKey{};
    Query query(connection_, "SELECT " + ColumnName(order_.propid) + " FROM " + table_ + " WHERE oid=?");
    query << int64_t{record};
    if (!query.Step()) return std::nullopt;
    return MakeSortKey(order_, FromColumn(*query.operator->(), 0));
}

uint32_t OrderIndex::LowerBound(const SortKey& key, CEOID record) {
    LoadAll();
    const auto before = [&](CEOID other, CEOID) {
        if (natural_) return other < record;
        const auto otherKey = KeyOf(other);
        return CompareInOrder(order_, otherKey.value_or(SortKey{}), other, key, record) < 0;
    };
    return static_cast<uint32_t>(std::lower_bound(all_.begin(), all_.end(), record, before) - all_.begin());
}

void OrderIndex::Inserted(CEOID record) {
    if (!whole_) return Forget();
    const auto key = KeyOf(record);
    if (!key) return Forget();
    all_.insert(all_.begin() + LowerBound(*key, record), record);
    places_.clear();
    searches_ = 0;
}

void OrderIndex::Removed(CEOID record) {
    if (!whole_) return Forget();
    const auto found = std::find(all_.begin(), all_.end(), record);
    if (found == all_.end()) return Forget();
    all_.erase(found);
    places_.clear();
    searches_ = 0;
}

void OrderIndex::Moved(CEOID record) {
    if (natural_) return;
    Removed(record);
    Inserted(record);
}

CEOID OrderIndex::SeekValue(const char* comparison, const char* order, const StoredValue& value) {
    const SortKey key = MakeSortKey(order_, value);
    Query query(connection_, "SELECT oid FROM " + source_ + " WHERE " + key_ + comparison + "? ORDER BY " + key_ +
                                 order + " LIMIT 1");
    if (value.kind == StoredValue::kNumber) {
        query << key.number;
    } else {
        query << Bytes{key.bytes.data(), static_cast<int>(key.bytes.size())};
    }
    return query.Step() ? RecordIn(*query.operator->()) : 0;
}

CEOID OrderIndex::FirstEqual(const StoredValue& value) {
    return SeekValue("=", ", oid", value);
}

// Of several records with that value, the one next to where the given value would stand.
CEOID OrderIndex::GreatestBelow(const StoredValue& value) {
    return SeekValue("<", (order_.dwFlags & CEDB_SORT_DESCENDING) ? " DESC, oid" : " DESC, oid DESC", value);
}

CEOID OrderIndex::LeastFrom(const StoredValue& value) {
    return SeekValue(">=", (order_.dwFlags & CEDB_SORT_DESCENDING) ? ", oid DESC" : ", oid", value);
}

bool OrderIndex::IsEqual(CEOID record, const StoredValue& value) {
    const auto key = KeyOf(record);
    return key && CompareInOrder(order_, *key, 0, MakeSortKey(order_, value), 0) == 0;
}

}  // namespace store
