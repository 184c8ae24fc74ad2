// A database of texts, dates and numbers in a fresh store, sorted by number.
#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "data/ce_dbase.h"
#include "data/field_ids.h"
#include "data/record_buffer.h"
#include "tests/support/fresh_store.h"
#include "tests/support/message_boxes.h"

constexpr CEPROPID kNumber = MakePropID(1, CEVT_I4);
constexpr CEPROPID kText = MakePropID(2, CEVT_LPWSTR);
constexpr CEPROPID kDate = MakePropID(3, CEVT_FILETIME);
inline constexpr wchar_t kSample[] = L"\\Sample";
inline constexpr wchar_t kReportTitle[] = L"CE Database Error";

inline std::wstring Report(DWORD error, int line, const wchar_t* module = L"cedbase") {
    return L"Error: " + std::to_wstring(error) + L"(" + std::to_wstring(line) + L")\n" + module;
}

inline FILETIME Date(WORD year, WORD month, WORD day, WORD hour = 0, WORD minute = 0, WORD second = 0) {
    SYSTEMTIME time{};
    time.wYear = year;
    time.wMonth = month;
    time.wDay = day;
    time.wHour = hour;
    time.wMinute = minute;
    time.wSecond = second;
    FILETIME result{};
    EXPECT_TRUE(SystemTimeToFileTime(&time, &result));
    return result;
}

// What a record of the sample holds; what is missing is not written.
struct SampleRecord {
    std::optional<long> number;
    std::optional<std::wstring> text;
    std::optional<FILETIME> date;
};

class SampleDatabaseTest : public testing::Test {
protected:
    SampleDatabaseTest() {
        SORTORDERSPEC orders[] = {{kNumber, 0}, {kText, 0}};
        EXPECT_TRUE(base_.Create(kSample, 77, 2, orders));
        EXPECT_TRUE(base_.Open(kSample, kNumber, 0, nullptr));
    }
    ~SampleDatabaseTest() override {
        CeClearFaults();
        base_.Close();
    }

    CEOID Insert(const SampleRecord& record) {
        std::vector<CEPROPVAL> values;
        CEPROPVAL value{};
        if (record.number) {
            value.propid = kNumber;
            value.val.lVal = *record.number;
            values.push_back(value);
        }
        if (record.text) {
            value.propid = kText;
            value.val.lpwstr = const_cast<wchar_t*>(record.text->c_str());
            values.push_back(value);
        }
        if (record.date) {
            value.propid = kDate;
            value.val.filetime = *record.date;
            values.push_back(value);
        }
        const CEOID oid = base_.WriteRecordProps(0, static_cast<WORD>(values.size()), values.data());
        EXPECT_NE(oid, 0u);
        return oid;
    }

    // Records 10, 20, ... in that order, each with its number alone.
    std::vector<CEOID> InsertNumbers(int count) {
        std::vector<CEOID> oids;
        for (int i = 1; i <= count; ++i)
            oids.push_back(Insert({i * 10, {}, {}}));
        return oids;
    }

    static CEPROPVAL Number(long number) {
        CEPROPVAL value{};
        value.propid = kNumber;
        value.val.lVal = number;
        return value;
    }

    FreshStore store_;
    MessageBoxes boxes_;
    CeDbase base_;
};
