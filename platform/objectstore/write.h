// Writing and deleting records.
#pragma once

#include "platform/objectstore/store.h"

namespace store {

// CeWriteRecordProps and CeDeleteRecord on an open handle; they throw their errors.
CEOID WriteProperties(Store& store, OpenDatabase& open, CEOID record, const CEPROPVAL* values, size_t count);
void DeleteRecord(Store& store, OpenDatabase& open, CEOID record);

}  // namespace store
