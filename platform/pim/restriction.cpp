#include "platform/pim/restriction.h"

#include <algorithm>
#include <cwctype>

#include "platform/pim/com_object.h"

namespace pim {
namespace {

Value EmptyValue(CEPROPID property) {
    switch (TypeFromPropID(property)) {
        case CEVT_R8: return DATE_NONE;
        case CEVT_I4: return 0L;
        case CEVT_BOOL: return false;
        default: return std::wstring();
    }
}

Value ValueFrom(CEPROPID property, const std::wstring& text) {
    BSTR source = const_cast<wchar_t*>(text.c_str());  // these only read a NUL-terminated text
    DATE date = 0;
    LONG number = 0;
    VARIANT_BOOL truth = VARIANT_FALSE;
    switch (TypeFromPropID(property)) {
        case CEVT_R8:
            if (FAILED(VarDateFromStr(source, LOCALE_USER_DEFAULT, 0, &date))) throw Failure{E_INVALIDARG};
            return date;
        case CEVT_I4:
            if (FAILED(VarI4FromStr(source, LOCALE_INVARIANT, 0, &number))) throw Failure{E_INVALIDARG};
            return static_cast<long>(number);
        case CEVT_BOOL:
            if (FAILED(VarBoolFromStr(source, LOCALE_INVARIANT, 0, &truth))) throw Failure{E_INVALIDARG};
            return truth != VARIANT_FALSE;
        default: return text;
    }
}

// Less, equal or greater than 0; both are of one type.
int Compare(const Value& a, const Value& b) {
    if (const auto* text = std::get_if<std::wstring>(&a)) {
        const auto& other = std::get<std::wstring>(b);
        return CompareStringW(LOCALE_USER_DEFAULT, NORM_IGNORECASE, text->c_str(), static_cast<int>(text->size()),
                              other.c_str(), static_cast<int>(other.size())) -
               CSTR_EQUAL;
    }
    return a < b ? -1 : b < a;
}

}  // namespace

// Takes the text apart, piece by piece.
class Restriction::Reader {
public:
    Reader(const ItemKind& kind, std::wstring_view text) : kind_(kind), left_(text) {}

    Condition ReadCondition() {
        if (!Take(L"[")) throw Failure{E_INVALIDARG};
        const CEPROPID property = kind_.FindProperty(ReadUntil(L']'));
        if (!property) throw Failure{E_INVALIDARG};
        const Operator comparison = ReadOperator();
        return {property, comparison, ValueFrom(property, ReadValue())};
    }
    // Takes that word or sign when it comes next.
    bool Take(std::wstring_view word) {
        SkipBlanks();
        if (left_.size() < word.size()) return false;
        if (CompareStringOrdinal(left_.data(), static_cast<int>(word.size()), word.data(),
                                 static_cast<int>(word.size()), TRUE) != CSTR_EQUAL) {
            return false;
        }
        left_.remove_prefix(word.size());
        return true;
    }
    bool AtEnd() {
        SkipBlanks();
        return left_.empty();
    }

private:
    void SkipBlanks() {
        while (!left_.empty() && iswspace(left_[0]))
            left_.remove_prefix(1);
    }
    std::wstring ReadUntil(wchar_t end) {
        const size_t length = left_.find(end);
        if (length == left_.npos) throw Failure{E_INVALIDARG};
        const std::wstring text(left_.substr(0, length));
        left_.remove_prefix(length + 1);
        return text;
    }
    Operator ReadOperator() {
        if (Take(L"<>")) return Operator::kUnequal;
        if (Take(L"<=")) return Operator::kLessOrEqual;
        if (Take(L">=")) return Operator::kGreaterOrEqual;
        if (Take(L"<")) return Operator::kLess;
        if (Take(L">")) return Operator::kGreater;
        if (Take(L"=")) return Operator::kEqual;
        throw Failure{E_INVALIDARG};
    }
    std::wstring ReadValue() {
        if (Take(L"\"")) return ReadUntil(L'"');
        if (Take(L"'")) return ReadUntil(L'\'');
        const auto end = std::find_if(left_.begin(), left_.end(), [](wchar_t c) { return iswspace(c) != 0; });
        const std::wstring word(left_.begin(), end);
        if (word.empty()) throw Failure{E_INVALIDARG};
        left_.remove_prefix(word.size());
        return word;
    }

    const ItemKind& kind_;
    std::wstring_view left_;
};

Restriction::Restriction(const ItemKind& kind, std::wstring_view text) {
    Reader reader(kind, text);
    anyOfAll_.emplace_back();
    for (;;) {
        anyOfAll_.back().push_back(reader.ReadCondition());
        if (reader.AtEnd()) return;
        if (reader.Take(L"or")) {
            anyOfAll_.emplace_back();
        } else if (!reader.Take(L"and")) {
            throw Failure{E_INVALIDARG};
        }
    }
}

std::vector<CEPROPID> Restriction::Properties() const {
    std::vector<CEPROPID> properties;
    for (const auto& conditions : anyOfAll_)
        for (const Condition& condition : conditions)
            properties.push_back(condition.property);
    return properties;
}

bool Restriction::Fits(const std::map<CEPROPID, Value>& item) const {
    return std::any_of(anyOfAll_.begin(), anyOfAll_.end(), [&](const std::vector<Condition>& all) {
        return std::all_of(all.begin(), all.end(), [&](const Condition& condition) { return condition.Fits(item); });
    });
}

bool Restriction::Condition::Fits(const std::map<CEPROPID, Value>& item) const {
    const auto found = item.find(property);
    const int order = Compare(found == item.end() ? EmptyValue(property) : found->second, value);
    switch (comparison) {
        case Operator::kEqual: return order == 0;
        case Operator::kUnequal: return order != 0;
        case Operator::kLess: return order < 0;
        case Operator::kLessOrEqual: return order <= 0;
        case Operator::kGreater: return order > 0;
        default: return order >= 0;
    }
}

}  // namespace pim
