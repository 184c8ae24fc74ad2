// The people in Pocket Outlook, for the contacts picker.
#pragma once

#include "outlook/outlook_session.h"
#include "pickers/contact_source.h"

// They are offered as long as the object lives, by name without regard to letter case. What the picker shows of them is
// read in one pass when it opens, and held until it closes.
class OutlookContacts : public ContactSource {
public:
    OutlookContacts() { OfferContacts(this); }
    ~OutlookContacts() override { OfferContacts(nullptr); }
    OutlookContacts(const OutlookContacts&) = delete;
    OutlookContacts& operator=(const OutlookContacts&) = delete;

    void Open(HWND window) override;
    void Close() override;
    int GetCount() override { return count_; }
    OfferedContact Get(int index) override;

private:
    OutlookSession session_;
    UniqueCom<IPOutlookItemCollection> contacts_;
    int count_ = 0;
};
