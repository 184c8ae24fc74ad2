#include "pickers/category_picker.h"

#include <px.h>

#include "data/field_ids.h"
#include "res/ids.h"
#include "ui/resource_text.h"

namespace {

constexpr int kMargin = 4;       // logical pixels, around the panel
constexpr size_t kMaxName = 99;  // characters of a row's text

}  // namespace

CategoryPicker::CategoryPicker(TSList<DbCItem>* categories)
    : categories_(categories), panel_(database_, [this] { OnEdited(); }) {}

CategoryPicker::~CategoryPicker() = default;

INT_PTR CategoryPicker::Run(HWND owner, TSList<DbCItem>& categories) {
    CategoryPicker picker(&categories);
    return picker.RunModal(owner);
}

INT_PTR CategoryPicker::RunEditor(HWND owner) {
    CategoryPicker picker(nullptr);
    return picker.RunModal(owner);
}

bool CategoryPicker::OnOpen() {
    SetText(LoadText(IDS_OPTION_CATEGORIES).c_str());
    if (!database_.Open(GetHandle())) return false;
    if (categories_ && !MakeSelectPage()) return false;
    if (!panel_.CreateIn(GetHandle(), IDD_CATEGORY_PANEL, IDC_CATEGORY_PANEL)) return false;
    panel_.SetWindowPos(list_.GetHandle(), 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);  // before the tabs
    ShowPage(categories_ ? kSelectPage : kEditPage);
    return true;
}

bool CategoryPicker::MakeSelectPage() {
    label_.CreateIn(GetHandle(), -1, 0, {});
    label_.SetText(LoadText(IDS_OPTION_CATEGORIES).c_str());
    constexpr DWORD kStyle =
        WS_TABSTOP | WS_CLIPSIBLINGS | LVS_REPORT | LVS_NOCOLUMNHEADER | LVS_SINGLESEL | LVS_SHOWSELALWAYS;
    if (!list_.CreateIn(GetHandle(), IDC_CATEGORY_LIST, kStyle, {})) return false;
    list_.Prepare(0);
    if (!tabs_.CreateIn(GetHandle(), IDC_PICKER_TABS, WS_VISIBLE | WS_TABSTOP | TCS_BOTTOM, {})) return false;
    tabs_.InsertTab(kSelectPage, LoadText(IDS_SELECT_PAGE).c_str());
    tabs_.InsertTab(kEditPage, LoadText(IDS_ADD_DELETE_PAGE).c_str());
    FillList();
    return true;
}

void CategoryPicker::LayOut(const RECT& client) {
    const int strip = tabs_.GetHandle() ? tabs_.GetStripHeight() : 0;
    RECT page = client;
    page.bottom -= strip;
    tabs_.MoveWindow(0, page.bottom, client.right, strip);
    list_.MoveWindow(0, 0, page.right, page.bottom);
    list_.FitLastColumn();
    InflateRect(&page, -Px(kMargin), -Px(kMargin));
    panel_.Place(page);
}

void CategoryPicker::FillList() {
    filling_ = true;
    stale_ = false;
    list_.SendMessage(WM_SETREDRAW, FALSE);
    list_.DeleteAllItems();
    for (const DbCItem& category : panel_.Categories())
        list_.Add(category.GetStrValue(), IsHeld(category), static_cast<LPARAM>(category.GetOid()));
    list_.SetItemState(0, LVIS_FOCUSED | LVIS_SELECTED, LVIS_FOCUSED | LVIS_SELECTED);
    list_.SendMessage(WM_SETREDRAW, TRUE);
    list_.FitLastColumn();
    list_.Invalidate();
    filling_ = false;
}

void CategoryPicker::ShowPage(Page page) {
    if (page == kEditPage) {
        list_.Hide();
        panel_.Show();
        panel_.Reset();
        return;
    }
    if (stale_) FillList();
    panel_.Hide();
    list_.Show();
    list_.SetFocus();
}

LRESULT CategoryPicker::OnNotify(const NMHDR& header) {
    if (header.idFrom == IDC_PICKER_TABS && header.code == TCN_SELCHANGE) {
        const bool byKey = ::GetFocus() == tabs_.GetHandle();
        ShowPage(static_cast<Page>(tabs_.GetSelection()));
        if (byKey) tabs_.SetFocus();  // the arrow keys go on
    }
    if (header.idFrom != IDC_CATEGORY_LIST) return 0;
    switch (header.code) {
        case NM_CLICK:
        case NM_DBLCLK: list_.OnTap(reinterpret_cast<const NMITEMACTIVATE&>(header)); break;
        case LVN_ITEMCHANGED: {
            const auto& change = reinterpret_cast<const NMLISTVIEW&>(header);
            if (!filling_ && CheckList::IsToggled(change)) OnToggled(change.iItem);
            break;
        }
        default: break;
    }
    return 0;
}

void CategoryPicker::OnToggled(int row) {
    const DbCItem category = CategoryOf(row);
    if (!IsHeld(category)) {
        categories_->Append(category);
    } else {
        while (DbCItem* held = categories_->Find(category))  // stored entries may name it twice
            categories_->Remove(held);
    }
    // Categories of the same name are one to the entry.
    filling_ = true;
    const int rows = list_.GetItemCount();
    for (int other = 0; other < rows; ++other) {
        if (CategoryOf(other) == category) list_.SetChecked(other, IsHeld(category));
    }
    filling_ = false;
}

DbCItem CategoryPicker::CategoryOf(int row) const {
    return {kPropCategoryName, list_.GetItemText(row, 0).substr(0, kMaxName).c_str(),
            static_cast<CEOID>(list_.GetItemData(row))};
}

bool CategoryPicker::IsHeld(const DbCItem& category) const {
    return categories_ && categories_->Find(category) != nullptr;
}

// The entry's categories take their new names, and those whose record is gone go.
void CategoryPicker::OnEdited() {
    stale_ = true;
    if (!categories_) return;
    TSList<DbCItem> kept;
    for (const DbCItem& category : *categories_) {
        if (category.GetOid() && !database_.SeekToOid(category.GetOid())) continue;
        DbCItem renamed = category;
        if (category.GetOid()) renamed.SetStrValue(database_.GetName(category.GetOid()).c_str());
        kept.Append(renamed);
    }
    *categories_ = kept;
}
