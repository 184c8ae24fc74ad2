#include <win.h>

#include <cerrno>
#include <string>

#include "exchange/import_file.h"
#include "tools/journal_tool/commands.h"
#include "tools/journal_tool/console.h"
#include "tools/journal_tool/store_access.h"

namespace {

std::wstring Number(int count, const wchar_t* what) {
    return std::to_wstring(count) + L" " + what;
}

std::wstring ReadFailure(int error) {
    switch (error) {
        case ENOENT: return L" is not there";
        case EFBIG: return L" is too large";
        default: return L" cannot be read";
    }
}

const wchar_t* StoreFailure(import::OutlookWriter::Failure failure) {
    switch (failure) {
        case import::OutlookWriter::Failure::kOpen: return L"Pocket Outlook cannot be opened";
        case import::OutlookWriter::Failure::kRead: return L"the store cannot be read";
        case import::OutlookWriter::Failure::kCommit: return L"the last items were not saved";
        default: return L"the store cannot be written";
    }
}

// False when something was left out or failed; that was said.
bool ImportFile(const std::wstring& path, import::OutlookWriter& writer) {
    std::string bytes;
    if (const int error = import::ReadBytes(path, &bytes); error != 0) {
        Complain(path + ReadFailure(error));
        return false;
    }
    const import::Imported imported = import::ImportBytes(std::move(bytes), writer);
    if (imported.empty) {
        Complain(path + L": there are no people, appointments or tasks in it");
        return false;
    }
    if (!imported.stored) ComplainAboutStore(StoreFailure(writer.GetFailure()));
    for (const import::Problem& problem : imported.problems) {
        Complain(path + L", line " + std::to_wstring(problem.line) + (problem.isItem ? L" is left out: " : L": ") +
                 problem.text);
    }
    Print(path + L": " + Number(imported.counts.added, L"added, ") + Number(imported.counts.changed, L"changed, ") +
          Number(imported.counts.unchanged, L"unchanged, ") + Number(imported.leftOut, L"left out\n"));
    return imported.stored && imported.problems.empty();
}

}  // namespace

int ImportCommand(Arguments arguments) {
    if (arguments.empty()) {
        Complain(L"import needs the name of a file");
        return kExitUsage;
    }
    import::OutlookWriter writer;
    bool whole = true;
    for (const wchar_t* path : arguments)
        whole = ImportFile(path, writer) && whole;
    return whole ? kExitDone : kExitIncomplete;
}
