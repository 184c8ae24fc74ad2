#include "data/db_categories.h"

#include <aygshell.h>

#include <algorithm>
#include <limits>
#include <optional>
#include <string>

#include "data/category_blob.h"
#include "data/field_ids.h"
#include "data/record_buffer.h"

namespace {

// The categories have their own module name and line in the report of a database that is missing.
constexpr int kLineMissing = 37;
constexpr wchar_t kModule[] = L"DbCategories";

constexpr short kMostUses = std::numeric_limits<short>::max();

// Reads one number of a category. False when there is no such record or it cannot be read; a number that the record
// lacks is none.
bool ReadNumber(CeDbase& database, CEOID category, CEPROPID propid, std::optional<short>* number) {
    number->reset();
    if (!category || !database.SeekToOid(category)) return false;
    CEPROPID ids[] = {propid};
    WORD count = 1;
    RecordBuffer record;
    if (!database.ReadRecordProps(&count, ids, record.Put())) return false;
    if (record.Has(0)) *number = record[0].val.iVal;
    return true;
}

// Every number that is not the category's own counts somebody's uses, those of programs unknown here, too.
bool CountsUses(const CEPROPVAL& property) {
    switch (property.propid >> 16) {
        case kPropCategoryName >> 16:
        case kPropCategoryOrdinal >> 16:
        case kPropCategoryVisible >> 16: return false;
        default: break;
    }
    switch (TypeFromPropID(property.propid)) {
        case CEVT_I2: return property.val.iVal > 0;
        case CEVT_UI2: return property.val.uiVal > 0;
        default: return false;
    }
}

CategoryListItem* FindInList(CategoryList& list, CEOID category) {
    for (CategoryListItem& item : list)
        if (item.id == category) return &item;
    return nullptr;
}

// Sets a flag for as long as the object lives.
class BusySpan {
public:
    explicit BusySpan(DWORD& flag) : flag_(flag) { flag_ = 1; }
    ~BusySpan() { flag_ = 0; }
    BusySpan(const BusySpan&) = delete;
    BusySpan& operator=(const BusySpan&) = delete;

private:
    DWORD& flag_;
};

// The categories once more, for a look in another order; its failures are reported by the object that looks.
class OtherOrder : public DbCategories {
public:
    explicit OtherOrder(CeDbase& owner) : owner_(owner) {}
    int ReportError(int line, const wchar_t* source) override { return owner_.ReportError(line, source); }

private:
    CeDbase& owner_;
};

}  // namespace

DbCategories::~DbCategories() {
    DbCategories::Close();
}

BOOL DbCategories::Open(CEPROPID sort, HWND notify) {
    Close();
    if (Exists(kCategoriesDatabase)) return CeDbase::Open(kCategoriesDatabase, sort, 0, notify);
    ReportError(kLineMissing, kModule);
    return FALSE;
}

CEOID DbCategories::FindByName(const wchar_t* name) {
    CEPROPVAL value{};
    value.propid = kPropCategoryName;
    value.val.lpwstr = const_cast<wchar_t*>(name);
    return SeekValueFirstEqual(&value);
}

// ---- Changing categories ----

BOOL DbCategories::Add(const wchar_t* name) {
    if (const CEOID found = FindByName(name)) return IsHidden(found) ? Unhide(found) : FALSE;
    // Programs that know this format expect the properties in this order.
    constexpr CEPROPID kNumbers[] = {kPropCategoryOrdinal, kPropCategoryVisible, kPropCategoryUsesA,
                                     kPropCategoryUsesB,   kPropCategoryUsesC,   kPropCategoryJournalUses};
    CEPROPVAL values[1 + std::size(kNumbers)] = {};
    values[0].propid = kPropCategoryName;
    values[0].val.lpwstr = const_cast<wchar_t*>(name);
    for (size_t i = 0; i < std::size(kNumbers); ++i)
        values[i + 1].propid = kNumbers[i];
    values[1].val.iVal = LowestFreeOrdinal();
    values[2].val.iVal = 1;
    return WriteRecordProps(0, static_cast<WORD>(std::size(values)), values) != 0;
}

// 0 when the categories cannot be opened by ordinal. There are 65,536 ordinals, one more than a database holds records,
// so that one is always free; the upper half of them is negative.
short DbCategories::LowestFreeOrdinal() {
    OtherOrder byOrdinal(*this);
    if (!byOrdinal.Open(kPropCategoryOrdinal, nullptr)) return 0;
    CEPROPVAL value{};
    value.propid = kPropCategoryOrdinal;
    while (byOrdinal.SeekValueFirstEqual(&value))
        value.val.iVal = static_cast<short>(value.val.uiVal + 1);
    return value.val.iVal;
}

BOOL DbCategories::Rename(CEOID category, const wchar_t* name) {
    if (const CEOID found = FindByName(name); found && IsHidden(found)) {
        const int answer =
            MessageBoxW(GetActiveWindow(),
                        L"A category with the name that you have selected already exists but is hidden.\r\n\r\n"
                        L"Would you like to un-hide it?",
                        L"Category?", MB_YESNO | MB_ICONQUESTION);
        if (answer == IDYES) Unhide(found);
        return TRUE;
    }
    if (!category) return FALSE;  // would make a record of nothing but a name
    SeekToOid(category);
    CEPROPVAL value{};
    value.propid = kPropCategoryName;
    value.val.lpwstr = const_cast<wchar_t*>(name);
    return WriteRecordProps(category, 1, &value) != 0;
}

BOOL DbCategories::Remove(CEOID category) {
    bool inUse;
    if (!ReadUse(category, &inUse)) return FALSE;  // what cannot be read may be in use
    return inUse ? Hide(category) : DeleteRecord(category);
}

BOOL DbCategories::IsInUse(CEOID category) {
    bool inUse;
    return ReadUse(category, &inUse) && inUse;
}

// False when the record is there and cannot be read. One that is not there is not in use.
bool DbCategories::ReadUse(CEOID category, bool* inUse) {
    const BusySpan busy(busy_);
    *inUse = false;
    if (!SeekToOid(category)) return true;
    WORD count = 0;
    RecordBuffer record;
    if (!ReadRecordProps(&count, nullptr, record.Put())) return false;
    const CEPROPVAL* properties = &record[0];
    *inUse = std::any_of(properties, properties + count, CountsUses);
    return true;
}

BOOL DbCategories::IsHidden(CEOID category) {
    std::optional<short> visible;
    return ReadNumber(*this, category, kPropCategoryVisible, &visible) && visible.value_or(0) == 0;
}

int DbCategories::CountVisible() {
    int visible = 0;
    for (CEOID category = SeekFirst(); category; category = SeekNext()) {
        CEPROPID ids[] = {kPropCategoryName, kPropCategoryVisible};
        WORD count = static_cast<WORD>(std::size(ids));
        RecordBuffer record;
        if (ReadRecordProps(&count, ids, record.Put()) && record.Has(1) && record[1].val.iVal != 0) ++visible;
    }
    return visible;
}

BOOL DbCategories::WriteNumber(CEOID category, CEPROPID propid, short value) {
    if (!category) return FALSE;  // would make a record of nothing but this number
    CEPROPVAL property{};
    property.propid = propid;
    property.val.iVal = value;
    return WriteRecordProps(category, 1, &property) != 0;
}

// ---- The journal's count of uses ----

BOOL DbCategories::ChangeUses(CEOID category, int change) {
    std::optional<short> uses;
    if (!ReadNumber(*this, category, kPropCategoryJournalUses, &uses)) return FALSE;
    const int sum = std::clamp(std::max<int>(uses.value_or(0), 0) + change, 0, int{kMostUses});
    return WriteNumber(category, kPropCategoryJournalUses, static_cast<short>(sum));
}

int DbCategories::ResetUses() {
    int changed = 0;
    for (CEOID category = SeekFirst(); category; category = SeekNext()) {
        std::optional<short> uses;
        if (ReadNumber(*this, category, kPropCategoryJournalUses, &uses) && uses &&
            WriteNumber(category, kPropCategoryJournalUses, 0)) {
            ++changed;
        }
    }
    return changed;
}

// ---- Lists of categories ----

int DbCategories::ParseNames(const wchar_t* text, CategoryList* list, DWORD flags) {
    const std::wstring names(text);
    for (size_t at = 0; at < names.size();) {
        const size_t end = std::min(names.find(L',', at), names.size());
        const size_t begin = names.find_first_not_of(L' ', at);
        at = end + 1;
        if (begin >= end) continue;  // nothing but blanks
        const std::wstring name = names.substr(begin, end - begin);
        CEOID category = FindByName(name.c_str());
        if (!category && Add(name.c_str())) category = FindByName(name.c_str());
        if (!category) continue;
        if (CategoryListItem* held = FindInList(*list, category)) {
            held->flags &= ~kCategoryNotNamed;
        } else {
            list->Append({category, flags});
        }
    }
    return list->GetCount();
}

int DbCategories::ListFromIds(const CEBLOB& ids, CategoryList* list, DWORD flags) {
    if (ids.dwCount < sizeof(CEOID)) return 0;
    for (const CEOID category : ReadCategoryBlob(ids))
        list->Append({category, flags});
    return list->GetCount();
}

int DbCategories::IdsFromList(const CategoryList& list, CEBLOB* ids) {
    *ids = {};
    if (list.IsEmpty()) return 0;
    const DWORD size = static_cast<DWORD>(list.GetCount()) * sizeof(CEOID);
    auto* at = static_cast<CEOID*>(LocalAlloc(LPTR, size));
    if (!at) {
        SHShowOutOfMemory(GetActiveWindow(), 0);
        return 0;
    }
    *ids = {size, reinterpret_cast<BYTE*>(at)};
    for (const CategoryListItem& item : list)
        *at++ = item.id;
    return list.GetCount();
}
