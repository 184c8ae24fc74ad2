#include "data/category_recount.h"

#include <algorithm>
#include <limits>
#include <unordered_map>

#include "data/category_blob.h"
#include "data/field_ids.h"

namespace {

constexpr int kMostUses = std::numeric_limits<short>::max();

using UsesByCategory = std::unordered_map<CEOID, int>;

// An entry counts once for each category, however often its bytes name it.
BOOL CALLBACK CountEntry(CEOID, WORD, const CEPROPVAL* values, void* context) {
    if (values[0].wFlags & CEDB_PROPNOTFOUND) return TRUE;
    std::vector<CEOID> ids = ReadCategoryBlob(values[0].val.blob);
    std::sort(ids.begin(), ids.end());
    ids.erase(std::unique(ids.begin(), ids.end()), ids.end());
    for (const CEOID id : ids)
        ++(*static_cast<UsesByCategory*>(context))[id];
    return TRUE;
}

struct Comparison {
    const UsesByCategory& uses;
    std::vector<WrongUseCount>* wrong;
};

BOOL CALLBACK CompareCategory(CEOID category, WORD, const CEPROPVAL* values, void* context) {
    const auto& [uses, wrong] = *static_cast<const Comparison*>(context);
    const short counted = values[1].wFlags & CEDB_PROPNOTFOUND ? short{0} : values[1].val.iVal;
    const auto found = uses.find(category);
    const auto right = static_cast<short>(found == uses.end() ? 0 : std::min(found->second, kMostUses));
    if (counted == right) return TRUE;
    const bool named = !(values[0].wFlags & CEDB_PROPNOTFOUND);
    wrong->push_back({category, named ? values[0].val.lpwstr : L"", counted, right});
    return TRUE;
}

}  // namespace

BOOL FindWrongUseCounts(CeDbase& journal, DbCategories& categories, std::vector<WrongUseCount>* wrong) {
    wrong->clear();
    UsesByCategory uses;
    constexpr CEPROPID kEntry[] = {kPropCategories};
    if (!journal.Scan(1, kEntry, CountEntry, &uses)) return FALSE;
    constexpr CEPROPID kCategory[] = {kPropCategoryName, kPropCategoryJournalUses};
    Comparison comparison = {uses, wrong};
    return categories.Scan(2, kCategory, CompareCategory, &comparison);
}

BOOL MendUseCounts(DbCategories& categories, const std::vector<WrongUseCount>& wrong) {
    BOOL mended = TRUE;
    for (const WrongUseCount& count : wrong) {
        CEPROPVAL value{};
        value.propid = kPropCategoryJournalUses;
        value.val.iVal = count.uses;
        if (!categories.WriteRecordProps(count.category, 1, &value)) mended = FALSE;
    }
    return mended;
}
