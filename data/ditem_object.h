// A value with a property id: the base of a field of an entry, a category, a contact and a choice of an option.
#pragma once

#include <win.h>

#include <string>
#include <vector>

#include <windbase.h>

#include "data/orvane.h"

// The item holds one value of every type at once; which one is stored is told by the property id's low word. The string
// is also the display text of items whose value is of another type.
//
// The order of the virtual operations is fixed: programs call them through their slots.
class ORVANE_API DItemObject {
public:
    virtual ~DItemObject();

    // Never null; "" when nothing was set. Belongs to the item and lives until the next SetStrValue.
    virtual const wchar_t* GetStrValue() const;
    // Copies the text; null counts as "".
    virtual void SetStrValue(const wchar_t* text);
    virtual short GetShort() const;
    virtual void SetShort(short value);
    virtual unsigned short GetUShort() const;
    virtual void SetUShort(unsigned short value);
    virtual long GetLong() const;
    virtual void SetLong(long value);
    virtual unsigned long GetULong() const;
    virtual void SetULong(unsigned long value);
    // Local time in 100-ns ticks since 1601, or a length in the same ticks; zero when nothing was set.
    virtual FILETIME GetFileTime() const;
    virtual void SetFileTime(FILETIME time);
    virtual BOOL GetBool() const;
    virtual void SetBool(BOOL value);
    virtual double GetDouble() const;
    virtual void SetDouble(double value);
    // Never null; no bytes when nothing was set. Belongs to the item and lives until the next SetBlob.
    virtual const CEBLOB* GetBlob() const;
    // Copies the bytes; null, or a count of 0, empties the value.
    virtual void SetBlob(const CEBLOB* blob);

    // Field number in the high word, CEVT_... type of the value in the low word; 0 for an item without either.
    CEPROPID GetPropID() const { return propid_; }

    // The value of the property id's type as a property of a record. Strings and bytes stay the item's. False for an
    // item whose property id names none of the types above.
    bool ToProperty(CEPROPVAL* property) const;
    // Takes the value from a property of a record. A property that is absent (CEDB_PROPNOTFOUND) or of another type
    // changes nothing.
    void FromProperty(const CEPROPVAL& property);

protected:
    explicit DItemObject(CEPROPID propid) : propid_(propid) {}
    DItemObject(const DItemObject&) = default;
    DItemObject& operator=(const DItemObject&) = default;

    // Whether both items hold the same value of the property id's type.
    bool SameValue(const DItemObject& other) const;

private:
    CEPROPID propid_;
    std::wstring text_;
    std::vector<BYTE> bytes_;
    mutable CEBLOB blob_{};  // what GetBlob points at; filled there, so that copies never point into each other
    FILETIME time_{};
    double double_ = 0;
    long long_ = 0;
    unsigned long ulong_ = 0;
    BOOL bool_ = FALSE;
    short short_ = 0;
    unsigned short ushort_ = 0;
};
