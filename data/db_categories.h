// The device's categories: a database that other programs share and that is never made here.
#pragma once

#include "data/category_list.h"
#include "data/ce_dbase.h"
#include "data/field_ids.h"

// A category is known everywhere by the id of its record. A hidden one keeps its record and its id, so that entries
// which refer to it stay valid. A category whose record says nothing of being visible is hidden.
//
// Names are found as the database's order compares them, whatever their letter case. All operations move the current
// position. What the operations of CeDbase report is reported by them; the result here is then 0 or FALSE.
class ORVANE_API DbCategories : public CeDbase {
public:
    DbCategories() = default;
    // Closes the database.
    ~DbCategories() override;

    using CeDbase::Open;
    // Opens the categories in the order of `sort`: kPropCategoryName, which FindByName and what builds on it need, or
    // kPropCategoryOrdinal. A missing database is reported (line 37). Changes made by others are posted to `notify`
    // (may be null). Open categories are closed first.
    BOOL Open(CEPROPID sort, HWND notify);

    // The category of that name, hidden ones too; 0 when there is none.
    CEOID FindByName(const wchar_t* name);

    // Makes a category, or shows the hidden one of that name again. FALSE when a visible one has the name: nothing is
    // written then.
    BOOL Add(const wchar_t* name);
    // Gives a category another name. When a hidden category has that name, people are asked whether to show that one
    // again, nothing is renamed, and the answer is TRUE. A visible one of that name does not stop the renaming.
    BOOL Rename(CEOID category, const wchar_t* name);
    // Deletes a category, or hides it when it is in use.
    BOOL Remove(CEOID category);

    // Whether any program counts uses of the category. busy_ is set meanwhile.
    BOOL IsInUse(CEOID category);
    BOOL IsHidden(CEOID category);
    BOOL Hide(CEOID category) { return WriteNumber(category, kPropCategoryVisible, 0); }
    BOOL Unhide(CEOID category) { return WriteNumber(category, kPropCategoryVisible, 1); }
    // How many categories are visible.
    int CountVisible();

    // One more, or one less, of the journal's entries carries the category. FALSE, and nothing is written, when there
    // is no such category.
    BOOL AddUse(CEOID category) { return ChangeUses(category, 1); }
    BOOL ReleaseUse(CEOID category) { return ChangeUses(category, -1); }
    // The same for many entries at once. The count never goes below 0, nor above 32,767, the most its type holds.
    BOOL ChangeUses(CEOID category, int change);
    // Sets the journal's count of every category that has one to 0; answers how many had.
    int ResetUses();

    // Takes a text of names with commas between them into the list and answers the list's length. Blanks before a name
    // do not count, nor does a name that is nothing but blanks. A name that is no category becomes one. A category that
    // the list holds loses kCategoryNotNamed; others are appended with `flags`.
    int ParseNames(const wchar_t* text, CategoryList* list, DWORD flags);
    // Appends the ids in an entry's bytes (see data/category_blob.h) with `flags`, leaving out zeros, and answers the
    // list's length; 0 when there is not one whole id.
    static int ListFromIds(const CEBLOB& ids, CategoryList* list, DWORD flags);
    // Makes the bytes for a list and answers the number of ids. The buffer is the caller's, who frees it with
    // LocalFree; none for an empty list, nor when memory is short, which is shown (answer 0).
    static int IdsFromList(const CategoryList& list, CEBLOB* ids);

private:
    bool ReadUse(CEOID category, bool* inUse);
    short LowestFreeOrdinal();
    BOOL WriteNumber(CEOID category, CEPROPID propid, short value);
};
