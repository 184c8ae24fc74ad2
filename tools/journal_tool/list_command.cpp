#include <win.h>

#include <algorithm>

#include "data/contact_blob.h"
#include "data/field_ids.h"
#include "tools/journal_tool/commands.h"
#include "tools/journal_tool/console.h"
#include "tools/journal_tool/entry_row.h"
#include "tools/journal_tool/number_argument.h"
#include "tools/journal_tool/rtf.h"

namespace {

constexpr ULONGLONG kTicksPerMinute = 600'000'000;

bool Contains(const std::vector<std::wstring>& names, const wchar_t* name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

NewEntry EntryOf(TSList<DbJItem>& fields, ConsoleCategories& categories) {
    NewEntry entry;
    for (const DbJItem& field : fields) {
        const CEBLOB& blob = *field.GetBlob();
        switch (field.GetID()) {
            case kFieldStart: entry.start = field.GetFileTime(); break;
            case kFieldSubject: entry.subject = field.GetStrValue(); break;
            case kFieldCompany: entry.company = field.GetStrValue(); break;
            case kFieldEntryType: entry.type = field.GetShort(); break;
            case kFieldPriority: entry.priority = field.GetShort(); break;
            case kFieldSensitivity: entry.sensitivity = field.GetShort(); break;
            case kFieldDuration: {
                const FILETIME length = field.GetFileTime();
                const ULONGLONG ticks = static_cast<ULONGLONG>(length.dwHighDateTime) << 32 | length.dwLowDateTime;
                entry.minutes = ticks / kTicksPerMinute;
                break;
            }
            case kFieldContacts: ReadContactBlob(blob, &entry.contacts); break;
            case kFieldCategories: {
                TSList<DbCItem> items;
                categories.ReadBlob(blob, &items);
                for (const DbCItem& item : items)
                    if (!Contains(entry.categories, item.GetStrValue()))
                        entry.categories.emplace_back(item.GetStrValue());
                break;
            }
            case kFieldBody: entry.body = TextOfRtf({blob.lpb, blob.dwCount}); break;
            default: break;
        }
    }
    return entry;
}

}  // namespace

int ListCommand(Arguments arguments) {
    int limit = CEDB_MAXNUMRECORDS;
    if (arguments.size() > 1 || (arguments.size() == 1 && !ReadNumberArgument(arguments[0], limit, &limit))) {
        Complain(L"list takes one number, from 1 to 65535");
        return kExitUsage;
    }
    if (!StoreIsThere()) return kExitIncomplete;
    ConsoleJournal journal;
    ConsoleCategories categories;
    if (!OpenOrComplain(journal) || !OpenOrComplain(categories)) return kExitIncomplete;

    int unread = 0, count = 0;
    TSList<DbJItem> fields;
    Print(ColumnNames());
    for (CEOID oid = journal.SeekFirst(); oid && count < limit; oid = journal.SeekNext(), ++count) {
        if (journal.Read(oid, &fields) == oid)
            Print(MakeRow(EntryOf(fields, categories)));
        else
            ++unread;
    }
    if (!unread) return kExitDone;
    Complain(Entries(unread) + L" could not be read");
    return kExitIncomplete;
}
