// What searching the journal costs: by subject, by note, by date.
#include <win.h>

#include <functional>
#include <string>

#include "bench/bench.h"
#include "data/field_ids.h"
#include "find/entry_search.h"

namespace {

constexpr wchar_t kSubject[] = L"garden plan";
constexpr wchar_t kAnyCase[] = L"Garden PLAN";
constexpr wchar_t kCommon[] = L"e";  // in nearly every subject
constexpr wchar_t kNote[] = L"garden plan letter";
constexpr wchar_t kNoteAnyCase[] = L"Garden PLAN letter";

}  // namespace

void Bench::Find() {
    EntrySearch search(journal_, {});
    FindRequest request;
    int found = 0;
    const auto find = [&] { found = search.Run(request, 0); };
    const auto measure = [&](const char* operation, const std::function<unsigned()>& bound, const char* against) {
        unsigned bare = 0;
        Add(operation, MeasurePair(kFewRuns, find, [&] { bare = bound(); }), against);
        Require(found == static_cast<int>(bare), "finding as many");
    };
    const auto subjects = [&] { return bare_.CountSubjects(kSubject); };
    const auto common = [&] { return bare_.CountSubjects(kCommon); };
    const auto notes = [&] { return bare_.CountBodies(kNote); };

    request.searchBy = SearchBy::kSubject;
    request.matchCase = TRUE;
    request.text = kSubject;
    measure("find subject", subjects, "instr over the subjects");
    request.matchCase = FALSE;
    request.text = kAnyCase;
    measure("find subject, any case", subjects, "instr over the subjects");

    request.text = kCommon;
    measure("find common subject", common, "instr over the subjects");

    request.searchBy = SearchBy::kEntry;
    request.matchCase = TRUE;
    request.text = kNote;
    measure("find note", notes, "instr over the bodies");
    request.matchCase = FALSE;
    request.text = kNoteAnyCase;
    measure("find note, any case", notes, "instr over the bodies");

    request.searchBy = SearchBy::kDate;
    request.date = DateTime(MakeSampleEntry(entries_ / 2).start);
    const uint64_t day = request.date.Ticks() / DateTime::kTicksPerDay * DateTime::kTicksPerDay;
    measure(
        "find date", [&] { return bare_.CountStarts(day, day + DateTime::kTicksPerDay); }, "a scan of the starts");
}

// The first search in a store just opened learns the journal's order by the way.
void Bench::FirstFind() {
    EntrySearch search(journal_, {});
    FindRequest request;
    request.searchBy = SearchBy::kSubject;
    request.text = kSubject;
    const auto reopen = [&] {
        journal_.Close();
        CeUnmountObjectStore();
        journal_.Open(nullptr);
    };
    Add("find subject, first",
        MeasurePair(
            kFewRuns, [&] { search.Run(request, 0); }, [&] { bare_.CountSubjects(kSubject); }, reopen,
            [&] { bare_.Reopen(); }),
        "instr over the subjects, just opened");
}
