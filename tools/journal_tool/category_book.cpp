#include "tools/journal_tool/category_book.h"

#include <algorithm>
#include <limits>
#include <set>

#include "data/record_buffer.h"

CEOID CategoryBook::FindOrAdd(const std::wstring& name) {
    const auto known = known_.find(name);
    if (known != known_.end()) return known->second;
    CEOID category = database_.FindByName(name.c_str());
    if (!category)
        category = Add(name);
    else if (Read(category, kPropCategoryVisible, 1) == 0 && !Write(category, kPropCategoryVisible, 1))
        return 0;
    if (category) known_.emplace(name, category);
    return category;
}

CEOID CategoryBook::Add(const std::wstring& name) {
    constexpr CEPROPID kNumbers[] = {kPropCategoryOrdinal, kPropCategoryVisible, kPropCategoryUsesA,
                                     kPropCategoryUsesB,   kPropCategoryUsesC,   kPropCategoryJournalUses};
    CEPROPVAL values[1 + std::size(kNumbers)] = {};
    values[0].propid = kPropCategoryName;
    values[0].val.lpwstr = const_cast<wchar_t*>(name.c_str());
    for (size_t i = 0; i < std::size(kNumbers); ++i)
        values[i + 1].propid = kNumbers[i];
    values[1].val.iVal = FreeOrdinal();
    values[2].val.iVal = 1;
    return database_.WriteRecordProps(0, static_cast<WORD>(std::size(values)), values);
}

// The lowest ordinal that no category has.
short CategoryBook::FreeOrdinal() {
    std::set<short> taken;
    for (CEOID category = database_.SeekFirst(); category; category = database_.SeekNext())
        taken.insert(Read(category, kPropCategoryOrdinal, -1));
    short ordinal = 0;
    while (taken.count(ordinal))
        ++ordinal;
    return ordinal;
}

short CategoryBook::Read(CEOID category, CEPROPID propid, short missing) {
    if (!database_.SeekToOid(category)) return missing;
    CEPROPID ids[] = {propid};
    WORD count = 1;
    RecordBuffer record;
    return database_.ReadRecordProps(&count, ids, record.Put()) && record.Has(0) ? record[0].val.iVal : missing;
}

bool CategoryBook::Write(CEOID category, CEPROPID propid, short value) {
    CEPROPVAL property{};
    property.propid = propid;
    property.val.iVal = value;
    return database_.WriteRecordProps(category, 1, &property) != 0;
}

bool CategoryBook::WriteUses() {
    bool written = true;
    for (const auto& [category, uses] : uses_) {
        const int sum = Read(category, kPropCategoryJournalUses, 0) + uses;
        const int most = std::numeric_limits<short>::max();
        written &= Write(category, kPropCategoryJournalUses, static_cast<short>(std::min(sum, most)));
    }
    uses_.clear();
    return written;
}

void CategoryBook::Forget() {
    known_.clear();
    uses_.clear();
}
