// Measuring, and saying what came of it.
#pragma once

#include <functional>
#include <string>
#include <vector>

// The median time of one call in microseconds, over `runs` calls. `before` runs before each and is not counted.
double Measure(int runs, const std::function<void()>& work, const std::function<void()>& before = {});

// The medians of two, run by turns, so that what else the machine does falls on both.
struct Pair {
    double time = 0;
    double bound = 0;
};
Pair MeasurePair(int runs, const std::function<void()>& work, const std::function<void()>& bound,
                 const std::function<void()>& beforeWork = {}, const std::function<void()>& beforeBound = {});

struct Result {
    std::string operation;
    unsigned entries = 0;
    double time = 0;      // microseconds
    double bound = 0;     // microseconds; what it is held against, in the same run
    std::string against;  // what that is
};

class Report {
public:
    void Add(Result result);
    void AddMemory(unsigned entries);  // the process's peak so far
    // Something counted, not timed.
    void AddCount(const char* what, unsigned entries, int count) { counts_.push_back({what, entries, count}); }
    // The table, and then one line of JSON for each result.
    void Print() const;

private:
    struct Memory {
        unsigned entries;
        double megabytes;
    };
    std::vector<Result> results_;
    struct Count {
        std::string what;
        unsigned entries;
        int count;
    };
    std::vector<Memory> memory_;
    std::vector<Count> counts_;
};

// Ends the program, saying what did not work: nothing measured after a failure means anything.
void Require(bool worked, const char* what);
