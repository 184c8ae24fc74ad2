#include "tools/journal_tool/command_table.h"

#include <array>

namespace {

constexpr wchar_t kLoadAbout[] =
    LR"(adds the entries of a tab-separated file, UTF-8, or with - of the standard input; its first row
names the columns, in any order:
  start        2004-05-07 14:30, the time may have seconds or be left out; needed
  subject
  body         \n is a new line, \t a tab, \\ a backslash
  categories   names with | between them; new ones are added
  contacts     names with | between them
  type, priority, sensitivity
               the journal's own words, such as "Phone call", "High", "Private"
  duration     minutes
  company
#12 in place of a start or of one of the journal's words is the number that the store has for it
a row that cannot be used is reported with its number and left out)";

constexpr wchar_t kImportAbout[] =
    LR"(puts the people of vCard files and the appointments and tasks of iCalendar files into
Pocket Outlook; what was imported before is brought up to date, not added again;
an item that cannot be used is reported with its line and left out)";

constexpr wchar_t kExportAbout[] =
    LR"(writes every entry into a file as the journal's own export does, in the system's code
page: a line of comma-separated values for each entry, or a line of text for each field;
NAMES are the form's labels with commas between them, such as "Subject,Start,Note";
the journal's filter does not count)";

// clang-format off
constexpr std::array kCommands = {
    Command{L"seed", SeedCommand, L"seed N",
            L"adds N made-up entries over ten years, with categories, contacts and notes;\n"
            L"always the same ones (1 to 65535)"},
    Command{L"load", LoadCommand, L"load FILE", kLoadAbout},
    Command{L"list", ListCommand, L"list [N]",
            L"prints the first N entries, or all, in the journal's order, as a file that load reads"},
    Command{L"import", ImportCommand, L"import FILE...", kImportAbout},
    Command{L"contacts", ContactsCommand, L"contacts",
            L"prints the people in Pocket Outlook, with the numbers that link wants"},
    Command{L"appointments", AppointmentsCommand, L"appointments",
            L"prints the appointments in Pocket Outlook, with the numbers that link wants"},
    Command{L"tasks", TasksCommand, L"tasks",
            L"prints the tasks in Pocket Outlook, with the numbers that link wants"},
    Command{L"link", LinkCommand, L"link contact|appointment|task NUMBER",
            L"asks the journal that is running to begin an entry for that item"},
    Command{L"export", ExportCommand, L"export --csv|--text FILE [--fields NAMES] [--no-labels]", kExportAbout},
    Command{L"backup", BackupCommand, L"backup FILE",
            L"copies the whole store into a file, which may be an older backup; the journal may be\n"
            L"running meanwhile"},
    Command{L"restore", RestoreCommand, L"restore FILE",
            L"makes the store a copy of that backup; a damaged or foreign file is refused; the store\n"
            L"that was there is kept beside it under a name with date and time; close the journal first"},
    Command{L"check", CheckCommand, L"check",
            L"verifies that the store is sound, and mends the categories' counts of entries,\n"
            L"which a program that was killed may have left wrong; close the journal first"},
};
// clang-format on

constexpr wchar_t kOptions[] =
    LR"(  --store FILE   the store to work on; otherwise the one named by CE_OBJECT_STORE, otherwise your own
  --help         prints this; behind a command, what there is to say of that one
  --version      prints the journal's version

Ends with 0 when all went well, 1 when something was left out or failed, 2 when the command line is wrong.
)";

std::wstring Indented(std::wstring_view lines, size_t blanks) {
    const std::wstring margin(blanks, L' ');
    std::wstring text = margin;
    for (const wchar_t c : lines) {
        text += c;
        if (c == L'\n') text += margin;
    }
    return text + L"\n";
}

}  // namespace

std::span<const Command> Commands() {
    return kCommands;
}

const Command* FindCommand(std::wstring_view name) {
    for (const Command& command : kCommands)
        if (command.name == name) return &command;
    return nullptr;
}

std::wstring ToolHelp() {
    std::wstring help = L"Fills, prints and checks the store of the journal.\n\n";
    help += L"usage: journal-tool [--store FILE] COMMAND\n\n";
    for (const Command& command : kCommands)
        help += L"  " + std::wstring(command.synopsis) + L"\n" + Indented(command.about, 6);
    return help + L"\n" + kOptions;
}

std::wstring HelpOf(const Command& command) {
    return L"usage: journal-tool [--store FILE] " + std::wstring(command.synopsis) + L"\n\n" +
           Indented(command.about, 0);
}
