#include "filter/filter_dialog.h"

#include <px.h>

#include <algorithm>

#include "data/db_cats.h"
#include "data/field_ids.h"
#include "data/record_buffer.h"
#include "filter/filter_caption.h"
#include "filter/filter_settings.h"
#include "filter/filter_status.h"
#include "res/ids.h"
#include "ui/application.h"
#include "ui/resource_text.h"

namespace {

constexpr int kMonthsOfYear = 12;
constexpr int kMonthColumn = 75;     // logical pixels
constexpr UINT_PTR kCountTimer = 1;  // comes when there is nothing else to do
constexpr UINT kCountPause = 10;     // milliseconds
constexpr DWORD kCountSlice = 20;    // milliseconds; shorter than what a user notices

DbCItem CategoryOf(const CheckList& list, int row) {
    return {kPropCategoryName, list.GetItemText(row, 0).c_str(), static_cast<CEOID>(list.GetItemData(row))};
}

}  // namespace

FilterDialog* FilterDialog::live_ = nullptr;

FilterDialog::FilterDialog(Window& owner, DbJournal& journal, FilterSettings& filter)
    : owner_(owner), filter_(filter), counter_(journal, filter) {}

INT_PTR FilterDialog::Run(Window& owner, DbJournal& journal, FilterSettings& filter) {
    FilterDialog dialog(owner, journal, filter);
    DialogParams params(&dialog);
    return dialog.DoModal(GetModuleHandleW(nullptr), IDD_FILTER, owner.GetHandle(), Procedure, &params);
}

INT_PTR CALLBACK FilterDialog::Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) noexcept {
    if (message == WM_INITDIALOG) return Begin(hwnd, lparam, live_);
    if (live_ == nullptr) return FALSE;
    switch (message) {
        case WM_COMMAND: return live_->OnCommand(HIWORD(wparam), LOWORD(wparam));
        case WM_NOTIFY: return live_->OnNotify(*reinterpret_cast<const NMHDR*>(lparam));
        case WM_TIMER: return live_->OnTimer();
        case WM_SIZE: return live_->LayOut(), TRUE;
        case WM_SETTINGCHANGE: return live_->OnSettingChange(wparam, lparam);
        case WM_NCDESTROY: return End(live_);
        default: return FALSE;
    }
}

// ---- Start ----

INT_PTR FilterDialog::OnInitDialog(void*) {
    SHSetCloseCommand(GetHandle(), IDCANCEL);
    SetText(LoadText(IDS_FILTER_TITLE).c_str());
    CreateMenuBar(true, 0, IDR_FILTER_BAR, GetModuleHandleW(nullptr));
    AttachControls();
    FillMonths();
    filter_.LookUpCategories();  // other programs may have renamed some
    if (!FillCategories()) {
        EndDialog(GetHandle(), -1);
        return FALSE;
    }
    if (filter_.rangeStart.Ticks() == 0) filter_.rangeStart.SetNow();
    if (filter_.rangeEnd.Ticks() == 0) filter_.rangeEnd.SetNow();
    ShowRange();
    filter_.active = TRUE;
    // Clicked, so that their handlers set all that depends on them.
    (filter_.byRange ? byRange_ : byMonth_).Click();
    categoriesOnly_.SetChecked(!filter_.categoriesOnly);
    categoriesOnly_.Click();
    LayOut();
    // A radio button that gets the focus is chosen, so that the first control of the screen is not for everybody.
    (filter_.categoriesOnly ? categoriesOnly_ : filter_.byRange ? byRange_ : byMonth_).SetFocus();
    return FALSE;
}

void FilterDialog::AttachControls() {
    const HWND dialog = GetHandle();
    byRange_.AttachItem(dialog, IDC_FILTER_BY_RANGE);
    byMonth_.AttachItem(dialog, IDC_FILTER_BY_MONTH);
    categoriesOnly_.AttachItem(dialog, IDC_FILTER_CATEGORIES_ONLY);
    start_.AttachItem(dialog, IDC_FILTER_START);
    end_.AttachItem(dialog, IDC_FILTER_END);
    months_.AttachItem(dialog, IDC_FILTER_MONTHS);
    categories_.AttachItem(dialog, IDC_FILTER_CATEGORIES);
    status_.AttachItem(dialog, IDC_FILTER_STATUS);
}

void FilterDialog::FillMonths() {
    loading_ = true;
    months_.Prepare(Px(kMonthColumn));
    for (int month = 1; month <= kMonthsOfYear; ++month)
        months_.Add(MonthName(month, LOCALE_USER_DEFAULT).c_str(), (filter_.months & MonthBit(month)) != 0);
    months_.SetColumnWidth(0, std::max(Px(kMonthColumn), months_.WidestRow()));
    loading_ = false;
}

bool FilterDialog::FillCategories() {
    DbCats database;
    if (!database.Open(nullptr)) return false;
    loading_ = true;
    categories_.Prepare(0);
    categories_.SendMessage(WM_SETREDRAW, FALSE);  // the control reckons its scroll bars anew for every row otherwise
    for (CEOID category = database.SeekFirst(); category != 0; category = database.SeekNext()) {
        CEPROPID ids[] = {kPropCategoryName};
        WORD count = 1;
        RecordBuffer props;
        if (database.ReadRecordProps(&count, ids, props.Put()) == 0 || !props.Has(0)) continue;
        const DbCItem item(kPropCategoryName, props[0].val.lpwstr, category);
        categories_.Add(props[0].val.lpwstr, filter_.HasCategory(item), static_cast<LPARAM>(category));
    }
    categories_.SendMessage(WM_SETREDRAW, TRUE);
    loading_ = false;
    return true;
}

void FilterDialog::ShowRange() {
    filter_.rangeStart.ToPicker(start_.GetHandle());
    filter_.rangeEnd.ToPicker(end_.GetHandle());
}

// ---- Messages ----

INT_PTR FilterDialog::OnCommand(WORD code, WORD id) {
    if (code == BN_CLICKED) changed_ = true;  // any button, OK included
    switch (id) {
        case IDOK: OnOk(); return TRUE;
        case IDCANCEL: EndDialog(GetHandle(), IDCANCEL); return TRUE;
        case IDM_SHOW_ALL: OnClear(); return TRUE;
        case IDC_FILTER_BY_RANGE: OnByRange(true); return TRUE;
        case IDC_FILTER_BY_MONTH: OnByRange(false); return TRUE;
        case IDC_FILTER_CATEGORIES_ONLY: OnCategoriesOnly(); return TRUE;
        default: return FALSE;
    }
}

INT_PTR FilterDialog::OnNotify(const NMHDR& header) {
    switch (header.idFrom) {
        case IDC_FILTER_START:
            if (header.code == DTN_DATETIMECHANGE) OnStartChanged();
            break;
        case IDC_FILTER_END:
            if (header.code == DTN_DATETIMECHANGE) OnEndChanged();
            break;
        case IDC_FILTER_MONTHS: OnListNotify(months_, header); break;
        case IDC_FILTER_CATEGORIES: OnListNotify(categories_, header); break;
        default: break;
    }
    return FALSE;
}

void FilterDialog::OnListNotify(CheckList& list, const NMHDR& header) {
    switch (header.code) {
        case NM_SETFOCUS: list.OnFocus(); break;
        case NM_CLICK:
        case NM_DBLCLK: list.OnTap(reinterpret_cast<const NMITEMACTIVATE&>(header)); break;
        case LVN_ITEMCHANGED: {
            const auto& change = reinterpret_cast<const NMLISTVIEW&>(header);
            if (loading_ || !CheckList::IsToggled(change)) break;
            if (&list == &months_) {
                OnMonthToggled(change.iItem);
            } else {
                OnCategoryToggled(change.iItem);
            }
            break;
        }
        default: break;
    }
}

INT_PTR FilterDialog::OnSettingChange(WPARAM wparam, LPARAM lparam) {
    LayOut();
    return HandleSettingChange(wparam, lparam);
}

// ---- Edits ----

void FilterDialog::OnOk() {
    if (changed_) owner_.SendMessage(WM_COMMAND, IDM_FILTER_CHANGED);
    EndDialog(GetHandle(), IDOK);
}

void FilterDialog::OnClear() {
    changed_ = true;
    ShowRange();
    byRange_.Enable();  // a disabled button neither takes the click nor gives its mark away
    byMonth_.Enable();
    byRange_.Click();
    categoriesOnly_.SetChecked(true);
    categoriesOnly_.Click();
    months_.UncheckAll();
    categories_.UncheckAll();
    owner_.SendMessage(WM_COMMAND, IDM_SHOW_ALL);
    CountAnew();
}

void FilterDialog::OnByRange(bool byRange) {
    filter_.byRange = byRange;
    EnableControls();
    Edited();
}

void FilterDialog::OnCategoriesOnly() {
    filter_.categoriesOnly = categoriesOnly_.IsChecked();
    EnableControls();
    Edited();
}

void FilterDialog::OnStartChanged() {
    filter_.rangeStart.SetFromPicker(start_.GetHandle());
    filter_.rangeEnd.SetFromPicker(end_.GetHandle());
    if (filter_.rangeStart > filter_.rangeEnd) {
        filter_.rangeEnd = filter_.rangeStart;
        filter_.rangeEnd.ToPicker(end_.GetHandle());
    }
    Edited();
}

// An end before the start stays: nothing passes then.
void FilterDialog::OnEndChanged() {
    filter_.rangeEnd.SetFromPicker(end_.GetHandle());
    Edited();
}

void FilterDialog::OnMonthToggled(int row) {
    const DWORD bit = MonthBit(row + 1);
    filter_.months = months_.IsChecked(row) ? filter_.months | bit : filter_.months & ~bit;
    Edited();
}

void FilterDialog::OnCategoryToggled(int row) {
    const DbCItem category = CategoryOf(categories_, row);
    if (categories_.IsChecked(row)) {
        filter_.AddCategory(category);
    } else {
        while (filter_.RemoveCategory(category))  // stored filters may name it twice
            continue;
    }
    Edited();
}

void FilterDialog::Edited() {
    filter_.active = TRUE;
    // After "Clear" the range is not set, and its days are still shown: what is shown counts.
    if (filter_.rangeStart.Ticks() == 0) filter_.rangeStart.SetFromPicker(start_.GetHandle());
    if (filter_.rangeEnd.Ticks() == 0) filter_.rangeEnd.SetFromPicker(end_.GetHandle());
    changed_ = true;
    CountAnew();
}

void FilterDialog::EnableControls() {
    const bool byDate = !categoriesOnly_.IsChecked();
    const bool byRange = byRange_.IsChecked();
    byRange_.Enable(byDate);
    byMonth_.Enable(byDate);
    start_.Enable(byDate && byRange);
    end_.Enable(byDate && byRange);
    EnableItem(IDC_FILTER_START_LABEL, byDate && byRange);
    EnableItem(IDC_FILTER_END_LABEL, byDate && byRange);
    months_.Enable(byDate && !byRange);
}

// ---- How many pass ----

void FilterDialog::CountAnew() {
    counter_.Start();
    ShowStatus(LoadText(IDS_FILTER_COUNTING));
    SetTimer(kCountTimer, kCountPause);
}

INT_PTR FilterDialog::OnTimer() {
    if (!counter_.Continue(kCountSlice)) return TRUE;
    KillTimer(kCountTimer);
    ShowStatus(FilterStatus(filter_, counter_.Passed(), counter_.Total()));
    return TRUE;
}

void FilterDialog::ShowStatus(const std::wstring& text) {
    status_.SetText(text.c_str());
    FitStatus();
}
