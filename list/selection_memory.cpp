#include "list/selection_memory.h"

#include <algorithm>
#include <iterator>

bool SelectionMemory::Add(CEOID id) {
    if (id == 0 || !known_.insert(id).second) return false;
    ids_.push_back(id);
    return true;
}

bool SelectionMemory::Remove(CEOID id) {
    if (id != 0 && id == current_) current_ = 0;
    if (known_.erase(id) == 0) return false;
    // From the back: re-selecting many entries takes the one selected last out and puts it in again, for each of them.
    ids_.erase(std::prev(std::find(ids_.rbegin(), ids_.rend(), id).base()));
    return true;
}

void SelectionMemory::SelectOnly(CEOID id) {
    Clear();
    Add(id);
    current_ = id;
}

void SelectionMemory::Clear() {
    ids_.clear();
    known_.clear();
    current_ = 0;
}
