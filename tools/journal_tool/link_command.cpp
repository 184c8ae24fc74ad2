#include <climits>
#include <string>

#include "data/link_message.h"
#include "tools/journal_tool/commands.h"
#include "tools/journal_tool/console.h"
#include "tools/journal_tool/number_argument.h"

namespace {

struct Kind {
    const wchar_t* name;
    WORD kind;
};
constexpr Kind kKinds[] = {{L"contact", kLinkContact}, {L"appointment", kLinkAppointment}, {L"task", kLinkTask}};

}  // namespace

int LinkCommand(Arguments arguments) {
    const Kind* wanted = nullptr;
    for (const Kind& kind : kKinds)
        if (arguments.size() == 2 && std::wstring(kind.name) == arguments[0]) wanted = &kind;
    int id = 0;
    if (!wanted || !ReadNumberArgument(arguments[1], INT_MAX / 10, &id)) {
        Complain(L"link needs contact, appointment or task, and the number that these commands print");
        return kExitUsage;
    }
    const HWND journal = FindWindowW(kJournalClass, kJournalTitle);
    if (!journal) {
        Complain(L"no journal is running: start it first");
        return kExitIncomplete;
    }
    if (GetPropW(journal, kLockedProperty)) {
        Complain(L"the journal is locked: enter its password first");
        return kExitIncomplete;
    }
    DWORD process = 0;
    GetWindowThreadProcessId(journal, &process);
    AllowSetForegroundWindow(process);  // its editor comes to the front
    if (!PostMessageW(journal, kLinkMessage, MAKEWPARAM(wanted->kind, 0), id)) {
        Complain(L"the journal that is running cannot be reached");
        return kExitIncomplete;
    }
    Print(L"the journal was asked for an entry\n");
    return kExitDone;
}
