#include "ui/list_box.h"

#include <vector>

int ListBox::AddString(const wchar_t* text) {
    return static_cast<int>(SendMessage(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text)));
}

int ListBox::InsertString(int index, const wchar_t* text) {
    return static_cast<int>(SendMessage(LB_INSERTSTRING, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text)));
}

bool ListBox::DeleteString(int index) {
    return SendMessage(LB_DELETESTRING, static_cast<WPARAM>(index)) != LB_ERR;
}

void ListBox::Clear() {
    SendMessage(LB_RESETCONTENT);
}

int ListBox::GetCount() const {
    return static_cast<int>(SendMessage(LB_GETCOUNT));
}

int ListBox::GetSelection() const {
    return static_cast<int>(SendMessage(LB_GETCURSEL));
}

void ListBox::SetSelection(int index) {
    SendMessage(LB_SETCURSEL, static_cast<WPARAM>(index));
}

bool ListBox::IsRowSelected(int index) const {
    return SendMessage(LB_GETSEL, static_cast<WPARAM>(index)) > 0;
}

void ListBox::SelectRow(int index, bool selected) {
    SendMessage(LB_SETSEL, selected, index);
}

std::wstring ListBox::GetString(int index) const {
    const LRESULT length = SendMessage(LB_GETTEXTLEN, static_cast<WPARAM>(index));
    if (length < 0) return {};
    std::vector<wchar_t> buffer(static_cast<size_t>(length) + 1, L'\0');
    SendMessage(LB_GETTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(buffer.data()));
    return buffer.data();
}

LPARAM ListBox::GetItemData(int index) const {
    return SendMessage(LB_GETITEMDATA, static_cast<WPARAM>(index));
}

bool ListBox::SetItemData(int index, LPARAM data) {
    return SendMessage(LB_SETITEMDATA, static_cast<WPARAM>(index), data) != LB_ERR;
}
