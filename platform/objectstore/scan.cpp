// One pass over the records of a database.
#include <storepage.h>

#include "platform/objectstore/record_block.h"
#include "platform/objectstore/store_call.h"

using store::Call;
using store::Store;

namespace {

// What is done with each record: its row becomes a block of values, which the visitor gets.
class Visits {
public:
    Visits(store::Connection& connection, WORD count, const CEPROPID* ids, CeScanVisitor visit, void* context)
        : ids_(ids), visit_(visit), context_(context), large_(connection), values_(count) {}

    // The properties' columns, as they follow the column oid in a statement.
    std::string Columns(const store::Database& database) {
        const std::string columns = store::SelectColumns(database, ids_, values_.size(), 1, places_);
        return columns.empty() ? columns : "," + columns;
    }
    // Whether the visitor wants to go on.
    bool Visit(const store::Statement& row) {
        const CEOID record = store::RecordIn(row);
        for (size_t i = 0; i < values_.size(); ++i)
            values_[i] = store::ReadValue(row, places_[i], ids_[i], large_);
        const size_t size = store::BlockSize(ids_, values_);
        if (block_.size() < size) block_.resize(size);
        store::FillBlock(ids_, values_, block_.data());
        large_.Release();
        return visit_(record, static_cast<WORD>(values_.size()), reinterpret_cast<const CEPROPVAL*>(block_.data()),
                      context_) != FALSE;
    }

private:
    const CEPROPID* const ids_;
    const CeScanVisitor visit_;
    void* const context_;
    store::LargeValues large_;
    std::vector<store::StoredValue> values_;
    std::vector<int> places_;
    std::vector<BYTE> block_;  // never shrinks, so most records cost no memory of their own
};

void ScanAll(store::Connection& connection, const store::Database& database, Visits& visits) {
    store::Query query(connection, "SELECT oid" + visits.Columns(database) + " FROM " + database.Table());
    while (query.Step() && visits.Visit(*query.operator->()))
        continue;
}

void ScanFrom(store::Connection& connection, const store::Database& database, store::OrderIndex& index, DWORD place,
              Visits& visits) {
    store::Statement& row =
        connection.Get("SELECT oid" + visits.Columns(database) + " FROM " + database.Table() + " WHERE oid=?");
    const store::ResetAtEnd reset(row);
    for (; place < database.count; ++place) {
        row.Reset();
        row.Bind(1, index.At(place, database.count));
        // A damaged order may name a record that is not there.
        if (row.Step() && !visits.Visit(row)) return;
    }
}

template <class Scan>
BOOL Run(const char* function, HANDLE database, WORD count, const CEPROPID* ids, CeScanVisitor visit, void* context,
         Scan scan) {
    return Call(function, FALSE, [&](Store& store) {
        if ((count > 0 && !ids) || !visit) store::Fail(ERROR_INVALID_PARAMETER);
        const store::OpenDatabase& open = store.FindOpen(database);
        store::Session& session = store.Fresh();
        const store::Scanning scanning(session);
        Visits visits(session.Sql(), count, ids, visit, context);
        scan(session.Sql(), store.DatabaseOf(open), store.OrderOf(open), visits);
        return TRUE;
    });
}

}  // namespace

BOOL CeScanRecords(HANDLE database, WORD count, const CEPROPID* ids, CeScanVisitor visit, void* context) {
    const auto scan = [](store::Connection& connection, const store::Database& all, store::OrderIndex&,
                         Visits& visits) { ScanAll(connection, all, visits); };
    return Run("CeScanRecords", database, count, ids, visit, context, scan);
}

BOOL CeScanRecordsFrom(HANDLE database, DWORD place, WORD count, const CEPROPID* ids, CeScanVisitor visit,
                       void* context) {
    const auto scan = [place](store::Connection& connection, const store::Database& all, store::OrderIndex& index,
                              Visits& visits) { ScanFrom(connection, all, index, place, visits); };
    return Run("CeScanRecordsFrom", database, count, ids, visit, context, scan);
}
