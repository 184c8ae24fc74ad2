// The bar's two menus: what they hold, and what a choice does.
#include <iterator>
#include <utility>

#include "data/db_cats.h"
#include "data/db_journal.h"
#include "data/field_ids.h"
#include "data/record_buffer.h"
#include "filter/filter_caption.h"
#include "filter/filter_settings.h"
#include "list/button_bar.h"
#include "res/ids.h"
#include "ui/application.h"
#include "ui/resource_text.h"

namespace {

WORD StoredSortField() {
    const int32_t field = Application::Current()->ReadInt(LoadText(IDS_OPTIONS), kSortBy, kFieldStart);
    return field > 0 && field <= 0xFFFF ? static_cast<WORD>(field) : WORD{0};  // 0: no field
}

void AppendText(HMENU menu, UINT flags, UINT id, const std::wstring& text) {
    AppendMenuW(menu, MF_STRING | flags, id, text.c_str());
}

// "Show" lists no more categories than this.
constexpr UINT kMostCategories = 8;

bool IsCategory(int id) {
    return id >= IDM_FIRST_CATEGORY && id < IDM_FIRST_CATEGORY + static_cast<int>(kMostCategories);
}

// A name is no menu text: its ampersands are to be seen.
std::wstring MenuTextOf(const std::wstring& name) {
    std::wstring text;
    for (const wchar_t c : name)
        text.append(c == L'&' ? 2 : 1, c);
    return text;
}

void AppendCategory(HMENU menu, UINT id, const DbCItem& category, bool checked) {
    AppendText(menu, checked ? MF_CHECKED : 0, id, MenuTextOf(category.GetStrValue()));
    MENUITEMINFOW item = {};
    item.cbSize = sizeof(item);
    item.fMask = MIIM_DATA;
    item.dwItemData = category.GetOid();
    SetMenuItemInfoW(menu, id, FALSE, &item);
}

// The category behind an item; 0 when there is no such item.
CEOID CategoryOf(HMENU menu, UINT id) {
    MENUITEMINFOW item = {};
    item.cbSize = sizeof(item);
    item.fMask = MIIM_DATA;
    GetMenuItemInfoW(menu, id, FALSE, &item);
    return static_cast<CEOID>(item.dwItemData);
}

}  // namespace

LRESULT ButtonBar::OnDropDown(int button) {
    // While its menu is open a button says what it is for.
    if (button == IDM_SHOW) {
        SetButtonText(IDM_SHOW, LoadText(IDS_SHOW).c_str());
        const UniqueMenu menu = MakeShowMenu();
        OnShowChoice(menu.get(), OpenMenu(menu.get(), IDM_SHOW, TPM_LEFTALIGN));
    } else if (button == IDM_SORT) {
        SetButtonText(IDM_SORT, LoadText(IDS_SORT).c_str());
        OnSortChoice(OpenMenu(MakeSortMenu().get(), IDM_SORT, TPM_RIGHTALIGN));
    }
    return TBDDRET_DEFAULT;
}

int ButtonBar::OpenMenu(HMENU menu, int button, UINT align) {
    RECT place;
    if (!GetButtonRect(button, &place)) return 0;
    ClientToScreen(&place);
    PressButton(button, true);
    Update();
    const int id =
        TrackPopupMenu(menu, align | TPM_TOPALIGN | TPM_RETURNCMD | TPM_NONOTIFY,
                       align == TPM_RIGHTALIGN ? place.right : place.left, place.bottom, 0, GetHandle(), nullptr);
    PressButton(button, false);
    return id;
}

void ButtonBar::Tell(WORD id, WORD notification) {
    ::SendMessageW(GetParent(), WM_COMMAND, MAKEWPARAM(id, notification), reinterpret_cast<LPARAM>(GetHandle()));
}

// ---- Show ----

UniqueMenu ButtonBar::MakeShowMenu() const {
    UniqueMenu menu(CreatePopupMenu());
    if (AppendCategories(menu.get())) AppendMenuW(menu.get(), MF_SEPARATOR, 0, nullptr);
    AppendText(menu.get(), 0, IDM_SHOW_ALL, LoadText(IDS_FILTER_ALL));
    AppendMenuW(menu.get(), MF_SEPARATOR, 0, nullptr);
    AppendText(menu.get(), 0, IDM_FILTER, LoadText(IDS_MORE));
    return menu;
}

// False when no entry uses any category.
bool ButtonBar::AppendCategories(HMENU menu) const {
    DbCats categories;
    if (!categories.Open(nullptr)) return false;
    UINT listed = 0;
    for (CEOID id = categories.SeekFirst(); id != 0 && listed < kMostCategories; id = categories.SeekNext()) {
        CEPROPID ids[] = {kPropCategoryName, kPropCategoryJournalUses};
        WORD count = static_cast<WORD>(std::size(ids));
        RecordBuffer props;
        if (categories.ReadRecordProps(&count, ids, props.Put()) == 0) continue;
        if (!props.Has(0) || !props.Has(1) || props[1].val.iVal == 0) continue;
        const DbCItem category(kPropCategoryName, props[0].val.lpwstr, id);
        const bool held = filter_.HasCategory(category) && (!filter_.byRange || filter_.categoriesOnly);
        AppendCategory(menu, IDM_FIRST_CATEGORY + listed, category, held);
        ++listed;
    }
    return listed > 0;
}

void ButtonBar::OnShowChoice(HMENU menu, int id) {
    if (id != 0) Tell(static_cast<WORD>(id), 0);
    if (IsCategory(id)) FilterByCategory(filter_, CategoryOf(menu, static_cast<UINT>(id)));
    SetShowText();
    if (id != 0 && IsCategory(static_cast<int>(GetMenuItemID(menu, 0)))) Tell(IDM_SHOW, kNotifyRefresh);
}

void ButtonBar::SetShowText() {
    SetButtonText(IDM_SHOW, FilterCaption(filter_).c_str());
}

// ---- Sort ----

UniqueMenu ButtonBar::MakeSortMenu() const {
    UniqueMenu menu(CreatePopupMenu());
    TSList<DbJItem> fields;
    journal_.Initialize(&fields);
    const WORD stored = StoredSortField();
    for (const DbJItem& field : std::as_const(fields)) {
        if (!field.IsFlag(kFieldSortable)) continue;
        AppendText(menu.get(), field.GetID() == stored ? MF_CHECKED : 0, field.GetID(), field.GetLabel());
    }
    AppendMenuW(menu.get(), MF_SEPARATOR, 0, nullptr);
    AppendText(menu.get(), IsDescending() ? 0 : MF_CHECKED, IDM_ASCENDING, LoadText(IDS_ASCENDING));
    return menu;
}

void ButtonBar::OnSortChoice(int id) {
    if (id == 0) {
        SORTORDERSPEC orders[CEDB_MAXSORTORDER] = {};
        journal_.GetSortOrders(orders);
        SetSortTextTo(HIWORD(orders[0].propid));
    } else if (id == IDM_ASCENDING) {
        const bool descending = !IsDescending();
        SetSortText();
        Tell(descending ? 1 : 0, kNotifySortDescending);
    } else {
        Application::Current()->WriteInt(LoadText(IDS_OPTIONS), kSortBy, id);
        SetSortText();
        Tell(static_cast<WORD>(id), kNotifySortField);
    }
}

void ButtonBar::SetSortText() {
    SetSortTextTo(StoredSortField());
}

void ButtonBar::SetSortTextTo(WORD id) {
    TSList<DbJItem> fields;
    journal_.Initialize(&fields);
    const DbJItem* field = FindFieldByID(fields, id);
    if (field == nullptr) field = FindFieldByID(fields, kFieldStart);  // what unknown ids sort by
    if (field != nullptr) SetButtonText(IDM_SORT, field->GetLabel());
}

bool ButtonBar::IsDescending() const {
    SORTORDERSPEC orders[CEDB_MAXSORTORDER] = {};
    journal_.GetSortOrders(orders);
    return (orders[0].dwFlags & CEDB_SORT_DESCENDING) != 0;
}
