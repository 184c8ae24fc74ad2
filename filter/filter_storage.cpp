// How the filter is kept: which values, in which order. The names are fixed; stored filters have them.
#include "data/db_categories.h"
#include "filter/filter_settings.h"
#include "filter/filter_store.h"

namespace {

constexpr wchar_t kStartLow[] = L"fLStart";
constexpr wchar_t kStartHigh[] = L"fHStart";
constexpr wchar_t kEndLow[] = L"fLEnd";
constexpr wchar_t kEndHigh[] = L"fHEnd";
constexpr wchar_t kActive[] = L"fActive";
constexpr wchar_t kMonths[] = L"fMonths";
constexpr wchar_t kByRange[] = L"fRange";
constexpr wchar_t kCategoriesOnly[] = L"fCatsOnly";
constexpr wchar_t kCount[] = L"fCnt";

constexpr DWORD kAllMonths = 0x0FFF;

std::wstring NameOf(int index) {
    return L"flt" + std::to_wstring(index);
}

void WriteTime(FilterStore& store, const wchar_t* low, const wchar_t* high, const DateTime& time) {
    const DateTime::Halves halves = time.GetHalves();
    store.WriteNumber(low, static_cast<int32_t>(halves.low));
    store.WriteNumber(high, static_cast<int32_t>(halves.high));
}

DateTime ReadTime(const FilterStore& store, const wchar_t* lowName, const wchar_t* highName) {
    const auto low = static_cast<uint32_t>(store.ReadNumber(lowName));
    const auto high = static_cast<uint32_t>(store.ReadNumber(highName));
    return {low, high};
}

// How many categories are stored. More than a database can hold were never stored: the number is damaged. One that
// nobody's list is as long as is believed only as far as there are names, and no further than can be read at a start.
int ReadCount(const FilterStore& store) {
    constexpr int kMost = 0xFFFF;
    constexpr int kUnlikely = 500;
    constexpr int kMostRead = 5000;
    const int32_t stored = store.ReadNumber(kCount);
    if (stored < 0 || stored > kMost) return 0;
    if (stored <= kUnlikely) return stored;
    int count = 0;
    while (count < stored && count < kMostRead && !store.ReadText(NameOf(count)).empty())
        ++count;
    return count;
}

}  // namespace

void FilterSettings::Save(FilterStore& store) const {
    WriteTime(store, kStartLow, kStartHigh, rangeStart);
    WriteTime(store, kEndLow, kEndHigh, rangeEnd);
    store.WriteNumber(kActive, active);
    store.WriteNumber(kMonths, static_cast<int32_t>(months));
    store.WriteNumber(kByRange, byRange);
    store.WriteNumber(kCategoriesOnly, categoriesOnly);
    store.WriteNumber(kCount, categories_.GetCount());
    int index = 0;
    for (const DbCItem& category : categories_)
        store.WriteText(NameOf(index++), category.GetStrValue());
}

void FilterSettings::Reset(FilterStore& store) {
    active = FALSE;
    rangeStart = rangeEnd = DateTime();
    byRange = TRUE;
    months = 0;
    categoriesOnly = FALSE;
    const int count = ReadCount(store);
    for (int index = 0; index < count; ++index)
        store.Delete(NameOf(index));
    categories_.RemoveAll();
    CollectIds();
    store.WriteNumber(kCount, 0);
    Save(store);
}

void FilterSettings::Load(const FilterStore& store) {
    passed = 0;
    active = store.ReadNumber(kActive) != 0;
    months = static_cast<DWORD>(store.ReadNumber(kMonths)) & kAllMonths;
    byRange = store.ReadNumber(kByRange) != 0;
    categoriesOnly = store.ReadNumber(kCategoriesOnly) != 0;
    rangeStart = ReadTime(store, kStartLow, kStartHigh);
    rangeEnd = ReadTime(store, kEndLow, kEndHigh);

    DbCategories database;
    const BOOL opened = database.Open(kPropCategoryName, nullptr);
    categories_.RemoveAll();
    const int count = ReadCount(store);
    for (int index = 0; index < count; ++index)
        categories_.Append(DbCItem(kPropCategoryName, store.ReadText(NameOf(index)).c_str()));
    if (opened) FindCategories(database);
    CollectIds();
}
