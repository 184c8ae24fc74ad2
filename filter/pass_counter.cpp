#include "filter/pass_counter.h"

#include <iterator>

#include "data/db_journal.h"
#include "data/field_ids.h"
#include "data/record_buffer.h"
#include "filter/filter_settings.h"

void PassCounter::Start() {
    last_ = 0;
    passed_ = total_ = 0;
}

bool PassCounter::Continue(DWORD milliseconds) {
    constexpr int kBetweenLooks = 32;  // entries from one look at the clock to the next
    if (!filter_.active) {
        passed_ = total_ = journal_.GetRecordCount();
        return true;
    }
    const DWORD begin = GetTickCount();
    for (bool current = SeekWhereItStopped(); current; current = journal_.SeekNext() != 0) {
        CountCurrent();
        if (total_ % kBetweenLooks == 0 && GetTickCount() - begin >= milliseconds) return false;
    }
    return true;
}

// Makes the entry after the last one current. When that one has gone meanwhile the count begins anew.
bool PassCounter::SeekWhereItStopped() {
    if (last_ != 0 && journal_.SeekToOid(last_) != 0) return journal_.SeekNext() != 0;
    Start();
    return journal_.SeekFirst() != 0;
}

void PassCounter::CountCurrent() {
    CEPROPID ids[] = {kPropStart, kPropCategories};
    WORD count = static_cast<WORD>(std::size(ids));
    RecordBuffer props;
    const CEOID id = journal_.ReadRecordProps(&count, ids, props.Put());
    if (id == 0) return;
    last_ = id;
    ++total_;
    const FILETIME start = props.Has(0) ? props[0].val.filetime : FILETIME{};
    const CEBLOB categories = props.Has(1) ? props[1].val.blob : CEBLOB{};
    if (filter_.Match(start, categories)) ++passed_;
}
