// Editors of kinds that none of the journal's own fields uses today, on fields made here.
#include "editor/field_editor.h"

#include <gtest/gtest.h>

#include <aygshell.h>

#include "data/field_ids.h"
#include "res/ids.h"
#include "text/date_time.h"
#include "ui/window.h"

namespace {

class NoKeys : public KeyListener {
public:
    bool WantsKey(HWND, UINT) const override { return false; }
    void OnKey(HWND, UINT) override {}
};

DbJItem Field(WORD id, CEPROPID propid, int control, int itemType = kItemValue) {
    return DbJItem(id, propid, L"Label", control, 0, static_cast<unsigned long>(itemType), L"");
}

SYSTEMTIME Time(WORD year, WORD month, WORD day, WORD hour, WORD minute) {
    SYSTEMTIME time = {};
    time.wYear = year;
    time.wMonth = month;
    time.wDay = day;
    time.wHour = hour;
    time.wMinute = minute;
    return time;
}

}  // namespace

class FieldEditorTest : public testing::Test {
protected:
    FieldEditorTest() {
        SHInitExtraControls();
        INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_DATE_CLASSES};
        InitCommonControlsEx(&controls);
        form_.Create(WC_STATICW, L"", WS_POPUP, 0, 0, 300, 300, nullptr, nullptr, nullptr, nullptr);
        site_.form = form_.GetHandle();
        site_.keys = &keys_;
        site_.launch = [this](DbJItem& field) { launched_ = &field; };
    }
    ~FieldEditorTest() override { form_.Destroy(); }

    HWND Control() const { return GetDlgItem(form_.GetHandle(), IDC_EDITOR_FIELD); }
    HWND TimeControl() const { return GetDlgItem(form_.GetHandle(), IDC_EDITOR_FIELD_TIME); }

    FieldEvent Pick(FieldEditor& editor, HWND picker, const SYSTEMTIME& time) {
        DateTime_SetSystemtime(picker, GDT_VALID, &time);
        NMHDR header = {picker, static_cast<UINT_PTR>(GetDlgCtrlID(picker)), static_cast<UINT>(DTN_DATETIMECHANGE)};
        return editor.OnNotify(header);
    }

    Window form_;
    NoKeys keys_;
    FieldEditorSite site_;
    DbJItem* launched_ = nullptr;
};

TEST_F(FieldEditorTest, ADateAloneHasNoTimePickerAndKeepsItsTimeOfDay) {
    DbJItem field = Field(kFieldStart, kPropStart, kControlDate);
    field.SetFileTime(DateTime(Time(2025, 11, 2, 8, 30)).ToFileTime());
    const auto editor = MakeFieldEditor(field, site_);
    ASSERT_NE(editor, nullptr);
    EXPECT_EQ(TimeControl(), nullptr);
    EXPECT_EQ(Pick(*editor, Control(), Time(2026, 1, 5, 0, 0)), FieldEvent::kTouched);
    EXPECT_TRUE(editor->Commit());
    EXPECT_EQ(DateTime(field.GetFileTime()), DateTime(Time(2026, 1, 5, 8, 30)));
}

TEST_F(FieldEditorTest, AFieldWithoutATimeStartsAtNow) {
    DbJItem field = Field(kFieldStart, kPropStart, kControlDateTime);
    const auto editor = MakeFieldEditor(field, site_);
    DateTime now;
    now.SetNow();
    SYSTEMTIME shown = {};
    ASSERT_EQ(DateTime_GetSystemtime(TimeControl(), &shown), static_cast<DWORD>(GDT_VALID));
    EXPECT_LT(now.Difference(DateTime(shown)), static_cast<int64_t>(DateTime::kTicksPerMinute));
    EXPECT_FALSE(editor->Commit());
    EXPECT_EQ(DateTime(field.GetFileTime()), DateTime());
}

TEST_F(FieldEditorTest, DateAndTimeArePickedForBothKindsThatHaveATime) {
    for (const int control : {kControlTime, kControlDateTime}) {
        DbJItem field = Field(kFieldStart, kPropStart, control);
        field.SetFileTime(DateTime(Time(2025, 11, 2, 8, 30)).ToFileTime());
        const auto editor = MakeFieldEditor(field, site_);
        ASSERT_NE(editor, nullptr) << control;
        ASSERT_NE(TimeControl(), nullptr) << control;
        Pick(*editor, TimeControl(), Time(2000, 1, 1, 17, 45));
        EXPECT_TRUE(editor->Commit());
        EXPECT_EQ(DateTime(field.GetFileTime()), DateTime(Time(2025, 11, 2, 17, 45))) << control;
    }
}

TEST_F(FieldEditorTest, UntouchedPickersKeepSeconds) {
    DbJItem field = Field(kFieldStart, kPropStart, kControlDateTime);
    SYSTEMTIME time = Time(2025, 11, 2, 8, 30);
    time.wSecond = 41;
    field.SetFileTime(DateTime(time).ToFileTime());
    const auto editor = MakeFieldEditor(field, site_);
    EXPECT_FALSE(editor->Commit());
    EXPECT_EQ(DateTime(field.GetFileTime()), DateTime(time));
}

TEST_F(FieldEditorTest, ASpanIsEditedAsTextAndParsed) {
    DbJItem field = Field(kFieldDuration, kPropDuration, kControlSpan);
    field.SetStrValue(L"0 minutes");
    const auto editor = MakeFieldEditor(field, site_);
    SetWindowTextW(Control(), L"2d 3h");
    EXPECT_EQ(editor->OnCommand(EN_CHANGE), FieldEvent::kTouched);
    EXPECT_TRUE(editor->Commit());
    EXPECT_EQ(std::wstring(field.GetStrValue()), L"2 days 3 hrs");
    EXPECT_FALSE(editor->Commit());
}

TEST_F(FieldEditorTest, AnUntouchedSpanKeepsWhatItsTextCannotShow) {
    DbJItem field = Field(kFieldDuration, kPropDuration, kControlSpan);
    DateTime days;
    days.AddDays(32);
    field.SetFileTime(days.ToFileTime());
    field.SetStrValue(L"1 day");
    EXPECT_FALSE(MakeFieldEditor(field, site_)->Commit());
    EXPECT_EQ(DateTime(field.GetFileTime()), days);
}

TEST_F(FieldEditorTest, ALauncherOpensSomethingElse) {
    DbJItem field = Field(kFieldBody, kPropBody, kControlLauncher);
    const auto editor = MakeFieldEditor(field, site_);
    EXPECT_EQ(Control(), nullptr);
    EXPECT_FALSE(editor->IsInPlace());
    editor->Enter();
    EXPECT_EQ(launched_, &field);
    EXPECT_FALSE(editor->Commit());
}

TEST_F(FieldEditorTest, ACodedValueOutsideItsTableIsKept) {
    DbJItem field = Field(kFieldPriority, kPropPriority, kControlList);
    field.SetShort(77);
    const auto editor = MakeFieldEditor(field, site_);
    EXPECT_EQ(SendMessageW(Control(), CB_GETCURSEL, 0, 0), CB_ERR);
    EXPECT_FALSE(editor->Commit());
    EXPECT_EQ(field.GetShort(), 77);
}

TEST_F(FieldEditorTest, WhatCannotBeEditedHasNoEditor) {
    DbJItem label = Field(kFieldPriority, kPropPriority, kControlList, kItemLabelOnly);
    EXPECT_EQ(MakeFieldEditor(label, site_), nullptr);
    DbJItem unknown = Field(kFieldPriority, kPropPriority, 99);
    EXPECT_EQ(MakeFieldEditor(unknown, site_), nullptr);
    DbJItem listOfNothing = Field(kFieldCompany, kPropCompany, kControlList);
    EXPECT_EQ(MakeFieldEditor(listOfNothing, site_), nullptr);
}

TEST_F(FieldEditorTest, LeavesNoControlsBehind) {
    DbJItem field = Field(kFieldStart, kPropStart, kControlDateTime);
    MakeFieldEditor(field, site_).reset();
    EXPECT_EQ(GetWindow(form_.GetHandle(), GW_CHILD), nullptr);
}

TEST_F(FieldEditorTest, AnEmptyCellHidesTheControl) {
    DbJItem field = Field(kFieldCompany, kPropCompany, kControlText);
    const auto editor = MakeFieldEditor(field, site_);
    editor->Place({10, 20, 110, 44});
    EXPECT_NE(GetWindowLongPtrW(Control(), GWL_STYLE) & WS_VISIBLE, 0);
    editor->Place({});
    EXPECT_EQ(GetWindowLongPtrW(Control(), GWL_STYLE) & WS_VISIBLE, 0);
}
