// The device's categories, for a tool that adds entries: names looked up once, new ones added, uses counted.
#pragma once

#include <map>
#include <string>

#include "data/field_ids.h"
#include "tools/journal_tool/store_access.h"

class CategoryBook {
public:
    // False when the categories can't be opened; that was said.
    bool Open() { return OpenOrComplain(database_); }

    // The category of that name: made when there is none, shown again when it was hidden. 0 on failure, which was said.
    CEOID FindOrAdd(const std::wstring& name);
    // Remembers one more entry that carries the category.
    void CountUse(CEOID category) { ++uses_[category]; }
    // Adds what was counted to the categories' records. False on failure, which was said.
    bool WriteUses();
    // Forgets what was looked up and counted, after a batch was undone.
    void Forget();

private:
    CEOID Add(const std::wstring& name);
    short Read(CEOID category, CEPROPID propid, short missing);
    bool Write(CEOID category, CEPROPID propid, short value);
    short FreeOrdinal();

    ConsoleCategories database_;
    std::map<std::wstring, CEOID> known_;
    std::map<CEOID, int> uses_;
};
