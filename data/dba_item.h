// A contact that an entry refers to.
#pragma once

#include "data/ditem_object.h"

// The contact's name, as it is filed, is the item's string value.
class ORVANE_API DbAItem : public DItemObject {
public:
    DbAItem();
    DbAItem(const wchar_t* name, const wchar_t* company);
    DbAItem(const DbAItem&) = default;
    DbAItem& operator=(const DbAItem&) = default;
    ~DbAItem() override;

    // Never null.
    const wchar_t* GetCompany() const { return company_.c_str(); }
    void SetCompany(const wchar_t* company) { company_ = company ? company : L""; }

    // Equal when name and company are, letter case included.
    bool operator==(const DbAItem& other) const;

private:
    std::wstring company_;
};
