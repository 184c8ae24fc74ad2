// The bound: the same entries in SQLite with nothing around it, in the shape best for each question. What the journal
// does through its layers is held against one statement here.
#pragma once

#include <win.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "bench/sample_entries.h"

struct sqlite3;
struct sqlite3_stmt;

class BareDatabase {
public:
    BareDatabase(const std::wstring& path, unsigned entries);
    ~BareDatabase();
    BareDatabase(const BareDatabase&) = delete;
    BareDatabase& operator=(const BareDatabase&) = delete;

    void Reopen();  // closes, opens, reads one row
    void ReadCount();
    // Thirty rows of id, start, subject and categories in the order of start: the first, or from half way, or the last.
    void ReadFirstPage();
    void ReadMiddlePage();
    void ReadLastPage();
    // Every row's start, subject and categories.
    void ReadAll();
    // Every body, each of its bytes looked at; or the first `most` of them.
    void ReadBodies(unsigned most);
    // Every value of every row, bodies included, into a new file as it is stored; on the disk when this returns.
    void Dump(const std::wstring& path);
    // How many subjects and bodies hold the text, and how many starts lie from `first` up to, not including, `end`,
    // each asked of every row. The text is ASCII: in a body it is looked for byte by byte.
    unsigned CountSubjects(const std::wstring& text);
    unsigned CountBodies(const std::wstring& text);
    unsigned CountStarts(uint64_t first, uint64_t end);
    // From half way on the first thirty rows, in the order of start, that have one of the categories.
    void ReadPageWith(const std::vector<DWORD>& categories);
    void Insert(const SampleEntry& entry);
    void Update();         // one subject
    void DeleteLast();     // the entry inserted last
    void SortBySubject();  // drops the index, if there is one, and builds it on the subject's sort key
    void SortByStart();

private:
    void Open();
    void Close();
    void Run(const char* sql);
    void ReadPage(const char* sql, bool fromMiddle);
    unsigned CountRows(const char* sql, const std::function<void(sqlite3_stmt*)>& bind);
    void InsertEntry(const SampleEntry& entry);

    const std::string path_;
    sqlite3* database_ = nullptr;
    FILETIME middle_ = {};
    bool updated_ = false;
};
