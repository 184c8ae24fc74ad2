#include "list/detail_texts.h"

#include <dateformat.h>

#include "text/date_time.h"

namespace {

constexpr wchar_t kDatePicture[] = L"ddd, MMM d yyyy gg";
constexpr int kDateChars = 200;  // of each of the two parts, the closing NUL included

// "Priority: High"; the label alone for a value without a text.
std::wstring Named(const DbJItem& field) {
    const std::wstring text = FieldText(field);
    return text.empty() ? field.GetLabel() : field.GetLabel() + (L": " + text);
}

}  // namespace

std::wstring DetailDate(const FILETIME& start) {
    SYSTEMTIME time = {};
    if (DateTime(start) == DateTime() || !FileTimeToSystemTime(&start, &time)) return L"";
    wchar_t date[kDateChars] = L"";
    wchar_t clock[kDateChars] = L"";
    GetDateFormatW(LOCALE_USER_DEFAULT, 0, &time, kDatePicture, date, kDateChars);
    GetTimeFormatW(LOCALE_USER_DEFAULT, TIME_NOSECONDS, &time, nullptr, clock, kDateChars);
    return std::wstring(date) + L" - " + clock;
}

DetailTexts ReadDetail(TSList<DbJItem>& fields, const CategoryReader& readCategories) {
    DetailTexts texts;
    for (DbJItem& field : fields) {
        ReadFieldItems(field, readCategories);
        switch (field.GetPropID()) {
            case kPropStart: texts.date = DetailDate(field.GetFileTime()); break;
            case kPropSubject: texts.subject = FieldText(field); break;
            case kPropEntryType: texts.type = FieldText(field); break;
            case kPropDuration: texts.duration = FieldText(field); break;
            case kPropCompany: texts.company = FieldText(field); break;
            case kPropContacts: texts.contacts = FieldText(field); break;
            case kPropCategories: texts.categories = FieldText(field); break;
            case kPropPriority:
                texts.priority = field.GetShort();
                texts.priorityText = Named(field);
                break;
            case kPropSensitivity:
                texts.sensitivity = field.GetShort();
                texts.sensitivityText = Named(field);
                break;
            default: break;  // the note is shown by its own control
        }
    }
    return texts;
}
