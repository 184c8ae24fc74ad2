// A list of categories by their records, as the categories database's own operations fill and read it.
#pragma once

#include <windbase.h>

#include "data/ts_list.h"

struct CategoryListItem {
    CEOID id = 0;     // the category's record
    DWORD flags = 0;  // whoever fills a list says what they mean, but for the one below
};

// Whoever prepares a list sets this on its items; what a text names loses it again, so that what is left was not named.
constexpr DWORD kCategoryNotNamed = 0x10;

using CategoryList = TSList<CategoryListItem>;
