// A filter beside the device's categories in a fresh store.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "data/category_blob.h"
#include "data/db_cats.h"
#include "data/field_ids.h"
#include "filter/filter_settings.h"
#include "tests/support/fresh_store.h"
#include "tests/support/message_boxes.h"

inline DateTime At(WORD year, WORD month, WORD day, WORD hour = 0, WORD minute = 0, WORD second = 0, WORD ms = 0) {
    return DateTime(SYSTEMTIME{year, month, 0, day, hour, minute, second, ms});
}

// The bytes of an entry's categories.
class Packed {
public:
    Packed() = default;
    Packed(std::vector<CEOID> ids) : bytes_(MakeCategoryBlob(ids)) {}
    operator CEBLOB() const { return {static_cast<DWORD>(bytes_.size()), const_cast<BYTE*>(bytes_.data())}; }

private:
    std::vector<BYTE> bytes_;
};

class FilterTest : public testing::Test {
protected:
    // The record of a category, made when there is none.
    static CEOID Category(const wchar_t* name) {
        DbCats database;
        EXPECT_TRUE(database.Open(nullptr));
        database.Add(name);
        return database.FindByName(name);
    }
    static void DeleteCategory(const wchar_t* name) {
        DbCats database;
        ASSERT_TRUE(database.Open(nullptr));
        ASSERT_TRUE(database.DeleteRecord(database.FindByName(name)));
    }
    static void RenameCategory(const wchar_t* name, const wchar_t* other) {
        DbCats database;
        ASSERT_TRUE(database.Open(nullptr));
        ASSERT_TRUE(database.Rename(database.FindByName(name), other));
    }
    static void DeleteCategoriesDatabase() {
        CeDbase base;
        ASSERT_TRUE(base.Open(kCategoriesDatabase, 0, 0, nullptr));
        ASSERT_TRUE(base.DeleteDatabase(0));
    }
    // Chooses a category as its name and record.
    void Choose(const wchar_t* name) { filter_.AddCategory(DbCItem(kPropCategoryName, name, Category(name))); }

    bool Match(const DateTime& start, const Packed& categories = {}) const {
        return filter_.Match(start.ToFileTime(), categories);
    }
    std::vector<std::wstring> Names() const {
        std::vector<std::wstring> names;
        for (const DbCItem& category : filter_.Categories())
            names.emplace_back(category.GetStrValue());
        return names;
    }

    FreshStore store_;
    MessageBoxes boxes_;
    FilterSettings filter_;
};
