#include "platform/objectstore/provision.h"

#include <windbase.h>

#include "platform/objectstore/catalog.h"
#include "platform/objectstore/record_values.h"

namespace store {
namespace {

constexpr DWORD kCategoriesType = 0x1B;

// Properties of a category: stored, and known to every program that uses categories.
constexpr CEPROPID kName = 0x4001001F;
constexpr CEPROPID kOrdinal = 0x40020002;                           // a small number, each once
constexpr CEPROPID kVisible = 0x40030002;                           // 1, or 0 when hidden
constexpr CEPROPID kUses[] = {0x40040002, 0x40050002, 0x40060002};  // each counted by one of the device's programs

constexpr const wchar_t* kCategories[] = {L"Business", L"Family", L"Health", L"Holiday", L"Personal", L"Projects"};

}  // namespace

void Provision(Connection& connection) {
    connection.Run("BEGIN");
    Catalog catalog(connection);
    const CEOID oid =
        catalog.Create(L"\\Categories Database", kCategoriesType, {{kName, CEDB_SORT_CASEINSENSITIVE}, {kOrdinal, 0}});
    Database& database = *catalog.Find(oid);
    catalog.AddColumn(database, kVisible);
    for (const CEPROPID uses : kUses)
        catalog.AddColumn(database, uses);
    int ordinal = 0;
    for (const wchar_t* name : kCategories) {
        Query insert(connection, "INSERT INTO " + database.Table() + "(oid," + ColumnName(kName) + "," +
                                     ColumnName(kOrdinal) + "," + ColumnName(kVisible) + "," + ColumnName(kUses[0]) +
                                     "," + ColumnName(kUses[1]) + "," + ColumnName(kUses[2]) +
                                     ") VALUES(?,?,?,1,0,0,0)");
        insert << int64_t{catalog.NewOid()} << Bytes{name, static_cast<int>(wcslen(name) * sizeof(wchar_t))}
               << int64_t{ordinal++};
        insert.Finish();
        catalog.CountWrite(database, 1);
    }
    connection.Run("COMMIT");
}

}  // namespace store
