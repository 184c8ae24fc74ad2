// Puts imported items into Pocket Outlook's databases, many at a time.
#pragma once

#include <map>

#include "exchange/item.h"

namespace import {

// An item whose uid is there already replaces that one: whatever the file says of it holds. Items become permanent
// every few thousand, and with Finish.
class OutlookWriter {
public:
    struct Counts {
        int added = 0;
        int changed = 0;
        int unchanged = 0;
    };

    // What the store refused last; the thread's last error says why.
    enum class Failure { kNone, kOpen, kRead, kWrite, kCommit };

    OutlookWriter() = default;
    ~OutlookWriter();
    OutlookWriter(const OutlookWriter&) = delete;
    OutlookWriter& operator=(const OutlookWriter&) = delete;

    // False when the store refuses the item; earlier items are not affected.
    bool Put(const Item& item, Counts* counts);
    // Makes permanent what was put since the last time. False when that fails: those items are lost.
    bool Finish();
    Failure GetFailure() const { return failure_; }

private:
    struct Folder {
        HANDLE database = INVALID_HANDLE_VALUE;
        std::map<std::wstring, CEOID> known;  // uid -> item
    };

    bool Fail(Failure failure);
    Folder* Open(OlDefaultFolders folder);
    static BOOL CALLBACK OnRecord(CEOID record, WORD count, const CEPROPVAL* values, void* folder) noexcept;
    bool Replace(const Folder& folder, CEOID oid, const Item& item, Counts* counts);

    std::map<OlDefaultFolders, Folder> folders_;
    Failure failure_ = Failure::kNone;
    bool batch_ = false;
    int pending_ = 0;
};

}  // namespace import
