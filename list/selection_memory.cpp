#include "list/selection_memory.h"

#include <algorithm>

bool SelectionMemory::Add(CEOID id) {
    if (id == 0 || !known_.insert(id).second) return false;
    ids_.push_back(id);
    return true;
}

bool SelectionMemory::Remove(CEOID id) {
    if (id != 0 && id == current_) current_ = 0;
    if (known_.erase(id) == 0) return false;
    ids_.erase(std::find(ids_.begin(), ids_.end(), id));
    return true;
}

void SelectionMemory::Clear() {
    ids_.clear();
    known_.clear();
    current_ = 0;
}
