// The bar's two menus: what they hold, and what a choice does.
#include <utility>

#include "data/db_journal.h"
#include "data/field_ids.h"
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

}  // namespace

LRESULT ButtonBar::OnDropDown(int button) {
    // While its menu is open a button says what it is for.
    if (button == IDM_SHOW) {
        SetButtonText(IDM_SHOW, LoadText(IDS_SHOW).c_str());
        OnShowChoice(OpenMenu(MakeShowMenu().get(), IDM_SHOW, TPM_LEFTALIGN));
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
    AppendText(menu.get(), 0, IDM_SHOW_ALL, LoadText(IDS_FILTER_ALL));
    AppendMenuW(menu.get(), MF_SEPARATOR, 0, nullptr);
    AppendText(menu.get(), MF_GRAYED, IDM_FILTER, LoadText(IDS_MORE));  // no filter screen yet
    return menu;
}

void ButtonBar::OnShowChoice(int id) {
    if (id != 0) Tell(static_cast<WORD>(id), 0);
    SetShowText();
}

void ButtonBar::SetShowText() {
    SetButtonText(IDM_SHOW, LoadText(IDS_FILTER_ALL).c_str());
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
