#include "bench/report.h"

#include <win.h>

#include <psapi.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

double TimeOnce(const std::function<void()>& work, const std::function<void()>& before) {
    if (before) before();
    LARGE_INTEGER frequency = {};
    LARGE_INTEGER start = {};
    LARGE_INTEGER end = {};
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&start);
    work();
    QueryPerformanceCounter(&end);
    return static_cast<double>(end.QuadPart - start.QuadPart) * 1e6 / static_cast<double>(frequency.QuadPart);
}

double Median(std::vector<double>& times) {
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

}  // namespace

double Measure(int runs, const std::function<void()>& work, const std::function<void()>& before) {
    std::vector<double> times;
    for (int run = 0; run < runs; ++run)
        times.push_back(TimeOnce(work, before));
    return Median(times);
}

Pair MeasurePair(int runs, const std::function<void()>& work, const std::function<void()>& bound,
                 const std::function<void()>& beforeWork, const std::function<void()>& beforeBound) {
    std::vector<double> times;
    std::vector<double> bounds;
    for (int run = 0; run < runs; ++run) {
        times.push_back(TimeOnce(work, beforeWork));
        bounds.push_back(TimeOnce(bound, beforeBound));
    }
    return {Median(times), Median(bounds)};
}

void Report::Add(Result result) {
    std::fprintf(stderr, "  %s, %u entries\n", result.operation.c_str(), result.entries);
    results_.push_back(std::move(result));
}

void Report::AddMemory(unsigned entries) {
    PROCESS_MEMORY_COUNTERS counters = {};
    counters.cb = sizeof counters;
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    memory_.push_back({entries, static_cast<double>(counters.PeakWorkingSetSize) / (1024 * 1024)});
}

void Report::Print() const {
    std::printf("%-22s %8s %12s %12s %7s  %s\n", "operation", "entries", "median us", "bound us", "ratio", "bound");
    for (const Result& r : results_) {
        std::printf("%-22s %8u %12.1f %12.1f %7.2f  %s\n", r.operation.c_str(), r.entries, r.time, r.bound,
                    r.bound > 0 ? r.time / r.bound : 0, r.against.c_str());
    }
    for (const Count& c : counts_)
        std::printf("%-22s %8u %12d\n", c.what.c_str(), c.entries, c.count);
    for (const Memory& m : memory_)
        std::printf("peak memory up to %u entries: %.1f MB\n", m.entries, m.megabytes);
    for (const Result& r : results_) {
        std::printf(
            "{\"operation\":\"%s\",\"entries\":%u,\"us\":%.1f,\"bound_us\":%.1f,\"ratio\":%.3f,\"bound\":\"%s\"}\n",
            r.operation.c_str(), r.entries, r.time, r.bound, r.bound > 0 ? r.time / r.bound : 0, r.against.c_str());
    }
    for (const Count& c : counts_)
        std::printf("{\"operation\":\"%s\",\"entries\":%u,\"count\":%d}\n", c.what.c_str(), c.entries, c.count);
    for (const Memory& m : memory_) {
        std::printf("{\"operation\":\"peak memory\",\"entries\":%u,\"megabytes\":%.1f}\n", m.entries, m.megabytes);
    }
}

void Require(bool worked, const char* what) {
    if (worked) return;
    std::fprintf(stderr, "failed: %s (error %lu)\n", what, GetLastError());
    std::exit(1);
}
