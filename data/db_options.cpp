#include "data/db_options.h"

#include "data/field_ids.h"

DbOptions::~DbOptions() = default;

int DbOptions::Open(HWND) {
    return 1;
}

unsigned long DbOptions::Read(unsigned long propid, TSList<DbOptItem>* choices) {
    if (propid != kPropConfirmDeletes) return 0;
    choices->Append(DbOptItem(propid, 0, L"Yes"));
    choices->Append(DbOptItem(propid, 1, L"No"));
    return propid;
}
