#include "data/dbopt_item.h"

DbOptItem::DbOptItem(unsigned long propid, short number, const wchar_t* text) : DItemObject(propid) {
    DItemObject::SetShort(number);
    DItemObject::SetStrValue(text);
}

DbOptItem::~DbOptItem() = default;
