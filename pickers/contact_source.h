// The contacts that can be picked for an entry: one small door to whoever keeps them.
#pragma once

#include <win.h>

#include <string>

struct OfferedContact {
    std::wstring fileAs;   // the name, as it is filed
    std::wstring company;  // may be empty
};

// The contacts, in the order in which they are shown. No operation throws.
class ContactSource {
public:
    virtual ~ContactSource() = default;
    // The picker begins and ends. Between the two the contacts stay the same; outside of them there may be none.
    // `window` is the picker's owner.
    virtual void Open(HWND) {}
    virtual void Close() {}
    virtual int GetCount() = 0;
    // `index` is 0 to GetCount() - 1. Asked anew for each row that is drawn.
    virtual OfferedContact Get(int index) = 0;
};

// Whoever keeps contacts offers them here, and null when it ends; it stays the owner.
void OfferContacts(ContactSource* source);
// What is offered; no contacts when nobody does.
ContactSource& OfferedContacts();
