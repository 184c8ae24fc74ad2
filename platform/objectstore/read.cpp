#include "platform/objectstore/read.h"

#include <algorithm>
#include <cstring>

#include "platform/objectstore/seek.h"
#include "platform/objectstore/store_error.h"

namespace store {
namespace {

constexpr size_t kKeptPlans = 8;
constexpr size_t kAlignment = 8;  // of each string and blob in the buffer: clients read blobs as numbers

size_t Aligned(size_t size) {
    return (size + kAlignment - 1) & ~(kAlignment - 1);
}

ReadPlan MakePlan(Connection& connection, const Database& database, const CEPROPID* ids, size_t count) {
    ReadPlan plan;
    plan.properties.assign(ids, ids + count);
    std::string columns;
    int number = 0;
    for (const CEPROPID property : plan.properties) {
        const bool there = database.columns.contains(property);
        plan.columns.push_back(there ? number++ : -1);
        if (there) columns += (columns.empty() ? "" : ",") + ColumnName(property);
    }
    if (columns.empty()) columns = "oid";
    plan.statement = std::make_unique<Statement>(connection.Raw(),
                                                 "SELECT " + columns + " FROM " + database.Table() + " WHERE oid=?");
    return plan;
}

ReadPlan& PlanFor(Connection& connection, Database& database, const CEPROPID* ids, size_t count) {
    auto& plans = database.plans;
    const auto same = [&](const ReadPlan& plan) {
        return std::equal(plan.properties.begin(), plan.properties.end(), ids, ids + count);
    };
    const auto kept = std::find_if(plans.begin(), plans.end(), same);
    if (kept != plans.end()) {
        if (kept != plans.begin()) plans.splice(plans.begin(), plans, kept);
        return plans.front();
    }
    plans.push_front(MakePlan(connection, database, ids, count));
    if (plans.size() > kKeptPlans) plans.pop_back();
    return plans.front();
}

// Large values of one record, each held by a statement of its own until everything is copied, so that no body is
// copied twice.
class LargeValues {
public:
    explicit LargeValues(Connection& connection) : connection_(connection) {}
    ~LargeValues() {
        for (Statement* statement : held_)
            statement->Reset();
    }
    LargeValues(const LargeValues&) = delete;
    LargeValues& operator=(const LargeValues&) = delete;

    Bytes Get(int64_t id) {
        Statement& statement = connection_.Get("SELECT value FROM large WHERE id=?");
        held_.push_back(&statement);
        statement.Bind(1, id);
        if (!statement.Step()) Fail(ERROR_FILE_CORRUPT);  // the record refers to a value that is not there
        return statement.Blob(0);
    }

private:
    Connection& connection_;
    std::vector<Statement*> held_;
};

// Where the answer goes: the caller's block, made larger if he allows it.
BYTE* MakeRoom(DWORD flags, LPBYTE* buffer, DWORD capacity, size_t needed, LPDWORD size) {
    if (*buffer && capacity >= needed) return *buffer;
    if (!(flags & CEDB_ALLOWREALLOC)) {
        *size = static_cast<DWORD>(needed);
        Fail(ERROR_INSUFFICIENT_BUFFER);
    }
    HLOCAL block = *buffer ? LocalReAlloc(*buffer, needed, LMEM_MOVEABLE) : LocalAlloc(LMEM_FIXED, needed);
    if (!block) Fail(ERROR_NOT_ENOUGH_MEMORY);
    *buffer = static_cast<BYTE*>(block);
    return *buffer;
}

void FillBuffer(const std::vector<CEPROPID>& properties, const std::vector<StoredValue>& values, BYTE* target) {
    auto* entries = reinterpret_cast<CEPROPVAL*>(target);
    BYTE* next = target + Aligned(properties.size() * sizeof(CEPROPVAL));
    for (size_t i = 0; i < properties.size(); ++i) {
        CEPROPVAL& entry = entries[i];
        entry = {};
        entry.propid = properties[i];
        const StoredValue& value = values[i];
        if (value.kind == StoredValue::kNone) {
            entry.wFlags = CEDB_PROPNOTFOUND;
        } else if (value.kind == StoredValue::kNumber) {
            DecodeNumber(value.number, entry);
        } else {
            const auto bytes = static_cast<size_t>(value.bytes.size);
            if (bytes > 0) std::memcpy(next, value.bytes.data, bytes);
            if (TypeFromPropID(entry.propid) == CEVT_LPWSTR) {
                std::memset(next + bytes, 0, sizeof(wchar_t));
                entry.val.lpwstr = reinterpret_cast<LPWSTR>(next);
                next += Aligned(bytes + sizeof(wchar_t));
            } else {
                entry.val.blob = {static_cast<DWORD>(bytes), next};
                next += Aligned(bytes);
            }
        }
    }
}

size_t SizeOf(const std::vector<CEPROPID>& properties, const std::vector<StoredValue>& values) {
    size_t size = Aligned(properties.size() * sizeof(CEPROPVAL));
    for (size_t i = 0; i < properties.size(); ++i) {
        if (values[i].kind != StoredValue::kBytes) continue;
        const size_t end = TypeFromPropID(properties[i]) == CEVT_LPWSTR ? sizeof(wchar_t) : 0;
        size += Aligned(static_cast<size_t>(values[i].bytes.size) + end);
    }
    return size;
}

// The row of the current record. A record that another process deleted is stepped over by a handle that moves on by
// itself, and told otherwise.
void StepToRecord(Store& store, OpenDatabase& open, Statement& statement) {
    for (;;) {
        if (open.position.state == Position::kEnd) Fail(ERROR_NO_MORE_ITEMS);
        if (open.position.state == Position::kGap) Fail(ERROR_KEY_DELETED);
        statement.Reset();
        statement.Bind(1, open.position.record);
        if (statement.Step()) return;
        LeaveDeleted(open);
        if (open.autoIncrement) SeekSteps(store, open, 1);
    }
}

}  // namespace

CEOID ReadProperties(Store& store, OpenDatabase& open, DWORD flags, LPWORD count, const CEPROPID* ids, LPBYTE* buffer,
                     LPDWORD size) {
    if (!count || !buffer || !size || (flags & ~DWORD{CEDB_ALLOWREALLOC}) || (ids && *count == 0)) {
        Fail(ERROR_INVALID_PARAMETER);
    }
    Connection& connection = store.Open().Sql();
    Database& database = store.DatabaseOf(open);
    std::vector<CEPROPID> all;
    if (!ids) {
        for (const auto& [property, column] : database.columns)
            all.push_back(property);
    }
    ReadPlan& plan =
        ids ? PlanFor(connection, database, ids, *count) : PlanFor(connection, database, all.data(), all.size());
    Statement& row = *plan.statement;
    const ResetAtEnd reset(row);
    StepToRecord(store, open, row);
    const CEOID record = open.position.record;

    LargeValues large(connection);
    std::vector<CEPROPID> properties;
    std::vector<StoredValue> values;
    properties.reserve(plan.columns.size());
    values.reserve(plan.columns.size());
    for (size_t i = 0; i < plan.columns.size(); ++i) {
        StoredValue value;
        if (plan.columns[i] >= 0) value = FromColumn(row, plan.columns[i]);
        if (value.kind == StoredValue::kNumber && HasBytes(plan.properties[i])) {
            value = {StoredValue::kBytes, 0, large.Get(value.number)};
        }
        if (!ids && value.kind == StoredValue::kNone) continue;
        properties.push_back(plan.properties[i]);
        values.push_back(value);
    }
    if (properties.size() > MAXWORD) Fail(ERROR_INVALID_PARAMETER);

    const size_t needed = SizeOf(properties, values);
    BYTE* target = MakeRoom(flags, buffer, *buffer ? *size : 0, std::max(needed, sizeof(CEPROPVAL)), size);
    FillBuffer(properties, values, target);
    *count = static_cast<WORD>(properties.size());
    *size = static_cast<DWORD>(needed);
    if (open.autoIncrement) SeekSteps(store, open, 1);
    return record;
}

}  // namespace store
