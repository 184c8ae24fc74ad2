// Counts how many entries pass the filter, a little at a time, so that whoever waits for it stays at the user's
// service.
#pragma once

#include <windbase.h>

class DbJournal;
struct FilterSettings;

class PassCounter {
public:
    // Both must outlive the object.
    PassCounter(DbJournal& journal, const FilterSettings& filter) : journal_(journal), filter_(filter) {}

    // Begins anew; to be called whenever the filter has changed.
    void Start();
    // Counts on for about so long. True when all entries have been seen. Moves the journal's current position, and
    // minds nobody else moving it between two calls.
    bool Continue(DWORD milliseconds);

    // After Continue has answered true: how many pass, and how many there are.
    int Passed() const { return passed_; }
    int Total() const { return total_; }

private:
    bool SeekWhereItStopped();
    void CountCurrent();

    DbJournal& journal_;
    const FilterSettings& filter_;
    CEOID last_ = 0;  // the entry counted last
    int passed_ = 0;
    int total_ = 0;
};
