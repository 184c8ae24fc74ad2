#include "platform/objectstore/seek.h"

#include <algorithm>

#include "platform/objectstore/store_error.h"

namespace store {
namespace {

CEOID StandAtEnd(OpenDatabase& open) {
    open.position = {};
    return 0;
}

CEOID StandOn(OpenDatabase& open, CEOID record, uint32_t place) {
    open.position = {Position::kOn, record, place, std::nullopt};
    return record;
}

CEOID SeekPlace(Store& store, OpenDatabase& open, int64_t place) {
    const uint32_t count = store.DatabaseOf(open).count;
    if (place < 0 || place >= int64_t{count}) return StandAtEnd(open);
    const auto valid = static_cast<uint32_t>(place);
    return StandOn(open, store.OrderOf(open).At(valid, count), valid);
}

// The number from the end, which callers give with either sign.
int64_t PlaceFromEnd(const Database& database, DWORD_PTR value) {
    const int64_t back = static_cast<LONG>(value);
    return int64_t{database.count} - 1 - (back < 0 ? -back : back);
}

bool Exists(Store& store, const Database& database, CEOID record) {
    Query query(store.Open().Sql(), "SELECT 1 FROM " + database.Table() + " WHERE oid=?");
    query << int64_t{record};
    return query.Step();
}

CEOID SeekValue(Store& store, OpenDatabase& open, DWORD kind, const CEPROPVAL* given) {
    if (!given || open.sort == 0 || given->propid != open.sort) Fail(ERROR_INVALID_PARAMETER);
    CEPROPVAL plain = *given;
    plain.wFlags = 0;
    if (!IsWritable(plain)) Fail(ERROR_INVALID_PARAMETER);
    const StoredValue value = Encode(plain);
    OrderIndex& index = store.OrderOf(open);
    CEOID record = 0;
    switch (kind) {
        case CEDB_SEEK_VALUEFIRSTEQUAL: record = index.FirstEqual(value); break;
        case CEDB_SEEK_VALUESMALLER: record = index.GreatestBelow(value); break;
        case CEDB_SEEK_VALUEGREATER: record = index.LeastFrom(value); break;
        default:
            record = SeekSteps(store, open, 1);
            if (record != 0 && index.IsEqual(record, value)) return record;
            return StandAtEnd(open);
    }
    return record != 0 ? StandOn(open, record, 0) : StandAtEnd(open);
}

}  // namespace

void SeekFirst(Store& store, OpenDatabase& open) {
    SeekPlace(store, open, 0);
}

void LeaveDeleted(OpenDatabase& open) {
    open.position.state = Position::kGap;
}

CEOID SeekSteps(Store& store, OpenDatabase& open, int64_t steps) {
    Database& database = store.DatabaseOf(open);
    Position& at = open.position;
    if (at.state == Position::kOn) {
        // Staying needs no place.
        if (steps == 0 && Exists(store, database, at.record)) return at.record;
        const auto place = store.OrderOf(open).Find(at.record, at.place, database.count);
        if (place) return SeekPlace(store, open, int64_t{*place} + steps);
        LeaveDeleted(open);
    }
    if (at.state == Position::kEnd) {
        return steps < 0 ? SeekPlace(store, open, int64_t{database.count} + steps) : StandAtEnd(open);
    }
    if (steps == 0) return StandAtEnd(open);
    const int64_t followed =
        at.key ? store.OrderOf(open).LowerBound(*at.key, at.record) : std::min(at.place, database.count);
    return SeekPlace(store, open, steps > 0 ? followed + steps - 1 : followed + steps);
}

CEOID Seek(Store& store, OpenDatabase& open, DWORD kind, DWORD_PTR value, LPDWORD index) {
    Database& database = store.DatabaseOf(open);
    CEOID record = 0;
    switch (kind) {
        case CEDB_SEEK_CEOID: {
            const auto wanted = static_cast<CEOID>(value);
            record = Exists(store, database, wanted) ? StandOn(open, wanted, open.position.place) : StandAtEnd(open);
            break;
        }
        case CEDB_SEEK_BEGINNING: record = SeekPlace(store, open, static_cast<DWORD>(value)); break;
        case CEDB_SEEK_END: record = SeekPlace(store, open, PlaceFromEnd(database, value)); break;
        case CEDB_SEEK_CURRENT: record = SeekSteps(store, open, static_cast<LONG>(value)); break;
        case CEDB_SEEK_VALUEFIRSTEQUAL:
        case CEDB_SEEK_VALUENEXTEQUAL:
        case CEDB_SEEK_VALUESMALLER:
        case CEDB_SEEK_VALUEGREATER:
            record = SeekValue(store, open, kind, reinterpret_cast<const CEPROPVAL*>(value));
            break;
        default: Fail(ERROR_INVALID_PARAMETER);
    }
    if (record != 0 && index) {
        const auto place = store.OrderOf(open).Find(record, open.position.place, database.count);
        if (!place) Fail(ERROR_FILE_CORRUPT);  // a record that its own sort order doesn't have
        open.position.place = *place;
        *index = *place;
    }
    return record;
}

}  // namespace store
