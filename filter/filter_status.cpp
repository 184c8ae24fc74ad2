#include "filter/filter_status.h"

#include "filter/filter_settings.h"
#include "res/ids.h"
#include "ui/resource_text.h"

namespace {

std::wstring Counted(int passed, int total) {
    wchar_t text[100];
    wsprintfW(text, LoadText(IDS_FILTER_STATUS).c_str(), passed, total);
    return text;
}

// The first of the chosen categories that is none any more, or null.
const DbCItem* FindGone(const FilterSettings& filter) {
    for (const DbCItem& category : filter.Categories())
        if (category.GetOid() == 0) return &category;
    return nullptr;
}

std::wstring ByCategories(const FilterSettings& filter, const std::wstring& counted) {
    const std::wstring decides = LoadText(IDS_FILTER_BY_CATEGORIES) + L" ";
    if (filter.Categories().IsEmpty()) return decides + LoadText(IDS_FILTER_NONE_CHOSEN);
    const DbCItem* gone = FindGone(filter);
    if (gone == nullptr) return decides + counted;
    return decides + counted + L", \"" + gone->GetStrValue() + L"\" " + LoadText(IDS_FILTER_IS_GONE);
}

}  // namespace

std::wstring FilterStatus(const FilterSettings& filter, int passed, int total) {
    const std::wstring counted = Counted(passed, total);
    if (!filter.active) return counted;
    if (filter.categoriesOnly || !filter.Categories().IsEmpty()) return ByCategories(filter, counted);
    if (!filter.byRange) {
        const std::wstring decides = LoadText(IDS_FILTER_BY_MONTHS) + L" ";
        return decides + (filter.months == 0 ? LoadText(IDS_FILTER_NONE_CHOSEN) : counted);
    }
    const std::wstring decides = LoadText(IDS_FILTER_BY_DATES) + L" ";
    return decides + (filter.EndsBeforeItStarts() ? LoadText(IDS_FILTER_ENDS_BEFORE) : counted);
}
