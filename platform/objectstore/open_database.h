// What a handle stands for: an open database with its position, or an enumeration.
#pragma once

#include <windbase.h>

#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

#include "platform/objectstore/catalog.h"

namespace store {

// Where a handle stands. A record is remembered by its id, so that it may move in the order; the place is a hint.
struct Position {
    enum State {
        kOn,   // on `record`
        kGap,  // where `record`, now deleted, stood
        kEnd   // behind the last record
    };
    State state = kEnd;
    CEOID record = 0;
    uint32_t place = 0;  // kOn: where the record was last; kGap without a key: the place of the one that followed
    // The record's key as it was when what this process saw of the file came to its end, so that its place is still
    // known when another process deletes it. Nothing while that is still to be seen.
    std::optional<SortKey> key;
};

struct OpenDatabase {
    CEOID database = 0;
    CEPROPID sort = 0;  // 0: the order of the ids
    bool autoIncrement = false;
    int row = -1;  // in the table that the processes share
    Position position;
};

struct Enumeration {
    std::vector<CEOID> databases;
    size_t next = 0;
};

// The handles of this process. Their values have the two lowest bits set, which no handle of the system has, and are
// never used again, so that a handle closed twice harms nobody.
class HandleTable {
public:
    HANDLE Add(std::unique_ptr<OpenDatabase> database);
    HANDLE Add(std::unique_ptr<Enumeration> enumeration);

    OpenDatabase* FindDatabase(HANDLE handle);    // null: not one
    Enumeration* FindEnumeration(HANDLE handle);  // null: not one
    void Remove(HANDLE handle);

    template <class Work>
    void ForEach(Work work) {
        for (auto& [handle, open] : databases_)
            work(*open);
    }

    bool Empty() const { return databases_.empty() && enumerations_.empty(); }
    static bool IsOurs(HANDLE handle);

private:
    HANDLE NewHandle() { return reinterpret_cast<HANDLE>(static_cast<ULONG_PTR>((++last_ << 2) | 3)); }

    DWORD last_ = 0;
    std::unordered_map<HANDLE, std::unique_ptr<OpenDatabase>> databases_;
    std::unordered_map<HANDLE, std::unique_ptr<Enumeration>> enumerations_;
};

}  // namespace store
