// What the list costs: its refresh with and without a filter, the filter's question, the menu of its bar.
#include <win.h>

#include <algorithm>
#include <string>
#include <vector>

#include "bench/bare_list.h"
#include "bench/bench.h"
#include "data/field_ids.h"
#include "list/button_bar.h"
#include "list/entry_list.h"
#include "list/store_rows.h"

namespace {

DateTime TimeAt(ULONGLONG ticks) {
    return DateTime(FILETIME{static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)});
}

}  // namespace

// What the control itself takes for more rows is in the bound: it is emptied and told the number of rows too.
void Bench::RefreshList() {
    SelectionMemory selection;
    EntryList list(journal_, selection, filter_);
    StoreRows rows(journal_, filter_);
    const HWND parent = MakeFrame();
    const HWND bareParent = MakeFrame();
    Require(list.CreateIn(parent, {0, 0, 240, 294}), "making the list");
    ::ShowWindow(list.GetHandle(), SW_SHOW);
    const HWND bareList = MakeBareList(bareParent, list);
    const auto refresh = [&] { list.RefreshList(); };
    const auto tellBare = [&] {
        ::SendMessageW(bareList, LVM_DELETEALLITEMS, 0, 0);
        ::SendMessageW(bareList, LVM_SETITEMCOUNT, static_cast<WPARAM>(filter_.passed), 0);
    };
    Add("refresh list", MeasurePair(kRuns, refresh, [&] { bare_.ReadCount(), tellBare(); }),
        "bare list view, as many rows");
    const auto filtered = [&](const char* kind) {
        const std::string refreshed = std::string("refresh by ") + kind;
        const std::string counted = std::string("count by ") + kind;
        Add(refreshed.c_str(), MeasurePair(kFewRuns, refresh, [&] { bare_.ReadAll(), tellBare(); }),
            "scan of three columns, bare list view");
        Require(entries_ < 1000 || (filter_.passed > 0 && filter_.passed < static_cast<LONG>(entries_)),
                "filtering some of the entries");
        Add(counted.c_str(),
            MeasurePair(
                kFewRuns, [&] { rows.Count(); }, [&] { bare_.ReadAll(); }),
            "scan of three columns");
    };
    FilterByRange();
    filtered("range");
    FilterByMonths();
    filtered("months");
    FilterByCategory();
    filtered("category");
    filter_.active = FALSE;
    DestroyWindow(parent);
    DestroyWindow(bareParent);
}

// ---- The filter: each leaves some of the sample entries, which span ten years ----

void Bench::FilterByRange() {
    filter_.active = TRUE;
    filter_.byRange = TRUE;
    const ULONGLONG first = DateTime(MakeSampleEntry(1).start).Ticks();
    filter_.rangeStart = TimeAt(first + 60 * DateTime::kTicksPerDay);
    filter_.rangeEnd = TimeAt(first + 790 * DateTime::kTicksPerDay);
}
void Bench::FilterByMonths() {
    filter_.byRange = FALSE;
    filter_.months = 0x0249;
}
void Bench::FilterByCategory() {
    for (const wchar_t* name : {L"Business", L"Family"})
        filter_.AddCategory(DbCItem(kPropCategoryName, name));
    filter_.RefreshCategories();
}
std::vector<DWORD> Bench::FilterIds() const {
    std::vector<DWORD> ids;
    for (const DbCItem& category : filter_.Categories())
        ids.push_back(category.GetOid());
    return ids;
}

void Bench::CategoryMatch() {
    std::vector<std::vector<DWORD>> entries;
    for (unsigned number = 0; number < entries_; ++number)
        entries.push_back(MakeSampleEntry(number).categories);
    filter_.active = TRUE;
    const std::vector<DWORD> wanted = FilterIds();
    unsigned passed = 0;
    unsigned compared = 0;
    const auto match = [&] {
        passed = 0;
        for (std::vector<DWORD>& categories : entries) {
            const CEBLOB blob = {static_cast<DWORD>(categories.size() * sizeof(DWORD)),
                                 reinterpret_cast<LPBYTE>(categories.data())};
            if (filter_.Match(FILETIME{}, blob)) ++passed;
        }
    };
    const auto compare = [&] {
        compared = 0;
        for (const std::vector<DWORD>& categories : entries) {
            if (std::find_first_of(categories.begin(), categories.end(), wanted.begin(), wanted.end()) !=
                categories.end()) {
                ++compared;
            }
        }
    };
    Add("category match", MeasurePair(kRuns, match, compare), "a loop that compares ids");
    Require(passed == compared && passed > 0, "matching the same entries");
    filter_.active = FALSE;
}

void Bench::ShowMenu() {
    const ButtonBar bar(journal_, filter_);
    int items = 0;
    const auto make = [&] { items = GetMenuItemCount(bar.MakeShowMenu().get()); };
    const auto makeBare = [&] {
        const HMENU menu = CreatePopupMenu();
        for (int i = 0; i < items; ++i)
            AppendMenuW(menu, MF_STRING, static_cast<UINT_PTR>(700 + i), L"Business");
        DestroyMenu(menu);
    };
    Add("show menu", MeasurePair(kRuns, make, makeBare), "a menu of as many items");
}
