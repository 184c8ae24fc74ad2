#include "editor/date_field_editor.h"

#include "editor/field_values.h"
#include "res/ids.h"

namespace {

constexpr wchar_t kTimeFormat[] = L"hh:mm tt";
constexpr int kDatePercent = 54;  // of the cell's width; the time gets the rest

SYSTEMTIME StartOf(const DbJItem& field) {
    DateTime time(field.GetFileTime());
    if (time == DateTime()) time.SetNow();
    return time.ToSystemTime();
}

}  // namespace

DateFieldEditor::DateFieldEditor(DbJItem& field, const FieldEditorSite& site)
    : FieldEditor(field), label_(site.form, field.GetLabel()), start_(StartOf(field)) {
    date_.CreateIn(site.form, IDC_EDITOR_FIELD, WS_TABSTOP | DTS_SHORTDATEFORMAT, {});
    date_.SetTime(start_);
    WatchEditor(date_.GetHandle(), site);
    if (field.GetCtrlType() == kControlDate) {
        RaiseInOrder({label_.Handle(), date_.GetHandle()});
        return;
    }
    time_.CreateIn(site.form, IDC_EDITOR_FIELD_TIME, WS_TABSTOP | DTS_TIMEFORMAT, {});
    time_.SetFormat(kTimeFormat);
    time_.SetTime(start_);
    WatchEditor(time_.GetHandle(), site);
    RaiseInOrder({label_.Handle(), date_.GetHandle(), time_.GetHandle()});
}

DateFieldEditor::~DateFieldEditor() {
    date_.Destroy();
    time_.Destroy();
}

void DateFieldEditor::Place(const RECT& cell) {
    if (!HasTime()) {
        PlaceInCell(date_, cell, LineHeight(date_));
        return;
    }
    RECT left = cell;
    left.right = cell.left + (cell.right - cell.left) * kDatePercent / 100;
    RECT right = cell;
    right.left = left.right;
    PlaceInCell(date_, left, LineHeight(date_));
    PlaceInCell(time_, right, LineHeight(time_));
}

void DateFieldEditor::Enter() {
    date_.SetFocus();
}

FieldEvent DateFieldEditor::OnNotify(const NMHDR& header) {
    if (header.code != DTN_DATETIMECHANGE) return FieldEvent::kNone;
    touched_ = true;
    return FieldEvent::kTouched;
}

bool DateFieldEditor::Commit() {
    if (!touched_) return false;
    touched_ = false;
    SYSTEMTIME picked = start_;
    SYSTEMTIME shown;
    if (date_.GetTime(&shown)) {
        picked.wYear = shown.wYear;
        picked.wMonth = shown.wMonth;
        picked.wDay = shown.wDay;
    }
    if (HasTime() && time_.GetTime(&shown)) {
        picked.wHour = shown.wHour;
        picked.wMinute = shown.wMinute;
    }
    const DateTime time(picked);
    return time != DateTime() && CommitTime(Field(), time);
}
