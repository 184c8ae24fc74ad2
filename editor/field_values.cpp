#include "editor/field_values.h"

#include "data/contact_blob.h"
#include "data/db_cats.h"
#include "data/field_ids.h"
#include "text/duration_text.h"

namespace {

void SetShortDefault(DbJItem& field, short value) {
    if (field.GetShort() == kUnset) field.SetShort(value);
}

void SetStart(DbJItem& field, const FieldSources& sources) {
    DateTime start = sources.pim ? sources.pim->start : DateTime(field.GetFileTime());
    if (start == DateTime()) start = sources.now;
    field.SetFileTime(start.ToFileTime());
}

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

void ReadCategories(DbJItem& field, const FieldSources& sources) {
    field.Categories().RemoveAll();
    if (field.GetBlob()->dwCount && sources.readCategories)
        sources.readCategories(*field.GetBlob(), &field.Categories());
}

void ReadContacts(DbJItem& field) {
    field.Contacts().RemoveAll();
    ReadContactBlob(*field.GetBlob(), &field.Contacts());
}

void RenewText(DbJItem& field) {
    field.SetStrValue(FieldText(field).c_str());
}

}  // namespace

ValueTable FieldChoices(CEPROPID propid) {
    switch (propid) {
        case kPropPriority: return Priorities();
        case kPropSensitivity: return Sensitivities();
        case kPropEntryType: return EntryTypes();
        case kPropDuration: return DurationPresets();
        default: return {};
    }
}

void PrepareField(DbJItem& field, const FieldSources& sources) {
    if (field.GetItemType() == kItemLabelOnly) return;
    switch (field.GetPropID()) {
        case kPropPriority: SetShortDefault(field, kDefaultPriority); break;
        case kPropSensitivity: SetShortDefault(field, kDefaultSensitivity); break;
        case kPropEntryType: SetShortDefault(field, kDefaultEntryType); break;
        case kPropStart: SetStart(field, sources); break;
        case kPropSubject:
            if (sources.pim) field.SetStrValue(sources.pim->subject.c_str());
            break;
        case kPropCompany:
            if (sources.pim) field.SetStrValue(sources.pim->company.c_str());
            break;
        case kPropCategories: ReadCategories(field, sources); break;
        case kPropContacts: ReadContacts(field); break;
        default: break;
    }
    RenewText(field);
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

bool CommitText(DbJItem& field, const std::wstring& text) {
    if (text == field.GetStrValue()) return false;
    field.SetStrValue(text.c_str());
    return true;
}

bool CommitChoice(DbJItem& field, int choice) {
    if (choice < 0 || choice == field.GetShort()) return false;
    field.SetShort(static_cast<short>(choice));
    RenewText(field);
    return true;
}

bool CommitTime(DbJItem& field, const DateTime& time) {
    if (time == DateTime(field.GetFileTime())) return false;
    field.SetFileTime(time.ToFileTime());
    RenewText(field);
    return true;
}

bool CommitSpan(DbJItem& field, std::wstring text) {
    DateTime span;
    if (!ReadDurationField(text, span)) return false;
    return CommitTime(field, span);
}
