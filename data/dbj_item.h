// One field of a journal entry: what it is, how it is shown and edited, and its value.
#pragma once

#include <string>

#include "data/dba_item.h"
#include "data/dbc_item.h"
#include "data/ditem_object.h"
#include "data/ts_list.h"

// How the form edits a field.
enum ControlType : int {
    kControlText = 1,      // single-line edit
    kControlLauncher = 2,  // opens something: a picker, a page, another editor
    kControlDate = 3,      // date picker; the value is shown as a date alone
    kControlTime = 4,      // date and time pickers; exported as a time of day alone
    kControlSpan = 5,      // a length of time as text
    kControlList = 6,      // drop-down list
    kControlDateTime = 7,  // date and time pickers; the value's own text is date and time, in the form and exported
    kControlPassword = 8,  // options screen only
};

// What a field's row shows.
enum ItemType : int {
    kItemLabelOnly = 0,  // no value is computed or shown
    kItemValue = 1,
};

// Flags of a field.
enum FieldFlag : WORD {
    kFieldSortable = 0x0001,  // offered in the Sort menu; comes with the field definitions
    kFieldExported = 0x0100,  // chosen in the export screen's list of fields
};

class ORVANE_API DbJItem : public DItemObject {
public:
    // An unset field: coded values (CEVT_I2) are -1, times zero, texts and bytes empty.
    //   id           field id, 101 to 111; 0 for an item that is no field of an entry (a row of the options screen)
    //   propid       property id; 0 where nothing is stored
    //   label        caption; copied
    //   controlType  a ControlType
    //   flags        FieldFlag bits
    //   itemType     an ItemType
    //   defaultText  what a row shows while the value's text is empty; copied; null counts as ""
    DbJItem(int id, unsigned long propid, const wchar_t* label, int controlType, unsigned short flags,
            unsigned long itemType, const wchar_t* defaultText);
    DbJItem(const DbJItem&) = default;
    DbJItem& operator=(const DbJItem&) = default;
    ~DbJItem() override;

    WORD GetID() const { return id_; }
    const wchar_t* GetLabel() const { return label_.c_str(); }
    int GetCtrlType() const { return controlType_; }
    int GetItemType() const { return itemType_; }
    const wchar_t* GetDefaultText() const { return defaultText_.c_str(); }

    // The field's row in the entry form, -1 until the form has laid out its rows.
    int GetLoc() const { return location_; }
    void SetLoc(int row) { location_ = row; }

    // `bits` are FieldFlag values; IsFlag asks whether any of them is set.
    void SetFlag(WORD bits) { flags_ |= bits; }
    void DelFlag(WORD bits) { flags_ = static_cast<WORD>(flags_ & ~bits); }
    bool IsFlag(WORD bits) const { return (flags_ & bits) != 0; }

    // The categories or contacts that the field's bytes name, put here by whoever parsed them. They are working copies:
    // what is stored are the bytes (SetBlob).
    TSList<DbCItem>& Categories() { return categories_; }
    const TSList<DbCItem>& Categories() const { return categories_; }
    TSList<DbAItem>& Contacts() { return contacts_; }
    const TSList<DbAItem>& Contacts() const { return contacts_; }

    // Takes the value back: what the item holds is that of an unset field, without categories and contacts.
    void Unset();

    // Equal when they are the same field (property id) with the same stored value. Label, row, flags and display
    // text do not count.
    bool operator==(const DbJItem& other) const;

private:
    WORD id_;
    WORD flags_;
    int controlType_;
    int itemType_;
    int location_ = -1;
    std::wstring label_;
    std::wstring defaultText_;
    TSList<DbCItem> categories_;
    TSList<DbAItem> contacts_;
};

// The first field of that property id, or of that field id; null when the list has none. The list's cursor stays.
ORVANE_API DbJItem* FindFieldByPropID(TSList<DbJItem>& fields, CEPROPID propid);
ORVANE_API DbJItem* FindFieldByID(TSList<DbJItem>& fields, WORD id);
