// A field made ready for its row, and the value of what was entered there; without any window.
#pragma once

#include <string>

#include "data/dbj_item.h"
#include "data/field_text.h"
#include "editor/form_record.h"
#include "text/date_time.h"

// What the fields of an entry need to know when the entry is opened.
struct FieldSources {
    const PimData* pim = nullptr;  // a Pocket Outlook item's values, null for an entry of the list
    DateTime now;                  // the start of an entry that has none
    CategoryReader readCategories;
};

// Makes a field that was read from the journal ready for its row: gives a value that was never set its default, takes
// over the Pocket Outlook item's values, parses categories and contacts, and stores the text that the row shows as the
// field's string value. Left alone are a field that shows its label only, and the body's text, which only the control
// that shows the body can read.
void PrepareField(DbJItem& field, const FieldSources& sources);

// Each of these gives a field the value that was entered, renews its string value and answers whether the value is
// another one now.
bool CommitText(DbJItem& field, const std::wstring& text);
// A coded field; `choice` is a row of its table. A negative one (nothing chosen) changes nothing.
bool CommitChoice(DbJItem& field, int choice);
bool CommitTime(DbJItem& field, const DateTime& time);
// A duration as people type it. A text without any number changes nothing, nor does the one that the row shows.
bool CommitSpan(DbJItem& field, std::wstring text);
