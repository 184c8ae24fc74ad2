#include "data/category_uses.h"

#include <set>

#include "data/category_blob.h"
#include "data/field_ids.h"
#include "data/record_buffer.h"

void CategoryUses::Add(std::span<const CEOID> categories) {
    Change(categories, 1);
}

void CategoryUses::Release(std::span<const CEOID> categories) {
    Change(categories, -1);
}

void CategoryUses::Change(std::span<const CEOID> categories, int change) {
    for (const CEOID category : std::set<CEOID>(categories.begin(), categories.end()))
        changes_[category] += change;
}

BOOL CategoryUses::Store() {
    std::erase_if(changes_, [](const auto& change) { return change.second == 0; });
    if (changes_.empty()) return TRUE;
    DbCategories categories;
    if (categories.Open(kPropCategoryName, nullptr)) return Store(categories);
    Forget();
    return FALSE;
}

BOOL CategoryUses::Store(DbCategories& categories) {
    BOOL stored = TRUE;
    for (const auto& [category, change] : changes_)
        if (change != 0 && categories.SeekToOid(category) && !categories.ChangeUses(category, change)) stored = FALSE;
    Forget();
    return stored;
}

BOOL UpdateCategoryUses(std::span<const CEOID> before, std::span<const CEOID> after) {
    CategoryUses uses;
    uses.Release(before);
    uses.Add(after);
    return uses.Store();
}

std::vector<CEOID> ReadEntryCategories(CeDbase& journal, CEOID entry) {
    if (!entry || !journal.SeekToOid(entry)) return {};
    CEPROPID ids[] = {kPropCategories};
    WORD count = 1;
    RecordBuffer record;
    if (!journal.ReadRecordProps(&count, ids, record.Put())) return {};
    return FindCategories({&record[0], count});
}

std::vector<CEOID> FindCategories(std::span<const CEPROPVAL> properties) {
    for (const CEPROPVAL& property : properties)
        if (property.propid == kPropCategories && !(property.wFlags & CEDB_PROPNOTFOUND))
            return ReadCategoryBlob(property.val.blob);
    return {};
}
