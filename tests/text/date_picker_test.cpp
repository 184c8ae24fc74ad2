// DateTime and the date-time picker, with a real picker.
#include <gtest/gtest.h>

#include "text/date_time.h"

namespace {

SYSTEMTIME At(WORD year, WORD month, WORD day, WORD hour = 0, WORD minute = 0) {
    return {year, month, 0, day, hour, minute, 0, 0};
}

class DatePickerTest : public testing::Test {
protected:
    DatePickerTest() {
        INITCOMMONCONTROLSEX classes = {sizeof(classes), ICC_DATE_CLASSES};
        InitCommonControlsEx(&classes);
        picker_ = CreateWindowExW(0, DATETIMEPICK_CLASSW, nullptr, WS_POPUP | DTS_SHOWNONE, 0, 0, 120, 24, nullptr,
                                  nullptr, GetModuleHandleW(nullptr), nullptr);
        EXPECT_NE(picker_, nullptr);
    }
    ~DatePickerTest() override { DestroyWindow(picker_); }

    DWORD State() const {
        SYSTEMTIME time = {};
        return static_cast<DWORD>(SendMessageW(picker_, DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&time)));
    }

    HWND picker_ = nullptr;
};

TEST_F(DatePickerTest, ShowsTheValueAndGivesItBack) {
    const DateTime value(At(2001, 5, 7, 13, 45));
    value.ToPicker(picker_);
    EXPECT_EQ(State(), DWORD{GDT_VALID});
    DateTime back;
    back.SetFromPicker(picker_);
    EXPECT_EQ(back, value);
}

TEST_F(DatePickerTest, ShowsNoDateWhenAsked) {
    const DateTime value(At(2001, 5, 7));
    value.ToPicker(picker_, true);
    value.ToPicker(picker_, false);
    EXPECT_EQ(State(), DWORD{GDT_NONE});
}

TEST_F(DatePickerTest, LeavesTheValueWhenNoDateIsShown) {
    DateTime(At(2001, 5, 7)).ToPicker(picker_, false);
    DateTime value(7, 8);
    value.SetFromPicker(picker_);
    EXPECT_EQ(value, DateTime(7, 8));
}

TEST_F(DatePickerTest, LeavesTheValueWithoutAPicker) {
    DateTime value(7, 8);
    value.SetFromPicker(nullptr);
    EXPECT_EQ(value, DateTime(7, 8));
}

}  // namespace
