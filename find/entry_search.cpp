#include "find/entry_search.h"

#include <note_text.h>

#include <algorithm>
#include <new>
#include <utility>

#include "data/db_journal.h"
#include "data/field_ids.h"
#include "data/record_buffer.h"
#include "find/text_matcher.h"

namespace {

constexpr unsigned kBetweenAsking = 16;  // entries from one question whether to go on to the next

uint64_t Ticks(const FILETIME& time) {
    return uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime;
}

}  // namespace

int EntrySearch::Run(FindRequest& request, CEOID current, const GoOn& goOn) {
    request.results.clear();
    hits_.clear();
    goOn_ = goOn ? &goOn : nullptr;
    bool ended = false;
    switch (request.searchBy) {
        case SearchBy::kDate: ended = FindByDate(request.date); break;
        case SearchBy::kSubject: ended = FindBySubject(request); break;
        case SearchBy::kEntry: ended = FindByNote(request); break;
    }
    goOn_ = nullptr;
    if (ended) request.results = InOrder(request.searchFrom == SearchFrom::kCurrent ? current : 0);
    return static_cast<int>(request.results.size());
}

// Shows the value of every entry that has the property. False when the search was given up. One pass in whatever order
// is quickest: several times as fast as going from entry to entry in the journal's.
template <class Visit>
bool EntrySearch::ForEach(CEPROPID property, const Visit& visit) {
    struct Pass {
        const EntrySearch& search;
        const Visit& visit;
        unsigned seen;
        bool givenUp;
    } pass = {*this, visit, 0, false};
    const auto show = [](CEOID entry, WORD, const CEPROPVAL* values, void* context) -> BOOL {
        auto& it = *static_cast<Pass*>(context);
        try {
            if (!(values[0].wFlags & CEDB_PROPNOTFOUND)) it.visit(entry, values[0].val);
        } catch (const std::bad_alloc&) {
            it.givenUp = true;
            return FALSE;
        }
        if (++it.seen % kBetweenAsking == 0 && !it.search.MayGoOn()) it.givenUp = true;
        return !it.givenUp;
    };
    journal_.Scan(1, &property, show, &pass);
    return !pass.givenUp;
}

// ---- What is compared ----

// Days begin at whole multiples of a day's ticks, as the count does.
bool EntrySearch::FindByDate(const DateTime& date) {
    const uint64_t day = date.Ticks() / DateTime::kTicksPerDay;
    if (date.ToSystemTime().wYear == 0) return true;  // no date at all
    return ForEach(kPropStart, [&](CEOID entry, const CEVALUNION& start) {
        if (Ticks(start.filetime) / DateTime::kTicksPerDay == day) hits_.push_back(entry);
    });
}

// An empty text is in every subject, an empty one too; in an empty note there is nothing to be found.
bool EntrySearch::FindBySubject(const FindRequest& request) {
    const TextMatcher matcher(request.text, request.matchCase != FALSE);
    return ForEach(kPropSubject, [&](CEOID entry, const CEVALUNION& subject) {
        if (matcher.IsIn(subject.lpwstr)) hits_.push_back(entry);
    });
}

// Notes whose text somebody has to read out of them wait until the pass is over: that takes long, and the store is kept
// from others during a pass.
bool EntrySearch::FindByNote(const FindRequest& request) {
    const TextMatcher matcher(request.text, request.matchCase != FALSE);
    std::vector<CEOID> others;
    std::wstring text;
    const auto match = [&](CEOID entry) {
        if (!text.empty() && matcher.IsIn(text)) hits_.push_back(entry);
    };
    const bool ended = ForEach(kPropBody, [&](CEOID entry, const CEVALUNION& body) {
        if (body.blob.dwCount == 0) return;
        if (GetNoteText({reinterpret_cast<const char*>(body.blob.lpb), body.blob.dwCount}, &text)) {
            match(entry);
        } else {
            others.push_back(entry);
        }
    });
    if (!ended || !noteText_) return ended;
    for (const CEOID entry : others) {
        if (!MayGoOn()) return false;
        CEPROPID ids[] = {kPropBody};
        WORD count = 1;
        RecordBuffer note;
        if (journal_.SeekToOid(entry) == 0 || journal_.ReadRecordProps(&count, ids, note.Put()) != entry) continue;
        if (!note.Has(0) || note[0].val.blob.dwCount == 0) continue;
        noteText_(note[0].val.blob, text);
        match(entry);
    }
    return true;
}

// ---- Order ----

// Puts the hits into the journal's order; those that do not stand behind `after` go.
std::vector<CEOID> EntrySearch::InOrder(CEOID after) {
    // To go through the whole order costs less for each entry than to ask for the place of one.
    constexpr size_t kStepsForPlace = 4;
    if (hits_.empty()) return {};
    return hits_.size() * kStepsForPlace > journal_.GetRecordCount() ? WalkOrder(after) : AskPlaces(after);
}

std::vector<CEOID> EntrySearch::WalkOrder(CEOID after) {
    std::sort(hits_.begin(), hits_.end());
    std::vector<CEOID> ordered;
    ordered.reserve(hits_.size());
    auto expected = hits_.begin();  // entries mostly follow one another as they were written
    const bool behind = after != 0 && journal_.SeekToOid(after) != 0;
    for (CEOID entry = behind ? journal_.SeekNext() : journal_.SeekFirst(); entry != 0; entry = journal_.SeekNext()) {
        if (expected == hits_.end() || *expected != entry) {
            expected = std::lower_bound(hits_.begin(), hits_.end(), entry);
            if (expected == hits_.end() || *expected != entry) continue;
        }
        ordered.push_back(entry);
        ++expected;
    }
    return ordered;
}

std::vector<CEOID> EntrySearch::AskPlaces(CEOID after) {
    const int first = after == 0 ? 0 : journal_.SeekToOidIndex(after) + 1;
    std::vector<std::pair<int, CEOID>> places;
    for (const CEOID entry : hits_) {
        const int place = journal_.SeekToOidIndex(entry);
        if (place >= first) places.emplace_back(place, entry);
    }
    std::sort(places.begin(), places.end());
    std::vector<CEOID> ordered;
    for (const auto& [place, entry] : places)
        ordered.push_back(entry);
    return ordered;
}
