// Puts imported items into Pocket Outlook's databases, many at a time.
#pragma once

#include <map>

#include "tools/import/item.h"

// An item whose uid is there already replaces that one: whatever the file says of it holds. Items become permanent
// every few thousand, and with Finish.
class OutlookWriter {
public:
    struct Counts {
        int added = 0;
        int changed = 0;
        int unchanged = 0;
    };

    OutlookWriter() = default;
    ~OutlookWriter();
    OutlookWriter(const OutlookWriter&) = delete;
    OutlookWriter& operator=(const OutlookWriter&) = delete;

    // False when the store refuses the item, which was said; earlier items are not affected.
    bool Put(const import::Item& item, Counts* counts);
    // Makes permanent what was put since the last time. False when that fails: it was said, and those items are lost.
    bool Finish();

private:
    struct Folder {
        HANDLE database = INVALID_HANDLE_VALUE;
        std::map<std::wstring, CEOID> known;  // uid -> item
    };

    Folder* Open(OlDefaultFolders folder);
    static BOOL CALLBACK OnRecord(CEOID record, WORD count, const CEPROPVAL* values, void* folder) noexcept;
    bool Replace(const Folder& folder, CEOID oid, const import::Item& item, Counts* counts);

    std::map<OlDefaultFolders, Folder> folders_;
    bool batch_ = false;
    int pending_ = 0;
};
