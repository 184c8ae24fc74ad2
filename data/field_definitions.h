// What an entry's fields are: one line for each, in the order of the form's rows and of the Sort menu.
#pragma once

#include <span>

#include "data/dbj_item.h"
#include "data/field_ids.h"

struct FieldDefinition {
    FieldId id;
    CEPROPID propid;
    const wchar_t* label;
    ControlType control;
    WORD flags;
    const wchar_t* defaultText;  // shown by a row while the value is empty; never stored, never exported
};

constexpr FieldDefinition kFieldDefinitions[] = {
    {kFieldSubject, kPropSubject, L"Subject", kControlList, kFieldSortable, L"No Subject"},
    {kFieldEntryType, kPropEntryType, L"Entry Type", kControlList, kFieldSortable, L""},
    {kFieldStart, kPropStart, L"Start", kControlDateTime, kFieldSortable, L""},
    {kFieldDuration, kPropDuration, L"Duration", kControlList, kFieldSortable, L""},
    {kFieldPriority, kPropPriority, L"Priority", kControlList, kFieldSortable, L""},
    {kFieldSensitivity, kPropSensitivity, L"Sensitivity", kControlList, kFieldSortable, L""},
    {kFieldCompany, kPropCompany, L"Company", kControlText, kFieldSortable, L"None"},
    {kFieldContacts, kPropContacts, L"Contacts", kControlLauncher, kFieldSortable, L"None"},
    {kFieldCategories, kPropCategories, L"Categories", kControlLauncher, kFieldSortable, L"None"},
    {kFieldBody, kPropBody, L"Note", kControlLauncher, 0, L"None"},
};
