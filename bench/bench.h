// One size of journal, and everything that is measured with it; bench_main.cpp says what and against what.
#pragma once

#include <win.h>

#include <filesystem>
#include <vector>

#include "bench/bare_database.h"
#include "bench/report.h"
#include "data/db_journal.h"
#include "filter/filter_settings.h"

class RowCache;
struct ExportChoices;

class Bench {
public:
    // Fills a journal of so many entries, and the bare database beside it, in the folder.
    Bench(Report& report, const std::filesystem::path& folder, unsigned entries);
    // Measures everything once.
    void Run();

private:
    void Add(const char* operation, double time, double bound, const char* against) {
        report_.Add({operation, entries_, time, bound, against});
    }
    void Add(const char* operation, Pair measured, const char* against) {
        Add(operation, measured.time, measured.bound, against);
    }
    LONG Middle() const { return static_cast<LONG>(entries_ / 2); }

    // bench_store.cpp
    void OpenStore();
    void ReadPage(RowCache& cache, LONG first);
    void Pages();
    void WalkAll();
    void Writes();
    void ChangeSort();

    // bench_list.cpp
    void RefreshList();
    void FilterByRange();
    void FilterByMonths();
    void FilterByCategory();
    std::vector<DWORD> FilterIds() const;
    void CategoryMatch();
    void ShowMenu();

    // bench_export.cpp
    void Export();
    int ExportTo(const std::wstring& path, const ExportChoices& choices, HWND parent);

    // bench_selection.cpp
    void Selection();

    // bench_find.cpp
    void Find();
    void FirstFind();

    // bench_notes.cpp
    void NoteTexts();

    void StartUp();

    Report& report_;
    const std::filesystem::path folder_;
    const unsigned entries_;
    BareDatabase bare_;
    DbJournal journal_;
    FilterSettings filter_;
};

// How often a thing is measured.
constexpr int kRuns = 31;
constexpr int kWriteRuns = 51;
constexpr int kFewRuns = 15;
constexpr int kSlowRuns = 9;
