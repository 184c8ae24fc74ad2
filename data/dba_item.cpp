#include "data/dba_item.h"

#include <cwchar>

DbAItem::DbAItem() : DItemObject(0) {}

DbAItem::DbAItem(const wchar_t* name, const wchar_t* company) : DItemObject(0), company_(company ? company : L"") {
    DItemObject::SetStrValue(name);
}

DbAItem::~DbAItem() = default;

bool DbAItem::operator==(const DbAItem& other) const {
    return std::wcscmp(GetStrValue(), other.GetStrValue()) == 0 && company_ == other.company_;
}
