// The databases of the store, as this process knows them: names, sort orders, columns, counts.
//
// A database with the id 7 has the table r7(oid INTEGER PRIMARY KEY, p0066001F, ...), one row a record, one column a
// property, added when it is first written; and for each sort order an index o7_0066001F_2 on the order's key.
#pragma once

#include <windbase.h>

#include <list>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/objectstore/order_index.h"
#include "platform/objectstore/sql.h"

namespace store {

struct Column {
    bool outside = false;  // some value may be in the table large
};

// A compiled way to read a list of properties.
struct ReadPlan {
    std::vector<CEPROPID> properties;  // what is asked
    std::vector<int> columns;          // for each, its column in the statement's row; -1: no record has it
    std::unique_ptr<Statement> statement;
    // Of the last read, and nothing but room for the next: the properties handed out, and their values.
    std::vector<CEPROPID> found;
    std::vector<StoredValue> values;
};

struct Database {
    CEOID oid = 0;
    std::wstring name;
    DWORD type = 0;
    DWORD flags = 0;
    std::vector<SORTORDERSPEC> orders;
    std::map<CEPROPID, Column> columns;
    CEPROPID stamp = 0;  // gets the time of each write of a record; 0: none does
    uint32_t count = 0;
    int64_t changes = 0;
    int64_t modified = 0;  // FILETIME's 64 bits

    std::vector<std::unique_ptr<OrderIndex>> indexes;  // one for each sort order, and last the order of the ids
    std::list<ReadPlan> plans;                         // most recently used first

    std::string Table() const { return "r" + std::to_string(oid); }
    // The place of a sort property in `orders`; for 0 that of the order of ids; -1 when not sorted by it.
    int FindOrder(CEPROPID property) const;
    OrderIndex& Index(int order) { return *indexes[static_cast<size_t>(order)]; }
    bool IsSortedBy(CEPROPID property) const { return property != 0 && FindOrder(property) >= 0; }
};

class Catalog {
public:
    explicit Catalog(Connection& connection) : connection_(connection) {}

    // Reads everything anew. What is kept in memory about a database that nobody changed stays. Throws
    // ERROR_FILE_CORRUPT when the file says of a database what cannot be.
    void Reload();

    // Forgets everything, compiled statements too.
    void Clear() { databases_.clear(); }

    Database* Find(CEOID oid);                     // null when there is none
    Database* FindName(const std::wstring& name);  // without regard to case
    const std::map<CEOID, std::unique_ptr<Database>>& All() const { return databases_; }

    // The following write to the file, inside a transaction; a rollback needs a Reload.
    CEOID NewOid();  // throws ERROR_DISK_FULL when the ids are used up
    CEOID Create(const std::wstring& name, DWORD type, const std::vector<SORTORDERSPEC>& orders);
    void Delete(CEOID database);
    void Rename(Database& database, const std::wstring& name);
    void SetType(Database& database, DWORD type);
    void SetFlags(Database& database, DWORD flags);
    void SetModified(Database& database, int64_t modified);
    void SetStamp(Database& database, CEPROPID property);
    void SetOrders(Database& database, const std::vector<SORTORDERSPEC>& orders);
    void AddColumn(Database& database, CEPROPID property);
    void MarkOutside(Database& database, CEPROPID property);
    // Counts one write that made `added` records more (or -1).
    void CountWrite(Database& database, int added);

private:
    void TakeRow(const Statement& row, Database& database);
    std::map<CEPROPID, Column> ReadColumns(CEOID database);
    void Save(const Database& database);
    void MakeIndexes(Database& database);
    void TakeInside(Database& database, CEPROPID property);

    Connection& connection_;
    std::map<CEOID, std::unique_ptr<Database>> databases_;
};

// The name of the index for an order.
std::string IndexName(const Database& database, const SORTORDERSPEC& order);

}  // namespace store
