// The bytes in which an entry keeps its categories: 32-bit record ids of the categories database, one after another.
#pragma once

#include <span>
#include <vector>

#include <windbase.h>

#include "data/orvane.h"

// The ids, in order. Zeros are skipped, and so are bytes at the end that make no whole id.
ORVANE_API std::vector<CEOID> ReadCategoryBlob(const CEBLOB& blob);
ORVANE_API std::vector<BYTE> MakeCategoryBlob(std::span<const CEOID> ids);
