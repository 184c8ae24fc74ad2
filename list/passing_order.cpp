#include "list/passing_order.h"

#include <algorithm>

LONG PassingOrder::RowOf(CEOID id) {
    if (rows_.size() != ids_.size()) {
        rows_.clear();
        rows_.reserve(ids_.size());
        for (const CEOID entry : ids_)
            rows_.emplace_back(entry, static_cast<LONG>(rows_.size()));
        std::sort(rows_.begin(), rows_.end());
    }
    const auto found = std::lower_bound(rows_.begin(), rows_.end(), std::pair(id, LONG{0}));
    return found != rows_.end() && found->first == id ? found->second : -1;
}
