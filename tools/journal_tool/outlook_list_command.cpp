#include <pimdata.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "data/record_buffer.h"
#include "tools/journal_tool/commands.h"
#include "tools/journal_tool/console.h"
#include "tools/journal_tool/store_access.h"

namespace {

struct Column {
    const wchar_t* name;
    CEPROPID property;
};

struct Listing {
    OlDefaultFolders folder;
    const wchar_t* database;
    CEPROPID order;
    std::vector<Column> columns;
};

// 2004-05-07 14:30, the day alone at midnight.
std::wstring DateText(double date) {
    SYSTEMTIME time = {};
    if (!VariantTimeToSystemTime(date, &time)) return {};
    wchar_t text[40] = L"";
    swprintf(text, 40, time.wHour || time.wMinute ? L"%04u-%02u-%02u %02u:%02u" : L"%04u-%02u-%02u", time.wYear,
             time.wMonth, time.wDay, time.wHour, time.wMinute);
    return text;
}

// Tabs and line ends would break the row.
std::wstring OneLine(std::wstring text) {
    std::replace_if(
        text.begin(), text.end(), [](wchar_t c) { return c < L' '; }, L' ');
    return text;
}

std::wstring TextOf(const CEPROPVAL& value) {
    return TypeFromPropID(value.propid) == CEVT_R8 ? DateText(value.val.dblVal) : OneLine(value.val.lpwstr);
}

// The first column is the object id.
bool PrintRows(HANDLE database, const Listing& listing) {
    std::vector<CEPROPID> ids;
    for (const Column& column : listing.columns)
        ids.push_back(column.property);
    CEOID oid = CeSeekDatabase(database, CEDB_SEEK_BEGINNING, 0, nullptr);
    for (; oid; oid = CeSeekDatabase(database, CEDB_SEEK_CURRENT, 1, nullptr)) {
        RecordBuffer record;
        WORD count = static_cast<WORD>(ids.size());
        DWORD size = 0;
        if (!CeReadRecordProps(database, CEDB_ALLOWREALLOC, &count, ids.data(), record.Put(), &size)) break;
        std::wstring row = std::to_wstring(oid);
        for (size_t i = 0; i < ids.size(); ++i)
            row += L"\t" + (record.Has(i) ? TextOf(record[i]) : std::wstring());
        Print(row + L"\n");
    }
    if (GetLastError() == ERROR_NO_MORE_ITEMS) return true;
    ComplainAboutStore(L"the store cannot be read");
    return false;
}

int List(Arguments arguments, const wchar_t* command, const Listing& listing) {
    if (!arguments.empty()) {
        Complain(std::wstring(command) + L" takes nothing more");
        return kExitUsage;
    }
    if (!StoreIsThere()) return kExitIncomplete;
    const HANDLE made = PimOpenDatabase(listing.folder);
    CEOID oid = 0;
    const HANDLE database =
        made == INVALID_HANDLE_VALUE ? made : CeOpenDatabase(&oid, listing.database, listing.order, 0, nullptr);
    if (database == INVALID_HANDLE_VALUE) ComplainAboutStore(L"Pocket Outlook cannot be opened");
    if (made != INVALID_HANDLE_VALUE) CloseHandle(made);
    if (database == INVALID_HANDLE_VALUE) return kExitIncomplete;
    std::wstring header = L"id";
    for (const Column& column : listing.columns)
        header += std::wstring(L"\t") + column.name;
    Print(header + L"\n");
    const bool whole = PrintRows(database, listing);
    CloseHandle(database);
    return whole ? kExitDone : kExitIncomplete;
}

}  // namespace

int ContactsCommand(Arguments arguments) {
    return List(arguments, L"contacts",
                {olFolderContacts,
                 kContactsDatabase,
                 kContactFileAs,
                 {{L"name", kContactFileAs}, {L"company", kContactCompanyName}}});
}

int AppointmentsCommand(Arguments arguments) {
    return List(arguments, L"appointments",
                {olFolderCalendar,
                 kAppointmentsDatabase,
                 kAppointmentStart,
                 {{L"start", kAppointmentStart}, {L"subject", kAppointmentSubject}}});
}

int TasksCommand(Arguments arguments) {
    return List(arguments, L"tasks",
                {olFolderTasks,
                 kTasksDatabase,
                 kTaskSubject,
                 {{L"start", kTaskStartDate}, {L"due", kTaskDueDate}, {L"subject", kTaskSubject}}});
}
