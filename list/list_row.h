// What the list shows of one journal entry.
#pragma once

#include <win.h>

#include <windbase.h>

#include <string>

struct ListRow {
    std::wstring date;     // the start, as the user's short date
    std::wstring subject;  // empty when the entry has none
    CEOID id = 0;          // 0: the row is empty, its entry is gone or does not pass the filter

    bool operator==(const ListRow&) const = default;

    void Clear() {
        date.clear();
        subject.clear();
        id = 0;
    }
};
