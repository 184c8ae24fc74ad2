// One pass over all records of a database.
#include <storescan.h>

#include "platform/objectstore/record_block.h"
#include "platform/objectstore/store_call.h"

using store::Call;
using store::Store;

namespace {

void Scan(store::Session& session, const store::Database& database, WORD count, const CEPROPID* ids,
          CeScanVisitor visit, void* context) {
    store::Connection& connection = session.Sql();
    std::vector<int> places;
    const std::string columns = store::SelectColumns(database, ids, count, 1, places);
    store::Query query(connection,
                       "SELECT oid" + (columns.empty() ? columns : "," + columns) + " FROM " + database.Table());
    store::LargeValues large(connection);
    std::vector<store::StoredValue> values(count);
    std::vector<BYTE> block;  // never shrinks, so most records cost no memory of their own
    while (query.Step()) {
        for (size_t i = 0; i < values.size(); ++i)
            values[i] = store::ReadValue(*query.operator->(), places[i], ids[i], large);
        const size_t size = store::BlockSize(ids, values);
        if (block.size() < size) block.resize(size);
        store::FillBlock(ids, values, block.data());
        large.Release();
        const auto record = static_cast<CEOID>(query->Number(0));
        if (!visit(record, count, reinterpret_cast<const CEPROPVAL*>(block.data()), context)) return;
    }
}

}  // namespace

BOOL CeScanRecords(HANDLE database, WORD count, const CEPROPID* ids, CeScanVisitor visit, void* context) {
    return Call("CeScanRecords", FALSE, [&](Store& store) {
        if ((count > 0 && !ids) || !visit) store::Fail(ERROR_INVALID_PARAMETER);
        const store::OpenDatabase& open = store.FindOpen(database);
        store::Session& session = store.Fresh();
        const store::Scanning scanning(session);
        Scan(session, store.DatabaseOf(open), count, ids, visit, context);
        return TRUE;
    });
}
