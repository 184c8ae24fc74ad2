// One item's values: in memory, read from its record when they are asked for, written when it is saved.
#pragma once

#include <map>
#include <string>
#include <variant>
#include <vector>

#include "platform/pim/item_kind.h"

namespace pim {

using Value = std::variant<std::wstring, double, long, bool, std::vector<BYTE>>;

// Takes the value out of a property that was read. False for one that the record lacks, or of no type of ours.
bool TakeValue(const CEPROPVAL& property, Value* value);

// All operations throw Failure.
class ItemRecord {
public:
    // A new item.
    explicit ItemRecord(const ItemKind& kind) : kind_(kind), complete_(true) {}
    // A stored item; `known` is what has been read of it already.
    ItemRecord(const ItemKind& kind, CEOID oid, std::map<CEPROPID, Value> known = {})
        : kind_(kind), oid_(oid), values_(std::move(known)) {}

    const ItemKind& Kind() const { return kind_; }
    CEOID Oid() const { return oid_; }  // 0 until it is saved

    // The value of a property; T{} as `missing` says when the item has none.
    template <class T>
    T Get(CEPROPID id, T missing = {}) {
        const Value* value = Find(id);
        const T* typed = value ? std::get_if<T>(value) : nullptr;
        return typed ? *typed : missing;
    }
    // Null when the item has no such property; good until the next call.
    const Value* Find(CEPROPID id);
    // Sets, or removes, a property.
    void Set(CEPROPID id, Value value);
    void Remove(CEPROPID id);

    // Reads what has not been read yet.
    void Complete();
    // Writes what was changed; a new item becomes a record.
    void Save();
    // Deletes the record. The values stay: saved again, the item is new.
    void Delete();
    // The same values as a new item.
    ItemRecord Copy();

private:
    const ItemKind& kind_;
    CEOID oid_ = 0;
    bool complete_ = false;  // all properties of the record are in values_
    std::map<CEPROPID, Value> values_;
    std::map<CEPROPID, bool> changed_;  // property -> whether it is there
};

}  // namespace pim
