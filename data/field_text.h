// The text of a field's value: one wording for the form, the detail view and the export.
#pragma once

#include <functional>
#include <string>

#include "data/dbj_item.h"
#include "data/orvane.h"
#include "data/value_tables.h"

// Appends the categories that an entry's bytes name (DbCats::ReadBlob). Called only when there are bytes, so that it
// may open the categories first.
using CategoryReader = std::function<void(const CEBLOB&, TSList<DbCItem>*)>;

// Parses the bytes of a categories or contacts field into the field's categories or contacts, which it replaces; does
// nothing for other fields. Damaged bytes are read as far as they are sound.
ORVANE_API void ReadFieldItems(DbJItem& field, const CategoryReader& readCategories);

// The text of the value that the field holds now: its table's text for a coded field ("" for a value that is no row),
// the names for categories and contacts (see ReadFieldItems), date and time for the start (a date alone with a date
// picker), the duration's text; for a text field, and for the body, its string value.
ORVANE_API std::wstring FieldText(const DbJItem& field);

// The texts of a coded field's table or of the duration presets; empty for other fields.
ORVANE_API ValueTable FieldChoices(CEPROPID propid);
