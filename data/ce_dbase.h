// One open database of the object store, and what the program does with it.
#pragma once

#include <win.h>

#include <storescan.h>
#include <windbase.h>

#include "data/orvane.h"

// Failures that are not expected are shown at once in one message box (ReportError) and then answered as FALSE or 0;
// the object stays usable. Seeks never report. All seeks, finds and reads move one current position that they share.
//
// The destructor leaves the database open: whoever opened it closes it. Buffers that ReadRecordProps hands out are
// freed by the caller with LocalFree, whether or not the read succeeded.
//
// The order of the virtual operations is fixed: programs call them through their slots.
class ORVANE_API CeDbase {
public:
    CeDbase() = default;
    CeDbase(const CeDbase&) = delete;
    CeDbase& operator=(const CeDbase&) = delete;
    virtual ~CeDbase();

    // Makes a database with up to four sort orders and keeps its id; does not open it.
    virtual BOOL Create(const wchar_t* name, DWORD type, WORD sortOrders, SORTORDERSPEC* sortOrder);
    // Opens by name, or by the id that Create left. `sort` is one of the database's sort properties, 0 for any order.
    // Changes made by others are posted to `notify` (may be null). Error 87 is not shown.
    virtual BOOL Open(const wchar_t* name, CEPROPID sort, DWORD flags, HWND notify);
    // FALSE when nothing was open.
    virtual BOOL Close();
    // Deletes a database; 0 closes and deletes this one.
    virtual BOOL DeleteDatabase(CEOID oid);
    // Makes `order` the database's one sort order and goes on with it, at the first record. Only the first order
    // counts, whatever `orders` says. When others have the database open, that is said and the old order stays.
    virtual BOOL SetSortOrder(const SORTORDERSPEC* order, WORD orders);
    // Copies as many sort orders as the database has (at most four) and leaves the rest as it is.
    virtual void GetSortOrders(SORTORDERSPEC* orders);
    // Whether there is a database of that name.
    virtual BOOL Exists(const wchar_t* name);
    // The database's id, 0 when not open.
    virtual CEOID GetOid();
    // The database that holds a record; 0 when the id is no record's.
    virtual CEOID GetRecordParent(CEOID record);
    // Name, sort orders, record count... of the open database.
    virtual BOOL GetInfo(CEOIDINFO* info);
    // Shows "Error: <last error>(<line>)\n<source>" and answers the message box's result. The last error stays.
    virtual int ReportError(int line, const wchar_t* source);

    // Seeks answer the record reached, 0 when there is none.
    virtual CEOID SeekToOid(CEOID record);
    virtual CEOID SeekFromBeginning(DWORD count);
    virtual CEOID SeekFirst();
    virtual CEOID SeekCurrent();
    virtual CEOID SeekNext();
    virtual CEOID SeekPrevious();
    // The value is one of the sort property of the open database.
    virtual CEOID SeekValueFirstEqual(CEPROPVAL* value);
    // Steps on by one from `start` (0: from the current record) and answers that record if its value is equal.
    virtual CEOID SeekValueNextEqual(CEOID start, CEPROPVAL* value);

    // The first record whose date property (the list's first id) falls on the same day as `date`.
    virtual CEOID FindFirstDate(CEPROPID* ids, FILETIME date);
    // The same, after the record `start`; with 0 from the current one on, that one included.
    virtual CEOID FindDate(CEOID start, CEPROPID* ids, FILETIME date);
    // The first record whose string property (the list's first id) contains `text`. An empty string never does.
    virtual CEOID FindFirstString(CEPROPID* ids, const wchar_t* text, BOOL matchCase);
    // The same, after the record `start`; with 0 from the current one on, that one included.
    virtual CEOID FindString(CEOID start, CEPROPID* ids, const wchar_t* text, BOOL matchCase);

    // Deletes a record. The first record is current afterwards, also when nothing was deleted.
    virtual BOOL DeleteRecord(CEOID record);
    // How many records the database holds; 0 when not open.
    virtual WORD GetRecordCount();
    // Reads properties of the current record, those named or (ids null or starting with 0) all. *buffer, null at first,
    // receives one block that starts with *count CEPROPVALs; a property the record lacks carries CEDB_PROPNOTFOUND.
    // Answers the record, 0 on failure; the end of the database (259) and a deleted record (1018) are not shown.
    virtual CEOID ReadRecordProps(WORD* count, CEPROPID* ids, BYTE** buffer);
    // Writes properties of a record, or with 0 a new record. Properties not named stay. Answers the record.
    virtual CEOID WriteRecordProps(CEOID record, WORD count, CEPROPVAL* values);
    // Seeks to a record and answers its position in the open order, from 0; -1 when there is no such record.
    virtual int SeekToOidIndex(CEOID record);
    // Null when not open.
    virtual HANDLE GetHandle();

    // ---- Behind the slots ----

    // Shows every record once to `visit` (see storescan.h), in no particular order; the current record stays. What goes
    // wrong is reported as a read's failure is; FALSE then, and silently when the database is not open.
    BOOL Scan(WORD count, const CEPROPID* ids, CeScanVisitor visit, void* context);

protected:
    // Create, for a database that another process may be making at the same moment: TRUE also when one of that name is
    // there. Then GetOid answers 0 until it is opened.
    BOOL CreateIfMissing(const wchar_t* name, DWORD type, WORD sortOrders, SORTORDERSPEC* sortOrder);

    DWORD busy_ = 0;  // 1 while a derived class does something in several steps

private:
    CEOID Seek(DWORD type, DWORD_PTR value);
    BOOL OpenHandle(const wchar_t* name, CEPROPID sort, DWORD flags, HWND notify);
    void Forget();
    void ReportRead();

    HANDLE handle_ = nullptr;
    CEOID oid_ = 0;
    HWND notify_ = nullptr;
};
