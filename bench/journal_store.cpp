#include "bench/journal_store.h"

#include <storebatch.h>

#include <iterator>

#include "bench/report.h"
#include "data/field_ids.h"

CEOID WriteSample(DbJournal& journal, CEOID id, const SampleEntry& entry) {
    CEPROPVAL values[9] = {};
    values[0].propid = kPropStart;
    values[0].val.filetime = entry.start;
    values[1].propid = kPropSubject;
    values[1].val.lpwstr = const_cast<LPWSTR>(entry.subject.c_str());
    values[2].propid = kPropCompany;
    values[2].val.lpwstr = const_cast<LPWSTR>(entry.company.c_str());
    values[3].propid = kPropEntryType;
    values[3].val.iVal = entry.type;
    values[4].propid = kPropPriority;
    values[4].val.iVal = entry.priority;
    values[5].propid = kPropSensitivity;
    values[5].val.iVal = entry.sensitivity;
    values[6].propid = kPropDuration;
    values[6].val.filetime = entry.duration;
    values[7].propid = kPropCategories;
    values[7].val.blob = {static_cast<DWORD>(entry.categories.size() * sizeof(DWORD)),
                          reinterpret_cast<LPBYTE>(const_cast<DWORD*>(entry.categories.data()))};
    values[8].propid = kPropBody;
    values[8].val.blob = {static_cast<DWORD>(entry.body.size()),
                          reinterpret_cast<LPBYTE>(const_cast<char*>(entry.body.data()))};
    return journal.WriteRecordProps(id, static_cast<WORD>(std::size(values)), values);
}

void FillJournal(unsigned entries) {
    DbJournal journal;
    Require(journal.Open(nullptr) != 0, "making the journal");
    Require(CeBeginBatch(), "beginning to fill the journal");
    for (unsigned number = 0; number < entries; ++number) {
        Require(WriteSample(journal, 0, MakeSampleEntry(number)) != 0, "writing an entry");
    }
    Require(CeCommitBatch(), "filling the journal");
}
