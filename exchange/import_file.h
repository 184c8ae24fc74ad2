// A vCard or iCalendar file put into Pocket Outlook as a whole.
#pragma once

#include <string>
#include <vector>

#include "exchange/item.h"
#include "exchange/outlook_writer.h"

namespace import {

// Reads a file of up to 512 MB. Answers 0, or errno's number for what is wrong: EFBIG for one that is larger.
int ReadBytes(const std::wstring& path, std::string* bytes);

struct Imported {
    OutlookWriter::Counts counts;
    std::vector<Problem> problems;  // by line
    int leftOut = 0;                // items that are broken
    bool empty = false;             // there is nothing in the file, not even what is broken
    bool stored = true;             // false: the writer's failure says why
};

// Puts what a file's bytes hold into Pocket Outlook, and makes it permanent.
Imported ImportBytes(std::string bytes, OutlookWriter& writer);

}  // namespace import
