#include <win.h>

#include <cerrno>
#include <cwchar>
#include <string>

#include "tools/journal_tool/commands.h"
#include "tools/journal_tool/console.h"
#include "tools/journal_tool/entry_row.h"
#include "tools/journal_tool/entry_writer.h"
#include "tools/journal_tool/line_reader.h"

namespace {

std::string_view WithoutByteOrderMark(std::string_view line) {
    if (line.starts_with("\xEF\xBB\xBF")) line.remove_prefix(3);
    return line;
}

// Answers what is wrong with the first row, "" for nothing.
std::wstring ReadHeader(LineReader& lines, RowLayout* layout) {
    std::string line;
    if (!lines.Next(&line)) return L"it is empty";
    if (lines.IsTooLong()) return L"its first row is too long";
    if (line.starts_with("\xFF\xFE") || line.starts_with("\xFE\xFF")) return L"it is UTF-16; save it as UTF-8";
    return layout->Parse(WithoutByteOrderMark(line));
}

}  // namespace

int LoadCommand(Arguments arguments) {
    if (arguments.size() != 1) {
        Complain(L"load needs the name of one file");
        return kExitUsage;
    }
    LineReader lines;
    const bool opened = lines.Open(arguments[0]);
    const std::wstring file = std::wcscmp(arguments[0], L"-") == 0 ? L"the standard input" : arguments[0];
    if (!opened) {
        Complain(file + (errno == ENOENT ? L" is not there" : L" cannot be read"));
        return kExitIncomplete;
    }
    RowLayout layout;
    if (const std::wstring problem = ReadHeader(lines, &layout); !problem.empty()) {
        Complain(file + L" cannot be loaded: " + problem);
        return kExitIncomplete;
    }
    EntryWriter writer;
    if (!writer.Open()) return kExitIncomplete;

    // The row with the columns' names is number 1, as in an editor or a spreadsheet.
    int number = 1, skipped = 0;
    bool stored = true;
    std::string line;
    NewEntry entry;
    while (stored && lines.Next(&line)) {
        ++number;
        if (line.empty() && !lines.IsTooLong()) continue;
        const std::wstring problem = lines.IsTooLong() ? L"it is too long" : layout.ReadRow(line, &entry);
        if (problem.empty()) {
            stored = writer.Add(entry);
            if (!stored) Complain(file + L", row " + std::to_wstring(number) + L": the store took it no more");
        } else {
            ++skipped;
            Complain(file + L", row " + std::to_wstring(number) + L" is left out: " + problem);
        }
    }
    const bool whole = !lines.Failed();
    if (!whole) Complain(file + L" cannot be read beyond row " + std::to_wstring(number));
    stored = writer.Finish() && stored;
    Print(Entries(writer.GetSaved()) + L" added, " + Counted(skipped, L"row", L"rows") + L" left out\n");
    return stored && whole && !skipped ? kExitDone : kExitIncomplete;
}
