// What an export writes for the value of a field.
#pragma once

#include <windbase.h>

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "data/dbj_item.h"
#include "text/date_time.h"

// Reads the plain text of an entry's body out of its bytes, which are never none, into `text`.
using BodyReader = std::function<void(const CEBLOB& body, std::wstring& text)>;
// A category's name by its record; "" when there is no such category.
using CategoryNames = std::function<std::wstring(CEOID category)>;

// Texts that many entries share (names of categories, dates, times of day) are made once in the object's life.
class FieldTexts {
public:
    // Without a `readBody` bodies are empty.
    FieldTexts(BodyReader readBody, CategoryNames nameOf);

    // The text of the value that a field just read holds; good until the next call. Never the text that a form shows
    // in place of an empty value.
    //
    // The start is as its control type says: a date, a time of day, both ("5/7/2001 9:15 AM", the form's own text), or
    // the item's text.
    std::wstring_view TextOf(const DbJItem& field);

private:
    const std::wstring& DateOf(const DateTime& time);
    void JoinDateAndTime(const DateTime& time);
    const std::wstring& TimeOfDay(const DateTime& time);
    void JoinCategoryNames(const CEBLOB& blob);
    const std::wstring& NameOf(CEOID category);

    BodyReader readBody_;
    CategoryNames nameOf_;
    std::unordered_map<CEOID, std::wstring> names_;
    std::unordered_map<int, std::wstring> times_;       // by the minute of the day
    std::unordered_map<uint64_t, std::wstring> dates_;  // by the day
    std::wstring text_;
};
