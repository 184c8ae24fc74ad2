// The entries that everything is measured with: the same for every run.
#pragma once

#include <win.h>

#include <string>
#include <vector>

struct SampleEntry {
    FILETIME start;
    std::wstring subject;  // about 60 characters
    std::wstring company;
    short type, priority, sensitivity;
    FILETIME duration;
    std::vector<DWORD> categories;
    std::wstring bodyText;  // 600 characters
    std::string body;       // the same as a note, about 1300 bytes
};

// Entry `number` of ten years of them. Numbers and entries go together for ever: the generator is our own.
SampleEntry MakeSampleEntry(unsigned number);
