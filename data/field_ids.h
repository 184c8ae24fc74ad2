// The numbers by which a journal entry's fields are known: stored in records and settings, sent between windows and,
// for the categories, shared with other programs. Fixed: do not renumber.
#pragma once

#include <win.h>

#include <windbase.h>

// A property id is the field's number in the high word and the type of its value (CEVT_...) in the low word.
constexpr CEPROPID MakePropID(WORD id, WORD type) {
    return static_cast<CEPROPID>(id) << 16 | type;
}

// Fields of an entry. The same numbers are the Sort menu's commands, the detail view's results and the "SortBy"
// setting.
enum FieldId : WORD {
    kFieldStart = 101,
    kFieldSubject = 102,
    kFieldBody = 103,
    kFieldCategories = 104,
    kFieldEntryType = 105,
    kFieldPriority = 107,  // 106 was never a field
    kFieldSensitivity = 108,
    kFieldDuration = 109,
    kFieldContacts = 110,
    kFieldCompany = 111,
};

constexpr CEPROPID kPropStart = MakePropID(kFieldStart, CEVT_FILETIME);        // local time
constexpr CEPROPID kPropSubject = MakePropID(kFieldSubject, CEVT_LPWSTR);      //
constexpr CEPROPID kPropBody = MakePropID(kFieldBody, CEVT_BLOB);              // the rich-ink stream
constexpr CEPROPID kPropCategories = MakePropID(kFieldCategories, CEVT_BLOB);  // layout: data/category_blob.h
constexpr CEPROPID kPropEntryType = MakePropID(kFieldEntryType, CEVT_I2);      // row of EntryTypes(), -1: never set
constexpr CEPROPID kPropPriority = MakePropID(kFieldPriority, CEVT_I2);        // row of Priorities(), -1: never set
constexpr CEPROPID kPropSensitivity = MakePropID(kFieldSensitivity, CEVT_I2);  // row of Sensitivities(), -1: never set
constexpr CEPROPID kPropDuration = MakePropID(kFieldDuration, CEVT_FILETIME);  // a length in 100-ns ticks
constexpr CEPROPID kPropContacts = MakePropID(kFieldContacts, CEVT_BLOB);      // layout: data/contact_blob.h
constexpr CEPROPID kPropCompany = MakePropID(kFieldCompany, CEVT_LPWSTR);      //

// The record's flags, no field of the entry: what DbJournal::SetFlags writes.
constexpr CEPROPID kPropRecordFlags = MakePropID(112, CEVT_UI4);
// The editor sets these after every successful write.
constexpr UINT kRecordFlagsWritten = 3;
// Who the entry is (data/entry_identity.h), and when it was last changed: UTC, set by the store at each write.
constexpr CEPROPID kPropUid = MakePropID(113, CEVT_LPWSTR);
constexpr CEPROPID kPropChanged = MakePropID(114, CEVT_FILETIME);

// What a coded field gets in the form when it was never set.
constexpr short kUnset = -1;
constexpr short kDefaultEntryType = 13;   // "Note"
constexpr short kDefaultPriority = 1;     // "Normal"
constexpr short kDefaultSensitivity = 0;  // "Normal"

// A category's record in "\Categories Database", which other programs share.
constexpr CEPROPID kPropCategoryName = MakePropID(0x4001, CEVT_LPWSTR);
constexpr CEPROPID kPropCategoryOrdinal = MakePropID(0x4002, CEVT_I2);  // small number, unique among the categories
constexpr CEPROPID kPropCategoryVisible = MakePropID(0x4003, CEVT_I2);  // 1: shown, 0: hidden
constexpr CEPROPID kPropCategoryUsesA = MakePropID(0x4004, CEVT_I2);    // A, B, C: other programs' counts
constexpr CEPROPID kPropCategoryUsesB = MakePropID(0x4005, CEVT_I2);
constexpr CEPROPID kPropCategoryUsesC = MakePropID(0x4006, CEVT_I2);
constexpr CEPROPID kPropCategoryJournalUses = MakePropID(0x43EF, CEVT_I2);  // how many journal entries carry it

// The options table's one property: the choices of "Confirm Deletes".
constexpr CEPROPID kPropConfirmDeletes = 0x02D10002;

inline constexpr wchar_t kJournalDatabase[] = L"\\Journal Database";
inline constexpr wchar_t kCategoriesDatabase[] = L"\\Categories Database";
