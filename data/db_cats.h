// The categories, as the journal sees them: names for the ids that its entries hold.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "data/db_categories.h"
#include "data/dbc_item.h"
#include "data/ts_list.h"

class ORVANE_API DbCats : public DbCategories {
public:
    DbCats() = default;
    ~DbCats() override;

    using DbCategories::Open;
    // Opens the device's categories database, sorted by name. Non-zero on success. It is never made here: when it is
    // missing, that is reported. `notify` may be null.
    int Open(HWND notify);

    // A category's name; "" when there is no such category. Moves the current position.
    std::wstring GetName(CEOID category);

    // Appends the categories that an entry's bytes name, in order. Ids without a category are left out.
    void ReadBlob(const CEBLOB& blob, TSList<DbCItem>* categories);
    // The bytes for a list of categories. Items without an id are looked up by name; a name that is no category is left
    // out.
    std::vector<BYTE> MakeBlob(const TSList<DbCItem>& categories);
};

// Appends the categories that an entry's bytes name; opens the database for as long as that takes.
ORVANE_API void ReadCategoryNames(const CEBLOB& blob, TSList<DbCItem>* categories);

// The names with ", " between them.
ORVANE_API std::wstring JoinCategories(const TSList<DbCItem>& categories);
