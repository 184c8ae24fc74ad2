// The database of the journal's entries, one record for each.
#pragma once

#include "data/ce_dbase.h"
#include "data/dbj_item.h"
#include "data/ts_list.h"

class ORVANE_API DbJournal : public CeDbase {
public:
    DbJournal() = default;
    // Closes the database.
    ~DbJournal() override;

    using CeDbase::Open;
    // Opens the journal in the sort order it was last given, making the database, sorted by start, when there is none.
    // Changes made by others are posted to `notify` (may be null). Non-zero on success. An open journal is closed
    // first.
    int Open(HWND notify);

    // Appends the definitions of all fields, unset, in the order of the form's rows and the Sort menu. Needs no open
    // database. Non-zero on success.
    int Initialize(TSList<DbJItem>* fields);

    // Replaces the list's content by the fields of an entry; fields the record lacks are unset. Answers the id asked
    // for, anything else (0) on failure: then the list holds unset fields. Id 0 is a new entry: unset fields, answer 0;
    // it needs no open database.
    unsigned long Read(unsigned long oid, TSList<DbJItem>* fields);

    // The same into a list that Initialize or Read has filled before: only the fields' values change, their flags stay.
    // Several times as fast where many entries are read one after the other, above all in the journal's order.
    unsigned long ReadValues(unsigned long oid, TSList<DbJItem>* fields);

    // Stores the value of every field in the list: in a new record when the id is 0, else in that one. Answers the
    // record, 0 on failure.
    unsigned long Write(unsigned long oid, TSList<DbJItem>* fields);

    // Sets the record's flags (3: written by the editor), which are no field of the entry. Answers the record, 0 on
    // failure.
    unsigned long SetFlags(unsigned long oid, unsigned flags);

private:
    unsigned long ReadCurrent(unsigned long oid, TSList<DbJItem>* fields);
};
