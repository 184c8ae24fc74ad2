#include "platform/objectstore/write.h"

#include <map>

#include "platform/objectstore/seek.h"
#include "platform/objectstore/store_error.h"

namespace store {
namespace {

using Values = std::map<CEPROPID, StoredValue>;

StoredValue Now() {
    CEPROPVAL now = {};
    now.propid = CEVT_FILETIME;
    GetSystemTimeAsFileTime(&now.val.filetime);
    return Encode(now);
}

// What the record keeps in the table large, of the given properties (or of all).
std::map<CEPROPID, int64_t> OutsideOf(Connection& connection, const Database& database, CEOID record,
                                      const Values* only) {
    std::vector<CEPROPID> properties;
    std::string columns;
    for (const auto& [property, column] : database.columns) {
        if (!column.outside || (only && !only->contains(property))) continue;
        properties.push_back(property);
        columns += (columns.empty() ? "" : ",") + ColumnName(property);
    }
    std::map<CEPROPID, int64_t> outside;
    if (properties.empty()) return outside;
    Query query(connection, "SELECT " + columns + " FROM " + database.Table() + " WHERE oid=?");
    query << int64_t{record};
    if (!query.Step()) return outside;
    for (size_t i = 0; i < properties.size(); ++i) {
        if (query->IsNumber(static_cast<int>(i))) outside[properties[i]] = query->Number(static_cast<int>(i));
    }
    return outside;
}

void DeleteLarge(Connection& connection, int64_t id) {
    Query remove(connection, "DELETE FROM large WHERE id=?");
    remove << id;
    remove.Finish();
}

int64_t InsertLarge(Connection& connection, Bytes value) {
    Query insert(connection, "INSERT INTO large(value) VALUES(?)");
    insert << value;
    insert.Finish();
    return sqlite3_last_insert_rowid(connection.Raw());
}

bool Exists(Connection& connection, const Database& database, CEOID record) {
    Query query(connection, "SELECT 1 FROM " + database.Table() + " WHERE oid=?");
    query << int64_t{record};
    return query.Step();
}

// Moves large values out of the record; what it keeps of them is the number of the other place.
void PlaceOutside(Catalog& catalog, Connection& connection, Database& database, Values& values) {
    for (auto& [property, value] : values) {
        if (value.kind != StoredValue::kBytes || value.bytes.size <= kLargestInside || database.IsSortedBy(property)) {
            continue;
        }
        catalog.MarkOutside(database, property);
        value = {StoredValue::kNumber, InsertLarge(connection, value.bytes), {}};
    }
}

void BindAll(Query& query, int first, const Values& values) {
    int place = first;
    for (const auto& [property, value] : values) {
        if (value.kind == StoredValue::kNone) {
            query->BindNull(place);
        } else if (value.kind == StoredValue::kNumber) {
            query->Bind(place, value.number);
        } else {
            query->BindBytes(place, value.bytes);
        }
        ++place;
    }
}

void InsertRow(Connection& connection, const Database& database, CEOID record, const Values& values) {
    std::string columns = "oid";
    std::string marks = "?1";
    int place = 2;
    for (const auto& [property, value] : values) {
        columns += "," + ColumnName(property);
        marks += ",?" + std::to_string(place++);
    }
    Query insert(connection, "INSERT INTO " + database.Table() + "(" + columns + ") VALUES(" + marks + ")");
    insert << int64_t{record};
    BindAll(insert, 2, values);
    insert.Finish();
}

void UpdateRow(Connection& connection, const Database& database, CEOID record, const Values& values) {
    std::string changes;
    int place = 2;
    for (const auto& [property, value] : values) {
        changes += (changes.empty() ? "" : ",") + ColumnName(property) + "=?" + std::to_string(place++);
    }
    Query update(connection, "UPDATE " + database.Table() + " SET " + changes + " WHERE oid=?1");
    update << int64_t{record};
    BindAll(update, 2, values);
    update.Finish();
}

// Enters a write that is permanent into an order in memory. In a batch nobody asks for places between two writes, so
// entering each would be wasted; and where entering it fails, the write has not: the order is read anew.
template <class Change>
void ChangeIndex(const Session& session, OrderIndex& index, Change change) {
    if (session.InBatch()) return index.Forget();
    try {
        change(index);
    } catch (...) {
        index.Forget();
    }
}

template <class Change>
void ChangeIndexes(const Session& session, Database& database, Change change) {
    for (const auto& index : database.indexes)
        ChangeIndex(session, *index, change);
}

// The handle stood on a record that is deleted. One that moves on by itself does so with the next read, when it cannot
// now: the record is deleted all the same.
void MoveOn(Store& store, OpenDatabase& open) noexcept {
    try {
        store.Open().Refresh();
        SeekSteps(store, open, 1);
    } catch (...) {
        LeaveDeleted(open);
    }
}

}  // namespace

CEOID WriteProperties(Store& store, OpenDatabase& open, CEOID record, const CEPROPVAL* given, size_t count) {
    if (!given || count == 0) Fail(ERROR_INVALID_PARAMETER);
    Values values;
    for (size_t i = 0; i < count; ++i) {
        if (!IsWritable(given[i])) Fail(ERROR_INVALID_PARAMETER);
        values[given[i].propid] = Encode(given[i]);
    }

    Session& session = store.Open();
    Transaction transaction(session);
    Catalog& catalog = session.Databases();
    Connection& connection = session.Sql();
    Database& database = store.DatabaseOf(open);
    const bool isNew = record == 0;
    if (isNew && database.count >= CEDB_MAXNUMRECORDS) Fail(ERROR_DISK_FULL);
    if (!isNew && !Exists(connection, database, record)) Fail(ERROR_INVALID_PARAMETER);
    if (database.stamp) values.try_emplace(database.stamp, Now());

    for (auto value = values.begin(); value != values.end();) {
        const bool there = database.columns.contains(value->first);
        if (!there && value->second.kind == StoredValue::kNone) {
            value = values.erase(value);  // taking away what nobody has
            continue;
        }
        if (!there) catalog.AddColumn(database, value->first);
        ++value;
    }
    std::map<CEPROPID, int64_t> replaced;
    if (!isNew) replaced = OutsideOf(connection, database, record, &values);
    PlaceOutside(catalog, connection, database, values);
    if (isNew) {
        record = catalog.NewOid();
        InsertRow(connection, database, record, values);
    } else if (!values.empty()) {
        UpdateRow(connection, database, record, values);
    }
    for (const auto& [property, id] : replaced)
        DeleteLarge(connection, id);
    catalog.CountWrite(database, isNew ? 1 : 0);
    transaction.Commit();

    if (isNew) {
        ChangeIndexes(session, database, [&](OrderIndex& index) { index.Inserted(record); });
    } else {
        for (size_t order = 0; order < database.orders.size(); ++order) {
            if (!values.contains(database.orders[order].propid)) continue;
            ChangeIndex(session, database.Index(static_cast<int>(order)),
                        [&](OrderIndex& index) { index.Moved(record); });
        }
    }
    session.Notify(database.oid, isNew ? DB_CEOID_CREATED : DB_CEOID_CHANGED, record);
    return record;
}

void DeleteRecord(Store& store, OpenDatabase& open, CEOID record) {
    Session& session = store.Open();
    Transaction transaction(session);
    Connection& connection = session.Sql();
    Database& database = store.DatabaseOf(open);
    if (!Exists(connection, database, record)) Fail(ERROR_INVALID_PARAMETER);

    // Where the handles that stand on it will stand: where it was, or on the one that followed.
    std::vector<std::pair<OpenDatabase*, Position>> leaving;
    store.Handles().ForEach([&](OpenDatabase& other) {
        if (other.position.state != Position::kOn || other.position.record != record) return;
        auto key = store.OrderOf(other).KeyOf(record);
        leaving.push_back({&other, {Position::kGap, record, other.position.place, std::move(key)}});
    });

    for (const auto& [property, id] : OutsideOf(connection, database, record, nullptr))
        DeleteLarge(connection, id);
    {
        Query remove(connection, "DELETE FROM " + database.Table() + " WHERE oid=?");
        remove << int64_t{record};
        remove.Finish();
    }
    session.Databases().CountWrite(database, -1);
    transaction.Commit();

    ChangeIndexes(session, database, [&](OrderIndex& index) { index.Removed(record); });
    for (auto& [other, position] : leaving)
        other->position = std::move(position);
    session.Notify(database.oid, DB_CEOID_RECORD_DELETED, record);
    for (auto& [other, position] : leaving)
        if (other->autoIncrement) MoveOn(store, *other);
}

}  // namespace store
