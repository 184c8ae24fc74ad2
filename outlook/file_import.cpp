#include "outlook/file_import.h"

#include <algorithm>
#include <new>

#include "exchange/import_file.h"
#include "res/ids.h"
#include "ui/busy_scope.h"
#include "ui/resource_text.h"
#include "ui/window.h"

namespace {

constexpr size_t kMostNamed = 5;  // files in the question, and problems of a file

bool EndsWith(const std::wstring& file, const std::wstring& ending) {
    return file.size() > ending.size() && _wcsicmp(file.c_str() + file.size() - ending.size(), ending.c_str()) == 0;
}

bool IsImportable(const std::wstring& file) {
    return EndsWith(file, L".vcf") || EndsWith(file, L".ics");
}

std::wstring NameOf(const std::wstring& file) {
    return file.substr(file.find_last_of(L"\\/") + 1);
}

// Writes the arguments into the text in place of its %1, %2...
std::wstring Filled(UINT id, const std::vector<std::wstring>& arguments) {
    const std::wstring pattern = LoadText(id);
    std::wstring text;
    for (size_t at = 0; at < pattern.size(); ++at) {
        const size_t argument = at + 1 < pattern.size() ? static_cast<size_t>(pattern[at + 1] - L'1') : pattern.size();
        if (pattern[at] == L'%' && argument < arguments.size()) {
            text += arguments[argument];
            ++at;
        } else {
            text += pattern[at];
        }
    }
    return text;
}

std::wstring Names(const std::vector<std::wstring>& files) {
    std::wstring names;
    for (size_t i = 0; i < std::min(files.size(), kMostNamed); ++i)
        names += L"\n" + NameOf(files[i]);
    return files.size() > kMostNamed ? names + L"\n..." : names;
}

std::wstring Done(const std::wstring& name, const import::OutlookWriter::Counts& counts, int leftOut) {
    return Filled(IDS_IMPORT_DONE, {name, std::to_wstring(counts.added), std::to_wstring(counts.changed),
                                    std::to_wstring(counts.unchanged), std::to_wstring(leftOut)});
}

// What came of one file.
std::wstring ImportFile(const std::wstring& file, import::OutlookWriter& writer, import::Imported& all) {
    const std::wstring name = NameOf(file);
    try {
        std::string bytes;
        if (import::ReadBytes(file, &bytes) != 0) return Filled(IDS_IMPORT_UNREADABLE, {name});
        const import::Imported imported = import::ImportBytes(std::move(bytes), writer);
        if (imported.empty) return Filled(IDS_IMPORT_EMPTY, {name});
        if (!imported.stored) return Filled(IDS_IMPORT_NOT_STORED, {name, std::to_wstring(GetLastError())});
        all.counts.added += imported.counts.added;
        all.counts.changed += imported.counts.changed;
        all.counts.unchanged += imported.counts.unchanged;
        all.leftOut += imported.leftOut;
        std::wstring text = Done(name, imported.counts, imported.leftOut);
        for (size_t i = 0; i < std::min(imported.problems.size(), kMostNamed); ++i) {
            const import::Problem& problem = imported.problems[i];
            text += L"\n" + Filled(IDS_IMPORT_PROBLEM, {std::to_wstring(problem.line), problem.text});
        }
        return imported.problems.size() > kMostNamed ? text + L"\n..." : text;
    } catch (const std::bad_alloc&) {
        return Filled(IDS_IMPORT_UNREADABLE, {name});  // too large
    }
}

// What came of each of the first files, and of all when there are more.
std::wstring Import(const std::vector<std::wstring>& files) {
    const BusyScope busy;
    import::OutlookWriter writer;
    import::Imported all;
    std::wstring told;
    for (size_t i = 0; i < files.size(); ++i) {
        const std::wstring text = ImportFile(files[i], writer, all);
        if (i < kMostNamed) told += (i == 0 ? L"" : L"\n") + text;
    }
    if (files.size() <= kMostNamed) return told;
    return told + L"\n...\n" + Done(Filled(IDS_IMPORT_FILES, {std::to_wstring(files.size())}), all.counts, all.leftOut);
}

}  // namespace

void ImportFiles(Window& owner, const std::vector<std::wstring>& files) {
    const std::wstring title = LoadText(IDS_IMPORT_TITLE);
    std::vector<std::wstring> wanted;
    std::copy_if(files.begin(), files.end(), std::back_inserter(wanted), IsImportable);
    if (wanted.empty()) {
        if (!files.empty()) owner.MessageBox(LoadText(IDS_IMPORT_OTHER).c_str(), title.c_str(), MB_OK);
        return;
    }
    const std::wstring question = LoadText(IDS_IMPORT_QUESTION) + L"\n" + Names(wanted);
    if (owner.MessageBox(question.c_str(), title.c_str(), MB_YESNO | MB_ICONQUESTION) != IDYES) return;
    const std::wstring told = Import(wanted);
    if (owner.IsWindow()) owner.MessageBox(told.c_str(), title.c_str(), MB_OK);
}
