// What the entry form is opened with: an entry of the list, or the values for a new entry taken from Pocket Outlook.
#pragma once

#include <string>

#include "text/date_time.h"

// The form is given a pointer to this and tells the two kinds apart by the tag.
struct FormRecord {
    std::wstring tag;
};

// An entry of the list.
struct EntryRow : FormRecord {
    EntryRow(unsigned long entryId, unsigned short editField) : id(entryId), field(editField) {}

    unsigned long id;      // object id of the entry; 0: a new one
    unsigned short field;  // the field to select first; 0 or unknown: the first row
};

// A Pocket Outlook item's values for a new entry; all empty or zero at first.
struct PimData : FormRecord {
    static constexpr wchar_t kTag[] = L"PIMDATA";

    PimData() { tag = kTag; }

    unsigned long itemId = 0;  // object id of the Pocket Outlook item
    std::wstring subject;
    std::wstring company;
    DateTime start;   // zero: the entry starts now
    DateTime second;  // the item's other time; the form does not use it
};

// Answers the record as what its tag says, or null when it is the other kind.
inline const PimData* AsPimData(const FormRecord& record) {
    return record.tag == PimData::kTag ? static_cast<const PimData*>(&record) : nullptr;
}
inline const EntryRow* AsEntryRow(const FormRecord& record) {
    return record.tag == PimData::kTag ? nullptr : static_cast<const EntryRow*>(&record);
}
