#include "data/dbc_item.h"

#include <cwchar>

DbCItem::DbCItem(unsigned long propid) : DItemObject(propid) {}

DbCItem::DbCItem(unsigned long propid, const wchar_t* name, CEOID oid) : DItemObject(propid), oid_(oid) {
    DItemObject::SetStrValue(name);
}

DbCItem::~DbCItem() = default;

bool DbCItem::operator==(const DbCItem& other) const {
    return std::wcscmp(GetStrValue(), other.GetStrValue()) == 0;
}
