#include "platform/objectstore/read.h"

#include <algorithm>

#include "platform/objectstore/record_block.h"
#include "platform/objectstore/seek.h"
#include "platform/objectstore/store_error.h"

namespace store {
namespace {

constexpr size_t kKeptPlans = 8;

ReadPlan MakePlan(Connection& connection, const Database& database, const CEPROPID* ids, size_t count) {
    ReadPlan plan;
    plan.properties.assign(ids, ids + count);
    std::string columns = SelectColumns(database, ids, count, 0, plan.columns);
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

// The row of the current record. A record that another process deleted is stepped over by a handle that moves on by
// itself, and told otherwise.
void StepToRecord(Store& store, OpenDatabase& open, Statement& statement) {
    for (;;) {
        if (open.position.state == Position::kEnd) Fail(ERROR_NO_MORE_ITEMS);
        if (open.position.state == Position::kGap) {
            if (!open.autoIncrement) Fail(ERROR_KEY_DELETED);
            SeekSteps(store, open, 1);
            continue;
        }
        statement.Reset();
        statement.Bind(1, open.position.record);
        if (statement.Step()) return;
        // A record that its order still holds is not deleted: the file contradicts itself.
        const uint32_t count = store.DatabaseOf(open).count;
        if (store.OrderOf(open).Find(open.position.record, open.position.place, count)) Fail(ERROR_FILE_CORRUPT);
        LeaveDeleted(open);
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
    plan.found.clear();
    plan.values.clear();
    for (size_t i = 0; i < plan.columns.size(); ++i) {
        const StoredValue value = ReadValue(row, plan.columns[i], plan.properties[i], large);
        if (!ids && value.kind == StoredValue::kNone) continue;
        plan.found.push_back(plan.properties[i]);
        plan.values.push_back(value);
    }
    if (plan.found.size() > MAXWORD) Fail(ERROR_INVALID_PARAMETER);

    const size_t needed = BlockSize(plan.found.data(), plan.values);
    if (needed > MAXLONG) Fail(ERROR_NOT_ENOUGH_MEMORY);
    BYTE* target = MakeRoom(flags, buffer, *buffer ? *size : 0, std::max(needed, sizeof(CEPROPVAL)), size);
    FillBlock(plan.found.data(), plan.values, target);
    *count = static_cast<WORD>(plan.found.size());
    *size = static_cast<DWORD>(needed);
    if (open.autoIncrement) SeekSteps(store, open, 1);
    return record;
}

}  // namespace store
