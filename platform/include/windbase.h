// The object store: databases of records with typed properties, under the names a Pocket PC gives them.
//
// Everything lives in one file: where the environment variable CE_OBJECT_STORE says, else
// %LOCALAPPDATA%\Pocket PC\ObjectStore.db. It is opened, and made when there is none, by the first call that needs it.
// Each call is committed on its own: a write that returned survives the end of the process and a power cut, a write
// that failed left nothing. Threads may call at the same time; they wait for each other. Several processes may use one
// store, and each sees what the others have written.
//
// Errors. A function that fails says so by its result and sets the thread's last error:
//    2 ERROR_FILE_NOT_FOUND      no database of that name
//    6 ERROR_INVALID_HANDLE      CeOidGetInfo: no such object; CloseHandle: not, or no longer, a handle
//    8 ERROR_NOT_ENOUGH_MEMORY   out of memory, or too many databases open at once
//   32 ERROR_SHARING_VIOLATION   CeDeleteDatabase: somebody has the database open
//   52 ERROR_DUP_NAME            a database of that name exists
//   87 ERROR_INVALID_PARAMETER   a bad argument; a sort property the database isn't sorted by; CeSetDatabaseInfo with
//   new
//                                sort orders while somebody has the database open
//  112 ERROR_DISK_FULL           no room on the disk, the database holds its 65,535 records, or the ids are used up
//  122 ERROR_INSUFFICIENT_BUFFER CeReadRecordProps with a buffer of the caller's that is too small
//  259 ERROR_NO_MORE_ITEMS       no such record (seek), read at the end, end of an enumeration
// 1018 ERROR_KEY_DELETED         the current record was deleted; a database was deleted during an enumeration
// and for the store's file itself:
//    5 ERROR_ACCESS_DENIED       it (or its folder) may not be opened or made
//  206 ERROR_FILENAME_EXCED_RANGE  CE_OBJECT_STORE names a path that is too long
//   19 ERROR_WRITE_PROTECT       it is read-only: reading works, every write answers this
//   33 ERROR_LOCK_VIOLATION      another process has been writing for more than five seconds, or has the store for
//   itself,
//                                because the disk was full when it opened it
// 1117 ERROR_IO_DEVICE           reading or writing it failed
// 1392 ERROR_FILE_CORRUPT        it is damaged, or no store at all; it is left as it is
// 1306 ERROR_REVISION_MISMATCH   a newer version of this program made it; it is left as it is
#pragma once

#include <cehost.h>
#include <win.h>

// --- Types ---------------------------------------------------------------------------------------------------------

typedef DWORD CEOID;     // an object of the store; never 0, unique in the whole store, never used again
typedef DWORD CEPROPID;  // (number << 16) | CEVT_ type
typedef CEOID* PCEOID;

typedef struct _CEBLOB {
    DWORD dwCount;  // bytes
    LPBYTE lpb;
} CEBLOB, *PCEBLOB;

typedef union _CEVALUNION {
    short iVal;
    USHORT uiVal;
    long lVal;
    ULONG ulVal;
    FILETIME filetime;
    LPWSTR lpwstr;
    CEBLOB blob;
    BOOL boolVal;
    double dblVal;
} CEVALUNION, *PCEVALUNION;

typedef struct _CEPROPVAL {
    CEPROPID propid;
    WORD wLenData;  // the store's own; may hold anything on entry
    WORD wFlags;    // CEDB_PROPNOTFOUND after a read, CEDB_PROPDELETE for a write
    CEVALUNION val;
} CEPROPVAL, *PCEPROPVAL;

#define CEDB_MAXDBASENAMELEN 32  // characters, with the NUL; longer names are cut
#define CEDB_MAXSORTORDER 4

typedef struct _SORTORDERSPEC {
    CEPROPID propid;
    DWORD dwFlags;  // CEDB_SORT_*
} SORTORDERSPEC, *PSORTORDERSPEC;

typedef struct _CEDBASEINFO {
    DWORD dwFlags;  // CEDB_VALID*: which members count
    WCHAR szDbaseName[CEDB_MAXDBASENAMELEN];
    DWORD dwDbaseType;  // the application's own tag
    WORD wNumRecords;
    WORD wNumSortOrder;
    DWORD dwSize;  // not kept: 0
    FILETIME ftLastModified;
    SORTORDERSPEC rgSortSpecs[CEDB_MAXSORTORDER];
} CEDBASEINFO, *PCEDBASEINFO;

typedef struct _CEFILEINFO {
    DWORD dwAttributes;
    CEOID oidParent;
    WCHAR szFileName[MAX_PATH];
    FILETIME ftLastChanged;
    DWORD dwLength;
} CEFILEINFO;

typedef struct _CEDIRINFO {
    DWORD dwAttributes;
    CEOID oidParent;
    WCHAR szDirName[MAX_PATH];
} CEDIRINFO;

typedef struct _CERECORDINFO {
    CEOID oidParent;  // the record's database
} CERECORDINFO;

typedef struct _CEOIDINFO {
    WORD wObjType;  // OBJTYPE_*; says which member holds
    WORD wPad;
    union {
        CEFILEINFO infFile;
        CEDIRINFO infDirectory;
        CEDBASEINFO infDatabase;
        CERECORDINFO infRecord;
    };
} CEOIDINFO, *PCEOIDINFO;

// --- Values (stored in records, and seen by other programs: fixed) ---------------------------------------------------

#define CEVT_I2 2
#define CEVT_I4 3
#define CEVT_R8 5
#define CEVT_BOOL 11
#define CEVT_UI2 18
#define CEVT_UI4 19
#define CEVT_LPWSTR 31
#define CEVT_FILETIME 64
#define CEVT_BLOB 65
#define TypeFromPropID(propid) LOWORD(propid)

#define CEDB_SORT_DESCENDING 0x00000001
#define CEDB_SORT_CASEINSENSITIVE 0x00000002  // strings only
#define CEDB_SORT_UNKNOWNFIRST 0x00000004     // records without the property come first, not last
#define CEDB_SORT_GENERICORDER 0x00000008     // accepted, without effect

#define CEDB_VALIDNAME 0x0001
#define CEDB_VALIDTYPE 0x0002
#define CEDB_VALIDSORTSPEC 0x0004
#define CEDB_VALIDMODTIME 0x0008
#define CEDB_VALIDDBFLAGS 0x0010
#define CEDB_VALIDCREATE (CEDB_VALIDNAME | CEDB_VALIDTYPE | CEDB_VALIDSORTSPEC | CEDB_VALIDDBFLAGS)

#define CEDB_AUTOINCREMENT 0x00000001

#define CEDB_SEEK_CEOID 0x00000001
#define CEDB_SEEK_BEGINNING 0x00000002
#define CEDB_SEEK_END 0x00000004
#define CEDB_SEEK_CURRENT 0x00000008
#define CEDB_SEEK_VALUESMALLER 0x00000010
#define CEDB_SEEK_VALUEFIRSTEQUAL 0x00000020
#define CEDB_SEEK_VALUEGREATER 0x00000040
#define CEDB_SEEK_VALUENEXTEQUAL 0x00000080

#define CEDB_PROPNOTFOUND 0x0100
#define CEDB_PROPDELETE 0x0200

#define CEDB_ALLOWREALLOC 0x00000001

#define OBJTYPE_INVALID 0
#define OBJTYPE_FILE 1
#define OBJTYPE_DIRECTORY 2
#define OBJTYPE_DATABASE 3
#define OBJTYPE_RECORD 4

#define CEDB_MAXNUMRECORDS 0xFFFF
#define CEDB_MAXPROPDATASIZE 0x04000000  // bytes of one string or blob; far more than a device's, for inked notes

// Posted to the window given at CeOpenDatabase when another thread or process changed that database.
// wParam: the object; lParam: its parent, which is the database's id for a record.
// Careful: the numbers are also those of DM_SETDEFID and DM_REPOSITION; a dialog must answer them itself.
#define DB_CEOID_CREATED (WM_USER + 1)
#define DB_CEOID_DATABASE_DELETED (WM_USER + 2)
#define DB_CEOID_RECORD_DELETED (WM_USER + 3)
#define DB_CEOID_FILE_DELETED (WM_USER + 4)
#define DB_CEOID_DIRECTORY_DELETED (WM_USER + 5)
#define DB_CEOID_CHANGED (WM_USER + 6)

// --- Databases -----------------------------------------------------------------------------------------------------

// Makes an empty database and answers its id (not a handle), 0 on failure: 52, 87, 112.
// The name is compared without regard to case; a leading backslash is part of it. type is the application's own tag.
// Up to four sort orders, each on another property; specs may be null when there are none. Trailing ones of property 0,
// which programs count and leave empty, are taken for none.
CEHOST_API CEOID CeCreateDatabase(LPCWSTR name, DWORD type, WORD sortOrders, const SORTORDERSPEC* specs);

// Opens a database and answers a handle for CloseHandle, INVALID_HANDLE_VALUE on failure: 2, 8, 87.
// *oid 0: by name, and *oid receives the id. Else by *oid (87 when there is none); name is not looked at, may be null.
// sortProperty is one of the database's sort properties, or 0 for the order in which the records were made.
// flags: 0 or CEDB_AUTOINCREMENT (each read moves on by one record). notify may be null.
// The handle's position is on the first record.
CEHOST_API HANDLE CeOpenDatabase(PCEOID oid, LPCWSTR name, CEPROPID sortProperty, DWORD flags, HWND notify);

// Deletes a database with all its records. FALSE: 32 while anybody has it open, 87 when there is none of that id.
CEHOST_API BOOL CeDeleteDatabase(CEOID database);

// Changes the members of a database that info->dwFlags names: name (52 when taken), type, sort orders, time of last
// change; the others are not looked at. New sort orders take the time of sorting all records, and are refused with 87
// while any handle is open on the database, in this process or another.
CEHOST_API BOOL CeSetDatabaseInfo(CEOID database, const CEDBASEINFO* info);

// Tells what an object is: OBJTYPE_DATABASE with all members of infDatabase, OBJTYPE_RECORD with its database.
// FALSE with 6 for an id that is none.
CEHOST_API BOOL CeOidGetInfo(CEOID oid, CEOIDINFO* info);

// Begins an enumeration of the databases of a type (0: of all); the handle goes to CloseHandle.
CEHOST_API HANDLE CeFindFirstDatabase(DWORD type);

// The next database's id; 0 at the end (259), for a bad handle (87), and when a database was deleted meanwhile (1018).
CEHOST_API CEOID CeFindNextDatabase(HANDLE enumeration);

// Closes a database or an enumeration; any other handle goes on to the system.
CEHOST_API BOOL CeCloseHandle(HANDLE handle);

// Programs for the device close all of these with CloseHandle.
#define CloseHandle CeCloseHandle

// --- Records -------------------------------------------------------------------------------------------------------

// Moves the handle's position and answers the id of the record found, 0 when there is none (259; the position is then
// behind the last record) or the call was wrong (87; the position stays). seek is one of
//   CEOID            value is a record's id
//   BEGINNING, END   value is the number of records from the first, or back from the last
//   CURRENT          value is a signed number of records from here; 0 answers the current record
//   VALUEFIRSTEQUAL  value points to a CEPROPVAL of the handle's sort property: the first record equal to it
//   VALUENEXTEQUAL   one record on from here, if that is equal to the CEPROPVAL
//   VALUESMALLER     the record with the greatest value that is smaller
//   VALUEGREATER     the record with the smallest value that is greater or equal
// index may be null; it receives the found record's place in the handle's sort order, from 0, and is left alone
// otherwise. When the index isn't needed, null is quicker.
// Records without the sort property stand behind (or, as the order says, before) all others; equal ones in the order
// of their ids. Strings compare as the store's locale sorts, blobs byte by byte, times without sign.
// After the current record was deleted, CURRENT +1 is the record that followed it and -1 the one before it.
CEHOST_API CEOID CeSeekDatabase(HANDLE database, DWORD seek, DWORD_PTR value, LPDWORD index);

// Reads properties of the current record and answers its id, 0 on failure: 87, 122, 259, 1018.
// ids lists *count properties; null for all that the record has, by ascending id, with their number put into *count.
// A property that the record lacks is no error: it comes with CEDB_PROPNOTFOUND and a value of zeros.
// *buffer receives an array of CEPROPVAL, one for each id in the order asked, followed by the strings and blobs.
// With CEDB_ALLOWREALLOC *buffer is null or a LocalAlloc block of *size bytes, which is replaced when too small; the
// caller frees it with one LocalFree, also after a failure. *size receives the number of bytes used.
CEHOST_API CEOID CeReadRecordProps(HANDLE database, DWORD flags, LPWORD count, const CEPROPID* ids, LPBYTE* buffer,
                                   LPDWORD size);

// Writes count (at least 1) properties of a record and answers its id, 0 on failure: 87, 112.
// record 0 makes a new one. Properties not named stay; CEDB_PROPDELETE in wFlags takes one away. The position of no
// handle moves: a handle on this record stays on it wherever it now sorts.
CEHOST_API CEOID CeWriteRecordProps(HANDLE database, CEOID record, WORD count, const CEPROPVAL* values);

// Deletes a record of the handle's database. FALSE: 87 for a bad handle or a record that is not in the database.
// A handle standing on it answers 1018 to the next read; one with CEDB_AUTOINCREMENT moves on to the next record.
CEHOST_API BOOL CeDeleteRecord(HANDLE database, CEOID record);

// --- The store itself (ours; a device has no such call) --------------------------------------------------------------

// Opens the store, if it isn't, and tells what keeps this process from writing: 0, 19 for a read-only file, or 112 when
// there was no room on the disk at the opening and nothing was written since. Reading works with each. FALSE when the
// store cannot be opened.
CEHOST_API BOOL CeObjectStoreLimit(LPDWORD limit);

// Closes the store's file, so that it can be copied or replaced; the next call opens it anew, where CE_OBJECT_STORE
// then says. FALSE with 32 while this process has a handle or a batch open.
CEHOST_API BOOL CeUnmountObjectStore(void);
