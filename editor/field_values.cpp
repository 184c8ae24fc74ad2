#include "editor/field_values.h"

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

void RenewText(DbJItem& field) {
    field.SetStrValue(FieldText(field).c_str());
}

}  // namespace

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
        default: ReadFieldItems(field, sources.readCategories); break;
    }
    RenewText(field);
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
    if (text == field.GetStrValue()) return false;  // the value may be longer than its text can tell
    DateTime span;
    if (!ReadDurationField(text, span)) return false;
    return CommitTime(field, span);
}
