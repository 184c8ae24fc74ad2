#include "export/field_texts.h"

#include <utility>

#include "data/category_blob.h"
#include "data/contact_blob.h"
#include "data/field_ids.h"
#include "data/field_text.h"

FieldTexts::FieldTexts(BodyReader readBody, CategoryNames nameOf)
    : readBody_(std::move(readBody)), nameOf_(std::move(nameOf)) {}

std::wstring_view FieldTexts::TextOf(const DbJItem& field) {
    text_.clear();
    const DateTime time(field.GetFileTime());
    switch (field.GetPropID()) {
        case kPropStart:
            switch (field.GetCtrlType()) {
                case kControlDate: return DateOf(time);
                case kControlTime: return TimeOfDay(time);
                case kControlDateTime: JoinDateAndTime(time); break;
                default: return field.GetStrValue();
            }
            break;
        case kPropCategories: JoinCategoryNames(*field.GetBlob()); break;
        case kPropContacts:
            if (field.GetBlob()->dwCount != 0) {
                TSList<DbAItem> contacts;
                ReadContactBlob(*field.GetBlob(), &contacts);
                text_ = JoinContacts(contacts);
            }
            break;
        case kPropBody:
            if (field.GetBlob()->dwCount != 0 && readBody_) readBody_(*field.GetBlob(), text_);
            break;
        case kPropSubject:
        case kPropCompany: return field.GetStrValue();
        default: text_ = FieldText(field);
    }
    return text_;
}

const std::wstring& FieldTexts::DateOf(const DateTime& time) {
    std::wstring& text = dates_[time.Ticks() / DateTime::kTicksPerDay];
    if (text.empty()) time.ShortDate(text);
    return text;
}

void FieldTexts::JoinDateAndTime(const DateTime& time) {
    const std::wstring& clock = TimeOfDay(time);
    if (clock.empty()) return;
    const std::wstring& date = DateOf(time);
    text_.reserve(date.size() + 1 + clock.size());
    text_.append(date).append(1, L' ').append(clock);
}

const std::wstring& FieldTexts::TimeOfDay(const DateTime& time) {
    const SYSTEMTIME fields = time.ToSystemTime();
    if (fields.wYear == 0) return text_;  // it names no date
    std::wstring& text = times_[fields.wHour * 60 + fields.wMinute];
    if (text.empty()) time.Time(text);
    return text;
}

void FieldTexts::JoinCategoryNames(const CEBLOB& blob) {
    if (blob.dwCount == 0) return;
    for (const CEOID category : ReadCategoryBlob(blob)) {
        const std::wstring& name = NameOf(category);
        if (name.empty()) continue;
        if (!text_.empty()) text_ += L", ";
        text_ += name;
    }
}

const std::wstring& FieldTexts::NameOf(CEOID category) {
    const auto [known, added] = names_.try_emplace(category);
    if (added && nameOf_) known->second = nameOf_(category);
    return known->second;
}
