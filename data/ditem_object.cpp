#include "data/ditem_object.h"

#include "data/field_ids.h"

DItemObject::~DItemObject() = default;

const wchar_t* DItemObject::GetStrValue() const {
    return text_.c_str();
}
void DItemObject::SetStrValue(const wchar_t* text) {
    text_ = std::wstring(text ? text : L"");
}
short DItemObject::GetShort() const {
    return short_;
}
void DItemObject::SetShort(short value) {
    short_ = value;
}
unsigned short DItemObject::GetUShort() const {
    return ushort_;
}
void DItemObject::SetUShort(unsigned short value) {
    ushort_ = value;
}
long DItemObject::GetLong() const {
    return long_;
}
void DItemObject::SetLong(long value) {
    long_ = value;
}
unsigned long DItemObject::GetULong() const {
    return ulong_;
}
void DItemObject::SetULong(unsigned long value) {
    ulong_ = value;
}
FILETIME DItemObject::GetFileTime() const {
    return time_;
}
void DItemObject::SetFileTime(FILETIME time) {
    time_ = time;
}
BOOL DItemObject::GetBool() const {
    return bool_;
}
void DItemObject::SetBool(BOOL value) {
    bool_ = value;
}
double DItemObject::GetDouble() const {
    return double_;
}
void DItemObject::SetDouble(double value) {
    double_ = value;
}

const CEBLOB* DItemObject::GetBlob() const {
    blob_.dwCount = static_cast<DWORD>(bytes_.size());
    blob_.lpb = bytes_.empty() ? nullptr : const_cast<BYTE*>(bytes_.data());
    return &blob_;
}

void DItemObject::SetBlob(const CEBLOB* blob) {
    // A vector of its own first: the bytes may be this item's.
    std::vector<BYTE> bytes;
    if (blob && blob->dwCount && blob->lpb) bytes.assign(blob->lpb, blob->lpb + blob->dwCount);
    bytes_.swap(bytes);
}

bool DItemObject::ToProperty(CEPROPVAL* property) const {
    *property = CEPROPVAL{};
    property->propid = propid_;
    switch (TypeFromPropID(propid_)) {
        case CEVT_I2: property->val.iVal = short_; return true;
        case CEVT_UI2: property->val.uiVal = ushort_; return true;
        case CEVT_I4: property->val.lVal = long_; return true;
        case CEVT_UI4: property->val.ulVal = ulong_; return true;
        case CEVT_FILETIME: property->val.filetime = time_; return true;
        case CEVT_BOOL: property->val.boolVal = bool_; return true;
        case CEVT_R8: property->val.dblVal = double_; return true;
        case CEVT_LPWSTR: property->val.lpwstr = const_cast<wchar_t*>(text_.c_str()); return true;
        case CEVT_BLOB: property->val.blob = *GetBlob(); return true;
        default: return false;
    }
}

void DItemObject::FromProperty(const CEPROPVAL& property) {
    if (property.propid != propid_ || (property.wFlags & CEDB_PROPNOTFOUND)) return;
    switch (TypeFromPropID(propid_)) {
        case CEVT_I2: SetShort(property.val.iVal); break;
        case CEVT_UI2: SetUShort(property.val.uiVal); break;
        case CEVT_I4: SetLong(property.val.lVal); break;
        case CEVT_UI4: SetULong(property.val.ulVal); break;
        case CEVT_FILETIME: SetFileTime(property.val.filetime); break;
        case CEVT_BOOL: SetBool(property.val.boolVal); break;
        case CEVT_R8: SetDouble(property.val.dblVal); break;
        case CEVT_LPWSTR: SetStrValue(property.val.lpwstr); break;
        case CEVT_BLOB: SetBlob(&property.val.blob); break;
        default: break;
    }
}

bool DItemObject::SameValue(const DItemObject& other) const {
    switch (TypeFromPropID(propid_)) {
        case CEVT_I2: return short_ == other.short_;
        case CEVT_UI2: return ushort_ == other.ushort_;
        case CEVT_I4: return long_ == other.long_;
        case CEVT_UI4: return ulong_ == other.ulong_;
        case CEVT_FILETIME: return CompareFileTime(&time_, &other.time_) == 0;
        case CEVT_BOOL: return !bool_ == !other.bool_;
        case CEVT_R8: return double_ == other.double_;
        case CEVT_BLOB: return bytes_ == other.bytes_;
        default: return text_ == other.text_;  // also items without a stored value: their text is all they have
    }
}
