#include "editor/unsaved_entries.h"

#include <deque>

namespace {
std::deque<TSList<DbJItem>> kept;
}

void KeepUnsaved(const TSList<DbJItem>& fields) {
    kept.push_back(fields);
}

bool TakeUnsaved(TSList<DbJItem>* fields) {
    if (kept.empty()) return false;
    *fields = std::move(kept.front());
    kept.pop_front();
    return true;
}
