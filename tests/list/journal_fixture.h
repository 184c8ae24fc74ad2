// An application with settings of its own and a journal in a fresh store, for tests of what shows it.
#pragma once

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "data/db_journal.h"
#include "data/field_ids.h"
#include "filter/filter_settings.h"
#include "list/selection_memory.h"
#include "tests/support/fresh_store.h"
#include "tests/support/message_boxes.h"
#include "tests/support/private_registry.h"
#include "ui/application.h"

class JournalFixture : public testing::Test {
protected:
    JournalFixture() { EXPECT_TRUE(journal_.Open(nullptr)); }
    ~JournalFixture() override { journal_.Close(); }

    // Noon of the day.
    static FILETIME Day(WORD year, WORD month, WORD day) {
        const SYSTEMTIME time = {year, month, 0, day, 12, 0, 0, 0};
        FILETIME result = {};
        EXPECT_TRUE(SystemTimeToFileTime(&time, &result));
        return result;
    }

    // An entry with a start and a subject and nothing else.
    CEOID Insert(const FILETIME& start, const std::wstring& subject) {
        CEPROPVAL values[2] = {};
        values[0].propid = kPropStart;
        values[0].val.filetime = start;
        values[1].propid = kPropSubject;
        values[1].val.lpwstr = const_cast<wchar_t*>(subject.c_str());
        const CEOID id = journal_.WriteRecordProps(0, 2, values);
        EXPECT_NE(id, 0u);
        return id;
    }

    // Entries "entry 0", "entry 1"... on days that follow each other, so that their rows are 0, 1...
    std::vector<CEOID> InsertDays(int count) {
        std::vector<CEOID> ids;
        for (int i = 0; i < count; ++i) {
            const FILETIME first = Day(2001, 5, 7);
            ULARGE_INTEGER ticks = {{first.dwLowDateTime, first.dwHighDateTime}};
            ticks.QuadPart += static_cast<ULONGLONG>(i) * DateTime::kTicksPerDay;
            ids.push_back(Insert({ticks.LowPart, ticks.HighPart}, L"entry " + std::to_wstring(i)));
        }
        return ids;
    }

    static std::wstring ShortDate(WORD year, WORD month, WORD day) {
        const SYSTEMTIME time = {year, month, 0, day, 0, 0, 0, 0};
        wchar_t text[60] = L"";
        GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &time, nullptr, text, 60);
        return text;
    }

    SORTORDERSPEC SortOrder() {
        SORTORDERSPEC orders[CEDB_MAXSORTORDER] = {};
        journal_.GetSortOrders(orders);
        return orders[0];
    }

    MessageBoxes boxes_;
    PrivateRegistry registry_;
    FreshStore store_;
    Application application_{L"Software\\Talvern\\Journal"};
    DbJournal journal_;
    SelectionMemory selection_;
    FilterSettings filter_;
};
