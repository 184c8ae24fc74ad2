// The one filter of the program: off, or by date range, by months of any year, or by categories.
#pragma once

#include <win.h>

#include <vector>

#include <windbase.h>

#include "data/dbc_item.h"
#include "data/ts_list.h"
#include "text/date_time.h"

class DbCategories;
class FilterStore;

// One record for the whole process. Its screens edit it in place; the list shows the entries that pass.
//
// The categories are kept by name. Entries hold ids: the names are looked up when they are loaded and whenever the list
// is rebuilt, so that asking an entry compares numbers. A name that is no category matches no entry.
struct FilterSettings {
    LONG passed = 0;              // how many entries pass: the list's visible count, which every rebuild writes
    DateTime rangeStart;          // first and last day of the range; the time of day does not count
    DateTime rangeEnd;            //
    DWORD months = 0;             // bit m - 1: month m (1 is January) is wanted; bits 12 to 31 are never set
    BOOL active = FALSE;          // off: every entry passes, whatever the other fields hold
    BOOL categoriesOnly = FALSE;  // by categories, also when none is chosen (nothing passes then)
    BOOL byRange = FALSE;         // the date test uses the range, else the months

    // ---- Categories; as soon as there is one, they alone decide ----

    const TSList<DbCItem>& Categories() const { return categories_; }
    // By name, or by the record where both are known: a category's name may have changed its letter case meanwhile.
    bool HasCategory(const DbCItem& category) const;
    // Appends a copy. The item carries its id if it is known; one without an id matches nothing until it is looked up.
    void AddCategory(const DbCItem& category);
    // Removes the first that is the same, as HasCategory tells; false when there is none.
    bool RemoveCategory(const DbCItem& category);
    // Looks the names up anew if they are to decide. Without a categories database, which is not reported here, all
    // stays as it was.
    void RefreshCategories();
    // The same, whether or not they decide.
    void LookUpCategories();

    // ---- Keeping ----

    // Writes every field but `passed`.
    void Save(FilterStore& store) const;
    // Turns the filter off, clears it and saves.
    void Reset(FilterStore& store);
    // Takes what is stored, with `passed` 0. What is missing or damaged is 0, or an empty name. A missing categories
    // database is reported; the names are taken all the same.
    void Load(const FilterStore& store);

    // ---- Asking ----

    // Whether the range's last day comes before its first: no start lies in it.
    bool EndsBeforeItStarts() const;
    // Whether an entry passes, by its start and the bytes of its categories (see data/category_blob.h).
    bool Match(const FILETIME& start, const CEBLOB& categories) const;

private:
    bool MatchRange(const DateTime& start) const;
    bool MatchMonths(const DateTime& start) const;
    bool MatchCategories(const CEBLOB& categories) const;
    void FindCategories(DbCategories& database);
    void CollectIds();

    TSList<DbCItem> categories_;
    std::vector<CEOID> ids_;  // those of categories_ that are known, in ascending order
};
