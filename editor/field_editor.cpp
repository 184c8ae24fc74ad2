#include "editor/field_editor.h"

#include "data/field_ids.h"
#include "editor/choice_field_editor.h"
#include "editor/combo_field_editor.h"
#include "editor/date_field_editor.h"
#include "editor/launcher_field_editor.h"
#include "editor/text_field_editor.h"

namespace {

// Drop-down lists differ by what they offer.
std::unique_ptr<FieldEditor> MakeListEditor(DbJItem& field, const FieldEditorSite& site) {
    switch (field.GetPropID()) {
        case kPropSubject: return std::make_unique<SubjectFieldEditor>(field, site);
        case kPropDuration: return std::make_unique<DurationFieldEditor>(field, site);
        case kPropPriority:
        case kPropSensitivity:
        case kPropEntryType: return std::make_unique<ChoiceFieldEditor>(field, site);
        default: return nullptr;
    }
}

}  // namespace

std::unique_ptr<FieldEditor> MakeFieldEditor(DbJItem& field, const FieldEditorSite& site) {
    if (field.GetItemType() == kItemLabelOnly) return nullptr;
    switch (field.GetCtrlType()) {
        case kControlText: return std::make_unique<TextFieldEditor>(field, site);
        case kControlLauncher: return std::make_unique<LauncherFieldEditor>(field, site);
        case kControlDate:
        case kControlTime:
        case kControlDateTime: return std::make_unique<DateFieldEditor>(field, site);
        case kControlSpan: return std::make_unique<SpanFieldEditor>(field, site);
        case kControlList: return MakeListEditor(field, site);
        default: return nullptr;
    }
}
