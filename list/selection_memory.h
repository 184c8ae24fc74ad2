// Which entries are selected, and which of them is the current one, by object id: this outlives every rebuild of the
// list. One for the whole process; the screens that work on "the selected entry" are given it too.
#pragma once

#include <win.h>

#include <windbase.h>

#include <unordered_set>
#include <vector>

class SelectionMemory {
public:
    // Appends an id. False, and nothing changes, for 0 and for an id that is already there.
    bool Add(CEOID id);
    // Forgets an id; when it is the current entry's, there is no current entry afterwards. False when it was not there.
    bool Remove(CEOID id);
    bool Contains(CEOID id) const { return known_.contains(id); }
    // Makes an entry, one that was just written, the only one selected and the current one. 0: as Clear.
    void SelectOnly(CEOID id);
    // Forgets every id and the current entry.
    void Clear();

    // The ids in the order they were added. Changes with every call above: who selects or deletes while walking them
    // walks a copy.
    const std::vector<CEOID>& Ids() const { return ids_; }

    // The focused entry, 0 when there is none. It need not be among the selected.
    CEOID Current() const { return current_; }
    void SetCurrent(CEOID id) { current_ = id; }

private:
    std::vector<CEOID> ids_;
    std::unordered_set<CEOID> known_;  // the same ids: a range of tens of thousands is added row by row
    CEOID current_ = 0;
};
