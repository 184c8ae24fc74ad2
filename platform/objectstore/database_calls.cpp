// The calls about whole databases, enumerations and the store itself.
#include <storestamp.h>
#include <windbase.h>

#include <algorithm>
#include <cstring>

#include "platform/objectstore/database_rules.h"
#include "platform/objectstore/seek.h"
#include "platform/objectstore/store_call.h"

#undef CloseHandle

using store::Call;
using store::Catalog;
using store::Database;
using store::Fail;
using store::Session;
using store::SharedState;
using store::Store;
using store::Transaction;

namespace {

// A name as it is kept: cut to its length, never empty.
std::wstring CheckedName(LPCWSTR name) {
    if (!name || !*name) Fail(ERROR_INVALID_PARAMETER);
    return {name, wcsnlen(name, CEDB_MAXDBASENAMELEN - 1)};
}

std::vector<SORTORDERSPEC> CheckedOrders(WORD count, const SORTORDERSPEC* specs) {
    if (count > CEDB_MAXSORTORDER || (count > 0 && !specs)) Fail(ERROR_INVALID_PARAMETER);
    // Programs count orders that they leave zero; the first one has to be named.
    while (count > 1 && specs[count - 1].propid == 0)
        --count;
    std::vector<SORTORDERSPEC> orders(specs, specs + count);
    if (!store::AreSortOrders(orders)) Fail(ERROR_INVALID_PARAMETER);
    return orders;
}

Database& FindDatabase(Session& session, CEOID oid) {
    Database* database = session.Databases().Find(oid);
    if (!database) Fail(ERROR_INVALID_PARAMETER);
    return *database;
}

// What the catalog holds fits: it takes nothing from the file that doesn't.
void Describe(const Database& database, CEDBASEINFO& info) {
    info.dwFlags =
        CEDB_VALIDNAME | CEDB_VALIDTYPE | CEDB_VALIDSORTSPEC | CEDB_VALIDMODTIME | CEDB_VALIDDBFLAGS | database.flags;
    std::wmemcpy(info.szDbaseName, database.name.c_str(), database.name.size() + 1);
    info.dwDbaseType = database.type;
    info.wNumRecords = static_cast<WORD>(database.count);
    info.wNumSortOrder = static_cast<WORD>(database.orders.size());
    const auto modified = static_cast<uint64_t>(database.modified);
    info.ftLastModified = {static_cast<DWORD>(modified), static_cast<DWORD>(modified >> 32)};
    std::copy(database.orders.begin(), database.orders.end(), info.rgSortSpecs);
}

// The database that a record belongs to, 0 when there is no such record.
CEOID FindParent(Session& session, CEOID record) {
    for (const auto& [oid, database] : session.Databases().All()) {
        store::Query query(session.Sql(), "SELECT 1 FROM " + database->Table() + " WHERE oid=?");
        query << int64_t{record};
        if (query.Step()) return oid;
    }
    return 0;
}

}  // namespace

CEOID CeCreateDatabase(LPCWSTR name, DWORD type, WORD sortOrders, const SORTORDERSPEC* specs) {
    return Call("CeCreateDatabase", CEOID{0}, [&](Store& store) {
        const std::wstring checked = CheckedName(name);
        const auto orders = CheckedOrders(sortOrders, specs);
        Session& session = store.Open();
        Transaction transaction(session);
        if (session.Databases().FindName(checked)) Fail(ERROR_DUP_NAME);
        const CEOID oid = session.Databases().Create(checked, type, orders);
        transaction.Commit();
        return oid;
    });
}

HANDLE CeOpenDatabase(PCEOID oid, LPCWSTR name, CEPROPID sortProperty, DWORD flags, HWND notify) {
    return Call("CeOpenDatabase", INVALID_HANDLE_VALUE, [&](Store& store) {
        if (!oid || (flags & ~DWORD{CEDB_AUTOINCREMENT})) Fail(ERROR_INVALID_PARAMETER);
        const std::wstring checked = *oid == 0 ? CheckedName(name) : L"";
        SharedState& shared = store.Open().Shared();
        // From looking to entering the handle nobody may delete the database or change its orders.
        const SharedState::Lock lock(shared);
        Catalog& catalog = store.Fresh().Databases();
        const Database* database = *oid == 0 ? catalog.FindName(checked) : catalog.Find(*oid);
        if (!database) Fail(*oid == 0 ? ERROR_FILE_NOT_FOUND : ERROR_INVALID_PARAMETER);
        if (database->FindOrder(sortProperty) < 0) Fail(ERROR_INVALID_PARAMETER);

        auto open = std::make_unique<store::OpenDatabase>();
        open->database = database->oid;
        open->sort = sortProperty;
        open->autoIncrement = (flags & CEDB_AUTOINCREMENT) != 0;
        store::SeekFirst(store, *open);
        open->row = shared.Enter(database->oid, notify);
        *oid = database->oid;
        return store.Handles().Add(std::move(open));
    });
}

BOOL CeDeleteDatabase(CEOID oid) {
    return Call("CeDeleteDatabase", FALSE, [&](Store& store) {
        Session& session = store.Open();
        const SharedState::Lock lock(session.Shared());
        Transaction transaction(session);
        FindDatabase(session, oid);
        if (session.Shared().IsOpen(oid)) Fail(ERROR_SHARING_VIOLATION);
        session.Databases().Delete(oid);
        transaction.Commit();
        return TRUE;
    });
}

BOOL CeSetDatabaseInfo(CEOID oid, const CEDBASEINFO* info) {
    return Call("CeSetDatabaseInfo", FALSE, [&](Store& store) {
        constexpr DWORD kNotKept =
            CEDB_VALIDNAME | CEDB_VALIDTYPE | CEDB_VALIDSORTSPEC | CEDB_VALIDMODTIME | CEDB_VALIDDBFLAGS;
        if (!info) Fail(ERROR_INVALID_PARAMETER);
        Session& session = store.Open();
        const SharedState::Lock lock(session.Shared());
        Transaction transaction(session);
        Catalog& catalog = session.Databases();
        Database& database = FindDatabase(session, oid);
        if (info->dwFlags & CEDB_VALIDNAME) {
            const std::wstring name =
                CheckedName(std::wstring(info->szDbaseName, wcsnlen(info->szDbaseName, 31)).c_str());
            const Database* other = catalog.FindName(name);
            if (other && other != &database) Fail(ERROR_DUP_NAME);
            catalog.Rename(database, name);
        }
        if (info->dwFlags & CEDB_VALIDTYPE) catalog.SetType(database, info->dwDbaseType);
        if (info->dwFlags & CEDB_VALIDDBFLAGS) catalog.SetFlags(database, info->dwFlags & ~kNotKept);
        if (info->dwFlags & CEDB_VALIDSORTSPEC) {
            const auto orders = CheckedOrders(info->wNumSortOrder, info->rgSortSpecs);
            if (session.Shared().IsOpen(oid)) Fail(ERROR_INVALID_PARAMETER);
            catalog.SetOrders(database, orders);
        }
        catalog.CountWrite(database, 0);
        if (info->dwFlags & CEDB_VALIDMODTIME) {
            const FILETIME time = info->ftLastModified;
            catalog.SetModified(database,
                                static_cast<int64_t>((uint64_t{time.dwHighDateTime} << 32) | time.dwLowDateTime));
        }
        transaction.Commit();
        return TRUE;
    });
}

BOOL CeOidGetInfo(CEOID oid, CEOIDINFO* info) {
    return Call("CeOidGetInfo", FALSE, [&](Store& store) {
        if (!info) Fail(ERROR_INVALID_PARAMETER);
        Session& session = store.Fresh();
        *info = {};
        if (const Database* database = session.Databases().Find(oid)) {
            info->wObjType = OBJTYPE_DATABASE;
            Describe(*database, info->infDatabase);
            return TRUE;
        }
        const CEOID parent = FindParent(session, oid);
        if (parent == 0) Fail(ERROR_INVALID_HANDLE);
        info->wObjType = OBJTYPE_RECORD;
        info->infRecord.oidParent = parent;
        return TRUE;
    });
}

BOOL CeSetDatabaseStamp(HANDLE handle, CEPROPID property) {
    return Call("CeSetDatabaseStamp", FALSE, [&](Store& store) {
        if (property != 0 && TypeFromPropID(property) != CEVT_FILETIME) Fail(ERROR_INVALID_PARAMETER);
        const store::OpenDatabase& open = store.FindOpen(handle);
        if (store.Fresh().Databases().Find(open.database)->stamp == property) return TRUE;
        Session& session = store.Open();
        Transaction transaction(session);
        Database& database = store.DatabaseOf(open);
        session.Databases().SetStamp(database, property);
        session.Databases().CountWrite(database, 0);
        transaction.Commit();
        return TRUE;
    });
}

HANDLE CeFindFirstDatabase(DWORD type) {
    return Call("CeFindFirstDatabase", INVALID_HANDLE_VALUE, [&](Store& store) {
        auto enumeration = std::make_unique<store::Enumeration>();
        for (const auto& [oid, database] : store.Fresh().Databases().All()) {
            if (type == 0 || database->type == type) enumeration->databases.push_back(oid);
        }
        return store.Handles().Add(std::move(enumeration));
    });
}

CEOID CeFindNextDatabase(HANDLE handle) {
    return Call("CeFindNextDatabase", CEOID{0}, [&](Store& store) {
        store::Enumeration* enumeration = store.Handles().FindEnumeration(handle);
        if (!enumeration) Fail(ERROR_INVALID_PARAMETER);
        Catalog& catalog = store.Fresh().Databases();
        for (const CEOID oid : enumeration->databases) {
            if (!catalog.Find(oid)) Fail(ERROR_KEY_DELETED);
        }
        if (enumeration->next == enumeration->databases.size()) Fail(ERROR_NO_MORE_ITEMS);
        return enumeration->databases[enumeration->next++];
    });
}

BOOL CeCloseHandle(HANDLE handle) {
    if (!store::HandleTable::IsOurs(handle)) return CloseHandle(handle);
    return Call("CloseHandle", FALSE, [&](Store& store) {
        if (const store::OpenDatabase* open = store.Handles().FindDatabase(handle)) {
            store.Open().Shared().Leave(open->row);
        } else if (!store.Handles().FindEnumeration(handle)) {
            Fail(ERROR_INVALID_HANDLE);
        }
        store.Handles().Remove(handle);
        return TRUE;
    });
}

BOOL CeObjectStoreLimit(LPDWORD limit) {
    return Call("CeObjectStoreLimit", FALSE, [&](Store& store) {
        if (!limit) Fail(ERROR_INVALID_PARAMETER);
        *limit = store.Open().Limit();
        return TRUE;
    });
}

BOOL CeUnmountObjectStore() {
    return Call("CeUnmountObjectStore", FALSE, [](Store& store) {
        if (!store.IsOpen()) return TRUE;
        if (!store.Handles().Empty() || store.Open().InBatch() || store.Open().IsScanning()) {
            Fail(ERROR_SHARING_VIOLATION);
        }
        store.Close();
        return TRUE;
    });
}
