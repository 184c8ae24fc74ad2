#include "platform/objectstore/catalog.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <set>
#include <sstream>

#include "platform/objectstore/database_rules.h"
#include "platform/objectstore/sort_key.h"
#include "platform/objectstore/store_error.h"

namespace store {
namespace {

// 0 for what names no time.
CEPROPID StampFromText(const std::string& text) {
    CEPROPID property = 0;
    std::istringstream(text) >> property;
    return TypeFromPropID(property) == CEVT_FILETIME ? property : 0;
}

bool SameOrders(const std::vector<SORTORDERSPEC>& a, const std::vector<SORTORDERSPEC>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const SORTORDERSPEC& x, const SORTORDERSPEC& y) {
        return x.propid == y.propid && x.dwFlags == y.dwFlags;
    });
}

Bytes BytesOf(const std::wstring& text) {
    return {text.data(), static_cast<int>(text.size() * sizeof(wchar_t))};
}

// A database's name as the file has it.
std::wstring CheckedName(Bytes bytes) {
    constexpr int kMost = (CEDB_MAXDBASENAMELEN - 1) * sizeof(wchar_t);
    if (bytes.size == 0 || bytes.size > kMost || bytes.size % sizeof(wchar_t) != 0) Fail(ERROR_FILE_CORRUPT);
    std::wstring text(static_cast<size_t>(bytes.size) / sizeof(wchar_t), L'\0');
    std::memcpy(text.data(), bytes.data, text.size() * sizeof(wchar_t));
    return text;
}

// A number as the file has it; anything else, or one out of its range, means that the file is damaged.
int64_t CheckedNumber(const Statement& row, int column, int64_t least, int64_t most) {
    const int64_t number = row.Number(column);
    if (!row.IsNumber(column) || number < least || number > most) Fail(ERROR_FILE_CORRUPT);
    return number;
}

std::string Numeral(int64_t number) {
    return std::to_string(number);
}

}  // namespace

int Database::FindOrder(CEPROPID property) const {
    if (property == 0) return static_cast<int>(orders.size());
    for (size_t place = 0; place < orders.size(); ++place) {
        if (orders[place].propid == property) return static_cast<int>(place);
    }
    return -1;
}

// What makes two indexes different: the key and its direction. Where records without the property stand does not.
std::string IndexName(const Database& database, const SORTORDERSPEC& order) {
    const bool folded = TypeFromPropID(order.propid) == CEVT_LPWSTR && (order.dwFlags & CEDB_SORT_CASEINSENSITIVE);
    const DWORD flags =
        (order.dwFlags & CEDB_SORT_DESCENDING) | (folded ? static_cast<DWORD>(CEDB_SORT_CASEINSENSITIVE) : 0);
    char name[40];
    std::snprintf(name, sizeof name, "o%lu_%08lX_%lu", database.oid, order.propid, flags);
    return name;
}

Database* Catalog::Find(CEOID oid) {
    const auto found = databases_.find(oid);
    return found == databases_.end() ? nullptr : found->second.get();
}

Database* Catalog::FindName(const std::wstring& name) {
    for (const auto& [oid, database] : databases_) {
        if (CompareStringOrdinal(name.c_str(), -1, database->name.c_str(), -1, TRUE) == CSTR_EQUAL) {
            return database.get();
        }
    }
    return nullptr;
}

void Catalog::Reload() {
    std::set<CEOID> there;
    Query all(
        connection_,
        "SELECT d.oid, d.name, d.type, d.orders, d.flags, c.value, c.changes, c.modified, s.value "
        "FROM database AS d JOIN counter AS c ON c.oid = d.oid LEFT JOIN setting AS s ON s.key='stamp ' || d.oid");
    while (all.Step()) {
        const Statement& row = *all.operator->();
        const auto oid = static_cast<CEOID>(CheckedNumber(row, 0, 1, MAXDWORD));
        there.insert(oid);
        auto& database = databases_[oid];
        if (!database) database = std::make_unique<Database>();
        database->oid = oid;
        TakeRow(row, *database);
        std::map<CEPROPID, Column> columns = ReadColumns(oid);
        if (columns.size() != database->columns.size()) database->plans.clear();
        database->columns = std::move(columns);
    }
    std::erase_if(databases_, [&](const auto& entry) { return !there.contains(entry.first); });
}

// Other parts rely on every limit here.
void Catalog::TakeRow(const Statement& row, Database& database) {
    std::wstring name = CheckedName(row.Blob(1));
    std::vector<SORTORDERSPEC> orders;
    if (name.find(L'\0') != name.npos || !OrdersFromText(row.Text(3), &orders)) Fail(ERROR_FILE_CORRUPT);
    database.name = std::move(name);
    database.type = static_cast<DWORD>(CheckedNumber(row, 2, 0, MAXDWORD));
    database.flags = static_cast<DWORD>(CheckedNumber(row, 4, 0, MAXDWORD));
    database.count = static_cast<uint32_t>(CheckedNumber(row, 5, 0, CEDB_MAXNUMRECORDS));
    database.modified = CheckedNumber(row, 7, INT64_MIN, INT64_MAX);
    database.stamp = StampFromText(row.Text(8));
    if (!SameOrders(orders, database.orders) || database.indexes.empty()) {
        database.orders = std::move(orders);
        database.plans.clear();
        MakeIndexes(database);
    }
    const int64_t changes = CheckedNumber(row, 6, 0, INT64_MAX / 2);
    if (database.changes != changes) {
        for (const auto& index : database.indexes)
            index->Forget();
    }
    database.changes = changes;
}

std::map<CEPROPID, Column> Catalog::ReadColumns(CEOID database) {
    std::map<CEPROPID, Column> columns;
    Query properties(connection_, "SELECT property, outside FROM property WHERE database=?");
    properties << int64_t{database};
    while (properties.Step()) {
        const Statement& row = *properties.operator->();
        const auto property = static_cast<CEPROPID>(CheckedNumber(row, 0, 0, MAXDWORD));
        columns[property] = {CheckedNumber(row, 1, 0, 1) != 0};
        if (!IsKnownType(TypeFromPropID(property)) || columns.size() > kMostColumns) Fail(ERROR_FILE_CORRUPT);
    }
    return columns;
}

void Catalog::MakeIndexes(Database& database) {
    database.indexes.clear();
    for (const SORTORDERSPEC& order : database.orders) {
        database.indexes.push_back(
            std::make_unique<OrderIndex>(connection_, database.Table(), IndexName(database, order), order));
    }
    database.indexes.push_back(std::make_unique<OrderIndex>(connection_, database.Table()));
}

CEOID Catalog::NewOid() {
    Query next(connection_, "UPDATE counter SET value=value+1 WHERE oid=0 AND value<4294967295 RETURNING value");
    if (!next.Step()) Fail(ERROR_DISK_FULL);
    const int64_t oid = CheckedNumber(*next.operator->(), 0, 1, MAXDWORD);
    next.Finish();
    return static_cast<CEOID>(oid);
}

void Catalog::Save(const Database& database) {
    Query save(connection_, "INSERT OR REPLACE INTO database(oid, name, type, flags, orders) VALUES(?,?,?,?,'" +
                                OrdersToText(database.orders) + "')");
    save << int64_t{database.oid} << BytesOf(database.name) << int64_t{database.type} << int64_t{database.flags};
    save.Finish();
}

CEOID Catalog::Create(const std::wstring& name, DWORD type, const std::vector<SORTORDERSPEC>& orders) {
    auto database = std::make_unique<Database>();
    database->oid = NewOid();
    database->name = name;
    database->type = type;
    connection_.Run("CREATE TABLE " + database->Table() + "(oid INTEGER PRIMARY KEY)");
    connection_.Run("INSERT INTO counter VALUES(" + Numeral(database->oid) + ",0,0,0)");
    Database& made = *(databases_[database->oid] = std::move(database));
    SetOrders(made, orders);
    CountWrite(made, 0);
    return made.oid;
}

void Catalog::Delete(CEOID oid) {
    Database& database = *Find(oid);
    for (const auto& [property, column] : database.columns) {
        if (!column.outside) continue;
        const std::string name = ColumnName(property);
        connection_.Run("DELETE FROM large WHERE id IN (SELECT " + name + " FROM " + database.Table() +
                        " WHERE typeof(" + name + ")='integer')");
    }
    database.plans.clear();
    connection_.Run("DROP TABLE " + database.Table());
    for (const char* table : {"database", "counter"}) {
        connection_.Run(std::string("DELETE FROM ") + table + " WHERE oid=" + Numeral(oid));
    }
    connection_.Run("DELETE FROM property WHERE database=" + Numeral(oid));
    connection_.Run("DELETE FROM setting WHERE key='stamp " + Numeral(oid) + "'");
    databases_.erase(oid);
}

void Catalog::Rename(Database& database, const std::wstring& name) {
    database.name = name;
    Save(database);
}

void Catalog::SetType(Database& database, DWORD type) {
    database.type = type;
    Save(database);
}

void Catalog::SetFlags(Database& database, DWORD flags) {
    database.flags = flags;
    Save(database);
}

void Catalog::SetModified(Database& database, int64_t modified) {
    database.modified = modified;
    connection_.Run("UPDATE counter SET modified=" + Numeral(modified) + " WHERE oid=" + Numeral(database.oid));
}

void Catalog::SetStamp(Database& database, CEPROPID property) {
    database.stamp = property;
    connection_.Run("INSERT OR REPLACE INTO setting VALUES('stamp " + Numeral(database.oid) + "','" +
                    Numeral(property) + "')");
}

void Catalog::SetOrders(Database& database, const std::vector<SORTORDERSPEC>& orders) {
    std::set<std::string> obsolete;
    for (const SORTORDERSPEC& order : database.orders)
        obsolete.insert(IndexName(database, order));
    std::vector<SORTORDERSPEC> wanted;
    for (const SORTORDERSPEC& order : orders) {
        if (obsolete.erase(IndexName(database, order)) == 0) wanted.push_back(order);
    }
    for (const std::string& index : obsolete)
        connection_.Run("DROP INDEX " + index);
    for (const SORTORDERSPEC& order : wanted) {
        if (!database.columns.contains(order.propid)) AddColumn(database, order.propid);
        TakeInside(database, order.propid);
        connection_.Run("CREATE INDEX " + IndexName(database, order) + " ON " + database.Table() + "(" +
                        KeyExpression(order) + ((order.dwFlags & CEDB_SORT_DESCENDING) ? " DESC)" : ")"));
    }
    database.orders = orders;
    database.plans.clear();
    MakeIndexes(database);
    Save(database);
}

void Catalog::AddColumn(Database& database, CEPROPID property) {
    if (database.columns.size() >= kMostColumns) Fail(ERROR_DISK_FULL);
    connection_.Run("ALTER TABLE " + database.Table() + " ADD COLUMN " + ColumnName(property));
    connection_.Run("INSERT INTO property VALUES(" + Numeral(database.oid) + "," + Numeral(property) + ",0)");
    database.columns[property] = {};
    database.plans.clear();
}

void Catalog::MarkOutside(Database& database, CEPROPID property) {
    Column& column = database.columns[property];
    if (column.outside) return;
    connection_.Run("UPDATE property SET outside=1 WHERE database=" + Numeral(database.oid) +
                    " AND property=" + Numeral(property));
    column.outside = true;
}

// An index needs the values themselves, however large they are.
void Catalog::TakeInside(Database& database, CEPROPID property) {
    if (!HasBytes(property) || !database.columns[property].outside) return;
    const std::string name = ColumnName(property);
    const std::string outside = " WHERE typeof(" + name + ")='integer'";
    connection_.Run("CREATE TEMP TABLE moved AS SELECT " + name + " AS id FROM " + database.Table() + outside);
    connection_.Run("UPDATE " + database.Table() + " SET " + name + "=(SELECT value FROM large WHERE id=" + name + ")" +
                    outside);
    connection_.Run("DELETE FROM large WHERE id IN (SELECT id FROM moved); DROP TABLE moved");
    connection_.Run("UPDATE property SET outside=0 WHERE database=" + Numeral(database.oid) +
                    " AND property=" + Numeral(property));
    database.columns[property].outside = false;
}

void Catalog::CountWrite(Database& database, int added) {
    FILETIME now = {};
    GetSystemTimeAsFileTime(&now);
    database.modified = static_cast<int64_t>((uint64_t{now.dwHighDateTime} << 32) | now.dwLowDateTime);
    const int64_t records = int64_t{database.count} + added;
    if (records < 0) Fail(ERROR_FILE_CORRUPT);  // it has counted less than it holds
    database.count = static_cast<uint32_t>(records);
    ++database.changes;
    Query count(connection_, "UPDATE counter SET value=?, changes=?, modified=? WHERE oid=?");
    count << int64_t{database.count} << database.changes << database.modified << int64_t{database.oid};
    count.Finish();
}

}  // namespace store
