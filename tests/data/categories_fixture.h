// The device's categories in a fresh store, open by name, with short ways to look at them.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "data/db_categories.h"
#include "data/field_ids.h"
#include "data/record_buffer.h"
#include "tests/support/fresh_store.h"
#include "tests/support/message_boxes.h"

class CategoriesTest : public testing::Test {
protected:
    using Numbers = std::map<CEPROPID, short>;

    CategoriesTest() { EXPECT_TRUE(categories_.Open(kPropCategoryName, nullptr)); }
    ~CategoriesTest() override { CeClearFaults(); }

    // A record as any program may have left it: a name unless null, and numbers.
    CEOID Insert(const wchar_t* name, const Numbers& numbers = {}) {
        std::vector<CEPROPVAL> values;
        CEPROPVAL value{};
        if (name) {
            value.propid = kPropCategoryName;
            value.val.lpwstr = const_cast<wchar_t*>(name);
            values.push_back(value);
        }
        for (const auto& [propid, number] : numbers) {
            value = {};
            value.propid = propid;
            value.val.iVal = number;
            values.push_back(value);
        }
        const CEOID id = categories_.WriteRecordProps(0, static_cast<WORD>(values.size()), values.data());
        EXPECT_NE(id, 0u);
        return id;
    }

    static constexpr short kNone = -999;
    // A category's number, kNone when its record has none.
    short Number(CEOID category, CEPROPID propid) {
        EXPECT_NE(categories_.SeekToOid(category), 0u);
        CEPROPID ids[] = {propid};
        WORD count = 1;
        RecordBuffer record;
        EXPECT_NE(categories_.ReadRecordProps(&count, ids, record.Put()), 0u);
        return record.Has(0) ? record[0].val.iVal : kNone;
    }
    short Uses(CEOID category) { return Number(category, kPropCategoryJournalUses); }

    std::wstring Name(CEOID category) {
        if (!categories_.SeekToOid(category)) return L"(gone)";
        CEPROPID ids[] = {kPropCategoryName};
        WORD count = 1;
        RecordBuffer record;
        EXPECT_NE(categories_.ReadRecordProps(&count, ids, record.Put()), 0u);
        return record.Has(0) ? record[0].val.lpwstr : L"(none)";
    }

    void RemoveAll() {
        while (const CEOID category = categories_.SeekFirst())
            ASSERT_TRUE(categories_.DeleteRecord(category));
    }

    void DeleteDatabase() {
        categories_.Close();
        CeDbase base;
        ASSERT_TRUE(base.Open(kCategoriesDatabase, 0, 0, nullptr));
        ASSERT_TRUE(base.DeleteDatabase(0));
    }

    FreshStore store_;
    MessageBoxes boxes_;
    DbCategories categories_;
};
