// One of the choices that an option offers.
#pragma once

#include "data/ditem_object.h"

// The choice's text is the item's string value; its number (GetShort) counts from 0 in the order offered.
class ORVANE_API DbOptItem : public DItemObject {
public:
    DbOptItem(unsigned long propid, short number, const wchar_t* text);
    DbOptItem(const DbOptItem&) = default;
    DbOptItem& operator=(const DbOptItem&) = default;
    ~DbOptItem() override;
};
