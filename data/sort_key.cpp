#include "data/sort_key.h"

#include "data/field_ids.h"

SORTORDERSPEC SortKeyForField(unsigned fieldId) {
    switch (fieldId) {
        case kFieldSubject: return {kPropSubject, CEDB_SORT_CASEINSENSITIVE};
        case kFieldCompany: return {kPropCompany, CEDB_SORT_CASEINSENSITIVE};
        case kFieldCategories: return {kPropCategories, 0};
        case kFieldContacts: return {kPropContacts, 0};
        case kFieldEntryType: return {kPropEntryType, 0};
        case kFieldPriority: return {kPropPriority, 0};
        case kFieldSensitivity: return {kPropSensitivity, 0};
        case kFieldDuration: return {kPropDuration, 0};
        default: return {kPropStart, 0};
    }
}
