// The entries that pass the filter, in the store's order: which one is the i-th, and which place an entry has among
// them. Four bytes an entry, and eight more from the first question for a place on.
#pragma once

#include <win.h>

#include <windbase.h>

#include <utility>
#include <vector>

class PassingOrder {
public:
    void Append(CEOID id) { ids_.push_back(id); }
    LONG Count() const { return static_cast<LONG>(ids_.size()); }
    // 0 when there is no such row.
    CEOID At(LONG row) const { return row >= 0 && row < Count() ? ids_[static_cast<size_t>(row)] : 0; }
    // -1 when the entry is not among them.
    LONG RowOf(CEOID id);

private:
    std::vector<CEOID> ids_;
    std::vector<std::pair<CEOID, LONG>> rows_;  // by id; made when first asked for
};
