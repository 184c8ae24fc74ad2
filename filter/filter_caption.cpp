#include "filter/filter_caption.h"

#include <dateformat.h>

#include <bit>
#include <iterator>

#include "data/db_cats.h"
#include "data/field_ids.h"
#include "filter/filter_settings.h"
#include "filter/registry_filter_store.h"
#include "res/ids.h"
#include "ui/application.h"
#include "ui/resource_text.h"

namespace {

// By categories alone. None at all is a filter too: it lets nothing pass.
std::wstring CategoriesCaption(const TSList<DbCItem>& categories) {
    if (categories.IsEmpty()) return LoadText(IDS_FILTER_NO_CATEGORY);
    if (categories.GetCount() > 1) return LoadText(IDS_FILTER_MULTIPLE);
    return categories.begin()->GetStrValue();
}

std::wstring MonthsCaption(DWORD months) {
    if (months == 0) return LoadText(IDS_FILTER_NO_MONTH);
    if (std::popcount(months) > 1) return LoadText(IDS_FILTER_MONTHS);
    return MonthName(std::countr_zero(months) + 1, LOCALE_SYSTEM_DEFAULT);
}

}  // namespace

std::wstring FilterCaption(const FilterSettings& filter) {
    if (!filter.active) return LoadText(IDS_FILTER_ALL);
    const TSList<DbCItem>& categories = filter.Categories();
    if (filter.categoriesOnly && !(categories.IsEmpty() && filter.byRange)) return CategoriesCaption(categories);
    return filter.byRange ? LoadText(IDS_FILTER_RANGE) : MonthsCaption(filter.months);
}

bool FilterByCategory(FilterSettings& filter, CEOID category) {
    DbCats database;
    if (!database.Open(nullptr)) return false;
    const std::wstring name = database.GetName(category);
    if (name.empty()) return false;
    RegistryFilterStore store(*Application::Current());
    filter.Reset(store);
    filter.AddCategory(DbCItem(kPropCategoryName, name.c_str(), database.FindByName(name.c_str())));
    filter.byRange = FALSE;
    filter.categoriesOnly = TRUE;
    filter.active = TRUE;
    return true;
}

std::wstring MonthName(int month, LCID locale) {
    // The first of the month: not every month has today's day.
    const SYSTEMTIME time = {2000, static_cast<WORD>(month), 0, 1, 0, 0, 0, 0};
    wchar_t name[DateTime::kDateChars] = L"";
    GetDateFormatW(locale, 0, &time, L"MMMM", name, static_cast<int>(std::size(name)));
    return name;
}
