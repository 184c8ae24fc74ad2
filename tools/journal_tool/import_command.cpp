#include <win.h>

#include <cerrno>
#include <cstdio>
#include <string>

#include "tools/journal_tool/commands.h"
#include "tools/journal_tool/console.h"
#include "tools/journal_tool/outlook_writer.h"

namespace {

constexpr size_t kLargestFile = 512u << 20;  // bytes; it is read as a whole

bool ReadBytes(const std::wstring& path, std::string* bytes) {
    std::FILE* file = _wfopen(path.c_str(), L"rb");
    if (!file) {
        Complain(path + (errno == ENOENT ? L" is not there" : L" cannot be read"));
        return false;
    }
    std::string block(1 << 20, '\0');
    size_t count = 0;
    while (bytes->size() <= kLargestFile && (count = std::fread(block.data(), 1, block.size(), file)) > 0)
        bytes->append(block, 0, count);
    const bool failed = std::ferror(file) != 0;
    std::fclose(file);
    if (failed) Complain(path + L" cannot be read");
    if (bytes->size() > kLargestFile) Complain(path + L" is too large");
    return !failed && bytes->size() <= kLargestFile;
}

std::wstring Number(int count, const wchar_t* what) {
    return std::to_wstring(count) + L" " + what;
}

// False when something was left out or failed; that was said.
bool ImportFile(const std::wstring& path, OutlookWriter& writer) {
    std::string bytes;
    if (!ReadBytes(path, &bytes)) return false;
    import::Contents contents = import::ReadFile(std::move(bytes), import::SystemClock);
    if (contents.items.empty() && contents.problems.empty()) {
        Complain(path + L": there are no people, appointments or tasks in it");
        return false;
    }
    for (const import::Problem& problem : contents.problems) {
        Complain(path + L", line " + std::to_wstring(problem.line) + (problem.isItem ? L" is left out: " : L": ") +
                 problem.text);
    }
    OutlookWriter::Counts counts;
    bool stored = true;
    for (const import::Item& item : contents.items) {
        stored = writer.Put(item, &counts);
        if (!stored) break;
    }
    stored = writer.Finish() && stored;
    Print(path + L": " + Number(counts.added, L"added, ") + Number(counts.changed, L"changed, ") +
          Number(counts.unchanged, L"unchanged, ") + Number(contents.leftOut, L"left out\n"));
    return stored && contents.problems.empty();
}

}  // namespace

int ImportCommand(Arguments arguments) {
    if (arguments.empty()) {
        Complain(L"import needs the name of a file");
        return kExitUsage;
    }
    OutlookWriter writer;
    bool whole = true;
    for (const wchar_t* path : arguments)
        whole = ImportFile(path, writer) && whole;
    return whole ? kExitDone : kExitIncomplete;
}
