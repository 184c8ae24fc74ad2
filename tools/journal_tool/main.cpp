// journal-tool: fills, prints and checks a journal's store from a command line.
#include <win.h>

#include <algorithm>
#include <string>

#include "tools/journal_tool/command_table.h"
#include "tools/journal_tool/console.h"
#include "tools/journal_tool/store_access.h"

namespace {

int Misused(const std::wstring& what) {
    Complain(what + L"; journal-tool --help tells more");
    return kExitUsage;
}

bool IsHelp(std::wstring_view word) {
    return word == L"--help" || word == L"-h" || word == L"-?";
}

int Run(Arguments arguments) {
    std::wstring store;
    while (!arguments.empty() && arguments[0][0] == L'-') {
        const std::wstring_view option = arguments[0];
        if (IsHelp(option)) {
            Print(ToolHelp());
            return kExitDone;
        }
        if (option == L"--version") {
            Print(L"Quillon Journal " QUILLON_VERSION L"\n");
            return kExitDone;
        }
        if (option != L"--store") return Misused(L"there is no option " + std::wstring(option));
        if (arguments.size() < 2 || !arguments[1][0]) return Misused(L"--store needs the name of a file");
        store = arguments[1];
        arguments = arguments.subspan(2);
    }
    if (arguments.empty()) return Misused(L"a command is missing");

    const Command* command = FindCommand(arguments[0]);
    if (!command) return Misused(L"there is no command " + std::wstring(arguments[0]));
    arguments = arguments.subspan(1);
    if (std::any_of(arguments.begin(), arguments.end(), [](const wchar_t* word) { return IsHelp(word); })) {
        Print(HelpOf(*command));
        return kExitDone;
    }
    if (!store.empty()) UseStore(store);
    return command->run(arguments);
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    PrepareConsole();
    try {
        return Run(Arguments(argv, static_cast<size_t>(argc)).subspan(argc > 0 ? 1 : 0));
    } catch (const std::exception& error) {
        std::wstring what;
        FromUtf8(error.what(), &what);
        Complain(what);
        return kExitIncomplete;
    }
}
