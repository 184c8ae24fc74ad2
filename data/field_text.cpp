#include "data/field_text.h"

#include "data/contact_blob.h"
#include "data/db_cats.h"
#include "data/field_ids.h"
#include "text/date_time.h"
#include "text/duration_text.h"

namespace {

std::wstring TimeText(const DbJItem& field) {
    const DateTime time(field.GetFileTime());
    std::wstring text;
    if (field.GetCtrlType() == kControlDate) {
        time.ShortDate(text);
    } else {
        time.DateAndTime(text);
    }
    return text;
}

std::wstring SpanText(const DbJItem& field) {
    std::wstring text;
    FormatDuration(DateTime(field.GetFileTime()), text);
    return text;
}

}  // namespace

void ReadFieldItems(DbJItem& field, const CategoryReader& readCategories) {
    switch (field.GetPropID()) {
        case kPropCategories:
            field.Categories().RemoveAll();
            if (field.GetBlob()->dwCount && readCategories) readCategories(*field.GetBlob(), &field.Categories());
            break;
        case kPropContacts:
            field.Contacts().RemoveAll();
            ReadContactBlob(*field.GetBlob(), &field.Contacts());
            break;
        default: break;
    }
}

std::wstring FieldText(const DbJItem& field) {
    switch (field.GetPropID()) {
        case kPropPriority:
        case kPropSensitivity:
        case kPropEntryType: return ValueText(FieldChoices(field.GetPropID()), field.GetShort());
        case kPropStart: return TimeText(field);
        case kPropDuration: return SpanText(field);
        case kPropCategories: return JoinCategories(field.Categories());
        case kPropContacts: return JoinContacts(field.Contacts());
        default: return field.GetStrValue();
    }
}

ValueTable FieldChoices(CEPROPID propid) {
    switch (propid) {
        case kPropPriority: return Priorities();
        case kPropSensitivity: return Sensitivities();
        case kPropEntryType: return EntryTypes();
        case kPropDuration: return DurationPresets();
        default: return {};
    }
}
