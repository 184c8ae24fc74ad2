// Keeps the journal's count of uses in the categories' records true, while entries are made, changed and deleted.
//
// Whoever changes entries says what they carried before and carry now, and stores the difference at the end. An entry
// counts once for each category, however often its bytes name it.
#pragma once

#include <map>
#include <span>
#include <vector>

#include "data/db_categories.h"

class ORVANE_API CategoryUses {
public:
    // One more entry with these categories: written, copied.
    void Add(std::span<const CEOID> categories);
    // One entry with these categories less: deleted.
    void Release(std::span<const CEOID> categories);
    // Forgets what was added and released.
    void Forget() { changes_.clear(); }

    // Writes what has changed to the categories' records and forgets it. Categories that are gone are passed over.
    // FALSE when a count could not be written, or the categories not be opened; both were reported. Without any change
    // the categories are not opened.
    BOOL Store();
    // The same for categories that are open.
    BOOL Store(DbCategories& categories);

private:
    void Change(std::span<const CEOID> categories, int change);

    std::map<CEOID, int> changes_;
};

// An entry that carried the categories `before` was saved with `after`; a new entry had none. Result as for Store.
ORVANE_API BOOL UpdateCategoryUses(std::span<const CEOID> before, std::span<const CEOID> after);

// The categories of a stored entry; none when it has none or is not there. Moves the journal's current position.
ORVANE_API std::vector<CEOID> ReadEntryCategories(CeDbase& journal, CEOID entry);
// The categories among the properties of an entry's record.
ORVANE_API std::vector<CEOID> FindCategories(std::span<const CEPROPVAL> properties);
