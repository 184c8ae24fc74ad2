// Finds and mends counts of uses that do not say what the entries say. An entry and the count of its categories are
// written one after the other: a program that is killed in between leaves a count that is wrong.
#pragma once

#include <string>
#include <vector>

#include "data/db_categories.h"

struct WrongUseCount {
    CEOID category = 0;
    std::wstring name;
    short counted = 0;  // what the category's record says
    short uses = 0;     // how many entries carry the category; 32,767 when there are more
};

// Fills `wrong` with the categories whose count is not what the journal's entries say; one that was never counted and
// is not used is right. FALSE when entries or categories could not be read, which was reported.
ORVANE_API BOOL FindWrongUseCounts(CeDbase& journal, DbCategories& categories, std::vector<WrongUseCount>* wrong);

// Writes the counts as they should be. FALSE when one could not be written, which was reported; the others are.
ORVANE_API BOOL MendUseCounts(DbCategories& categories, const std::vector<WrongUseCount>& wrong);
