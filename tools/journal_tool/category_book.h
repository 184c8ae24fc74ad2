// The device's categories, for a tool that adds entries: names looked up once, new ones added, uses counted.
#pragma once

#include <map>
#include <span>
#include <string>

#include "data/category_uses.h"
#include "tools/journal_tool/store_access.h"

class CategoryBook {
public:
    // False when the categories can't be opened; that was said.
    bool Open() { return OpenOrComplain(database_); }

    // The category of that name: made when there is none, shown again when it was hidden. 0 on failure, which was said.
    CEOID FindOrAdd(const std::wstring& name);
    // Remembers one more entry with these categories.
    void CountEntry(std::span<const CEOID> categories) { uses_.Add(categories); }
    // Adds what was counted to the categories' records. False on failure, which was said.
    bool WriteUses() { return uses_.Store(database_); }
    // Forgets what was looked up and counted, after a batch was undone.
    void Forget();

private:
    ConsoleCategories database_;
    std::map<std::wstring, CEOID> known_;
    CategoryUses uses_;
};
