// A category of an entry: its name, with the record that carries it when that is known.
#pragma once

#include "data/ditem_object.h"

class ORVANE_API DbCItem : public DItemObject {
public:
    // The property is always kPropCategoryName; the name is the item's string value.
    explicit DbCItem(unsigned long propid);
    DbCItem(unsigned long propid, const wchar_t* name, CEOID oid = 0);
    DbCItem(const DbCItem&) = default;
    DbCItem& operator=(const DbCItem&) = default;
    ~DbCItem() override;

    // The category's record in the categories database, 0 when it was not looked up. No part of equality.
    CEOID GetOid() const { return oid_; }
    void SetOid(CEOID oid) { oid_ = oid; }

    // Two items are the same category when their names are equal, letter case included.
    bool operator==(const DbCItem& other) const;

private:
    CEOID oid_ = 0;
};
