// journal-tool: fills, prints and checks a journal's store from a command line.
#include <win.h>

#include <array>
#include <cwchar>
#include <filesystem>
#include <string>

#include "tools/journal_tool/commands.h"
#include "tools/journal_tool/console.h"

namespace {

constexpr wchar_t kHelp[] =
    LR"(Fills, prints and checks the store of the journal.

usage: journal-tool [--store FILE] COMMAND

  seed N       adds N made-up entries over ten years, with categories, contacts and notes;
               always the same ones (1 to 65535)
  load FILE    adds the entries of a tab-separated file, UTF-8; its first row names the columns,
               in any order:
                 start        2004-05-07 14:30, the time may have seconds or be left out; needed
                 subject
                 body         \n is a new line, \t a tab, \\ a backslash
                 categories   names with | between them; new ones are added
                 contacts     names with | between them
                 type, priority, sensitivity
                              the journal's own words, such as "Phone call", "High", "Private"
                 duration     minutes
                 company
               a row that cannot be used is reported with its number and left out
  list [N]     prints the first N entries, or all, in the journal's order, as such a file
  import FILE...
               puts the people of vCard files and the appointments and tasks of iCalendar files into
               Pocket Outlook; what was imported before is brought up to date, not added again;
               an item that cannot be used is reported with its line and left out
  contacts, appointments, tasks
               print what Pocket Outlook holds, with the numbers that link wants
  link contact|appointment|task NUMBER
               asks the journal that is running to begin an entry for that item
  export --csv|--text FILE [--fields NAMES] [--no-labels]
               writes every entry into a file as the journal's own export does, in the system's code
               page: a line of comma-separated values for each entry, or a line of text for each field;
               NAMES are the form's labels with commas between them, such as "Subject,Start,Note";
               the journal's filter does not count
  backup FILE  copies the whole store into a file, which may be an older backup; the journal may be
               running meanwhile
  restore FILE makes the store a copy of that backup; a damaged or foreign file is refused; the store
               that was there is kept beside it under a name with date and time; close the journal first
  check        verifies that the store is sound, and mends the categories' counts of entries,
               which a program that was killed may have left wrong; close the journal first

  --store FILE   the store to work on; otherwise the one named by CE_OBJECT_STORE, otherwise your own
  --help         prints this

Ends with 0 when all went well, 1 when something was left out or failed, 2 when the command line is wrong.
)";

struct Command {
    std::wstring_view name;
    int (*run)(Arguments);
    bool makesStore;  // the others do not work on a file that is not there
};

// clang-format off
constexpr std::array kCommands = {
    Command{L"seed", SeedCommand, true},
    Command{L"load", LoadCommand, true},
    Command{L"list", ListCommand, false},
    Command{L"import", ImportCommand, true},
    Command{L"contacts", ContactsCommand, false},
    Command{L"appointments", AppointmentsCommand, false},
    Command{L"tasks", TasksCommand, false},
    Command{L"link", LinkCommand, true},
    Command{L"export", ExportCommand, false},
    Command{L"backup", BackupCommand, false},
    Command{L"restore", RestoreCommand, true},
    Command{L"check", CheckCommand, false},
};
// clang-format on

int Misused(const std::wstring& what) {
    Complain(what + L"; journal-tool --help tells more");
    return kExitUsage;
}

int Run(Arguments arguments) {
    std::wstring store;
    while (!arguments.empty() && arguments[0][0] == L'-') {
        const std::wstring_view option = arguments[0];
        if (option == L"--help" || option == L"-h" || option == L"-?") {
            Print(kHelp);
            return kExitDone;
        }
        if (option != L"--store") return Misused(L"there is no option " + std::wstring(option));
        if (arguments.size() < 2 || !arguments[1][0]) return Misused(L"--store needs the name of a file");
        store = arguments[1];
        arguments = arguments.subspan(2);
    }
    if (arguments.empty()) return Misused(L"a command is missing");

    for (const Command& command : kCommands) {
        if (command.name != arguments[0]) continue;
        if (!store.empty()) {
            std::error_code error;
            const std::filesystem::path path = std::filesystem::absolute(store, error);
            if (!command.makesStore && !std::filesystem::exists(path, error)) {
                Complain(L"there is no store " + store);
                return kExitIncomplete;
            }
            SetEnvironmentVariableW(L"CE_OBJECT_STORE", path.c_str());
        }
        return command.run(arguments.subspan(1));
    }
    return Misused(L"there is no command " + std::wstring(arguments[0]));
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
