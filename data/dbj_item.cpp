#include "data/dbj_item.h"

#include "data/field_ids.h"

DbJItem::DbJItem(int id, unsigned long propid, const wchar_t* label, int controlType, unsigned short flags,
                 unsigned long itemType, const wchar_t* defaultText)
    : DItemObject(propid),
      id_(static_cast<WORD>(id)),
      flags_(flags),
      controlType_(controlType),
      itemType_(static_cast<int>(itemType)),
      label_(label ? label : L""),
      defaultText_(defaultText ? defaultText : L"") {
    if (TypeFromPropID(propid) == CEVT_I2) DItemObject::SetShort(kUnset);
}

void DbJItem::Unset() {
    CEPROPVAL unset = {};
    unset.propid = GetPropID();
    if (TypeFromPropID(unset.propid) == CEVT_I2) unset.val.iVal = kUnset;
    FromProperty(unset);
    if (TypeFromPropID(unset.propid) != CEVT_LPWSTR) SetStrValue(nullptr);
    categories_.RemoveAll();
    contacts_.RemoveAll();
}

DbJItem::~DbJItem() = default;

bool DbJItem::operator==(const DbJItem& other) const {
    return GetPropID() == other.GetPropID() && SameValue(other);
}

DbJItem* FindFieldByPropID(TSList<DbJItem>& fields, CEPROPID propid) {
    for (DbJItem& field : fields)
        if (field.GetPropID() == propid) return &field;
    return nullptr;
}

DbJItem* FindFieldByID(TSList<DbJItem>& fields, WORD id) {
    for (DbJItem& field : fields)
        if (field.GetID() == id) return &field;
    return nullptr;
}
