// Which items of a folder are wanted: [LastName] = "Lee" And [Birthday] > "1/1/1970" Or [Complete] = True
#pragma once

#include "platform/pim/item_record.h"

namespace pim {

// Comparisons of a property with a value, = <> < <= > >=, between them And, which binds closer, and Or. Texts and dates
// stand in quotes, " or '; texts compare without regard to letter case. A property that an item lacks counts as empty,
// 0, false, or DATE_NONE.
class Restriction {
public:
    // Throws Failure{E_INVALIDARG} for what makes no sense.
    Restriction(const ItemKind& kind, std::wstring_view text);

    // The properties to be known of an item.
    std::vector<CEPROPID> Properties() const;
    bool Fits(const std::map<CEPROPID, Value>& item) const;

private:
    enum class Operator { kEqual, kUnequal, kLess, kLessOrEqual, kGreater, kGreaterOrEqual };
    struct Condition {
        CEPROPID property;
        Operator comparison;
        Value value;

        bool Fits(const std::map<CEPROPID, Value>& item) const;
    };
    class Reader;

    std::vector<std::vector<Condition>> anyOfAll_;
};

}  // namespace pim
