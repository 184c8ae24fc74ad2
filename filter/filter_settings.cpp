#include "filter/filter_settings.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "data/db_categories.h"

namespace {

// By the month's number; 0 is the month of a time that names no date.
constexpr WORD kMonthMasks[] = {0,      0x0001, 0x0002, 0x0004, 0x0008, 0x0010, 0x0020,
                                0x0040, 0x0080, 0x0100, 0x0200, 0x0400, 0x0800};

// The whole part of the variant time: days since 30 December 1899, 0 for what has no such time. For the times that have
// one (up to the year 9999) it is reckoned here; the system's conversions would be most of the work of a filtered list.
int64_t DayOf(const DateTime& time) {
    constexpr int64_t kDaysBefore1899 = 109'205;                       // from 1 January 1601 on
    constexpr uint64_t kTooLate = 3'067'671 * DateTime::kTicksPerDay;  // 1 January 10000
    if (time.Ticks() >= kTooLate) return static_cast<int64_t>(std::trunc(time.ToVariantTime()));
    return static_cast<int64_t>(time.Ticks() / DateTime::kTicksPerDay) - kDaysBefore1899;
}

bool IsSame(const DbCItem& a, const DbCItem& b) {
    return a == b || (a.GetOid() != 0 && a.GetOid() == b.GetOid());
}

}  // namespace

// ---- Categories ----

bool FilterSettings::HasCategory(const DbCItem& category) const {
    for (const DbCItem& held : categories_)
        if (IsSame(held, category)) return true;
    return false;
}

void FilterSettings::AddCategory(const DbCItem& category) {
    categories_.Append(category);
    CollectIds();
}

bool FilterSettings::RemoveCategory(const DbCItem& category) {
    for (DbCItem& held : categories_) {
        if (!IsSame(held, category)) continue;
        const bool removed = categories_.Remove(&held);
        CollectIds();
        return removed;
    }
    return false;
}

void FilterSettings::RefreshCategories() {
    if (active) LookUpCategories();
}

void FilterSettings::LookUpCategories() {
    if (categories_.IsEmpty()) return;
    DbCategories database;
    if (!database.Exists(kCategoriesDatabase) || !database.Open(kPropCategoryName, nullptr)) return;
    FindCategories(database);
    CollectIds();
}

void FilterSettings::FindCategories(DbCategories& database) {
    for (DbCItem& category : categories_) {
        const wchar_t* name = category.GetStrValue();
        category.SetOid(name[0] ? database.FindByName(name) : 0);
    }
}

void FilterSettings::CollectIds() {
    ids_.clear();
    for (const DbCItem& category : categories_)
        if (category.GetOid()) ids_.push_back(category.GetOid());
    std::sort(ids_.begin(), ids_.end());
}

// ---- Asking ----

bool FilterSettings::Match(const FILETIME& start, const CEBLOB& categories) const {
    if (!active) return true;
    if (categoriesOnly || !categories_.IsEmpty()) return MatchCategories(categories);
    return byRange ? MatchRange(DateTime(start)) : MatchMonths(DateTime(start));
}

bool FilterSettings::EndsBeforeItStarts() const {
    return DayOf(rangeEnd) < DayOf(rangeStart);
}

bool FilterSettings::MatchRange(const DateTime& start) const {
    const int64_t day = DayOf(start);
    return day >= DayOf(rangeStart) && day <= DayOf(rangeEnd);
}

bool FilterSettings::MatchMonths(const DateTime& start) const {
    return (months & kMonthMasks[start.Month()]) != 0;
}

bool FilterSettings::MatchCategories(const CEBLOB& categories) const {
    if (!categories.lpb) return false;
    for (DWORD at = 0; categories.dwCount - at >= sizeof(CEOID); at += sizeof(CEOID)) {
        CEOID id;
        std::memcpy(&id, categories.lpb + at, sizeof(id));  // the bytes need not be aligned
        if (std::binary_search(ids_.begin(), ids_.end(), id)) return true;
    }
    return false;
}
