#include <win.h>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "data/field_definitions.h"
#include "export/entry_export.h"
#include "export/export_file.h"
#include "tools/journal_tool/commands.h"
#include "tools/journal_tool/console.h"
#include "tools/journal_tool/rtf.h"
#include "tools/journal_tool/store_access.h"

namespace {

struct Wanted {
    std::optional<ExportFormat> format;
    bool labels = true;
    std::wstring file;
    std::wstring fields;  // labels with commas between; "": all
};

int Misused(const std::wstring& what) {
    Complain(what);
    return kExitUsage;
}

// What is wrong with the command line, "" for nothing.
std::wstring Read(Arguments arguments, Wanted* wanted) {
    for (size_t i = 0; i < arguments.size(); ++i) {
        const std::wstring word = arguments[i];
        if (word == L"--csv" || word == L"--text") {
            if (wanted->format) return L"export writes one format";
            wanted->format = word == L"--csv" ? ExportFormat::kCsv : ExportFormat::kText;
        } else if (word == L"--no-labels") {
            wanted->labels = false;
        } else if (word == L"--fields") {
            if (++i == arguments.size() || !arguments[i][0]) return L"--fields needs the names of fields";
            wanted->fields = arguments[i];
        } else if (word.empty() || word[0] == L'-' || !wanted->file.empty()) {
            return L"export takes --csv or --text, and one file; there is no " + word;
        } else {
            wanted->file = word;
        }
    }
    if (!wanted->format) return L"export needs --csv or --text";
    return wanted->file.empty() ? L"export needs the name of one file" : L"";
}

// Marks the fields of those names, or all. Answers a name that is none, "" for nothing.
std::wstring Choose(const std::wstring& names, TSList<DbJItem>& fields) {
    if (names.empty()) {
        for (DbJItem& field : fields)
            field.SetFlag(kFieldExported);
        return {};
    }
    for (size_t at = 0; at <= names.size();) {
        const size_t end = std::min(names.find(L',', at), names.size());
        const std::wstring name = names.substr(at, end - at);
        bool found = false;
        for (DbJItem& field : fields) {
            if (_wcsicmp(field.GetLabel(), name.c_str()) != 0) continue;
            field.SetFlag(kFieldExported);
            found = true;
        }
        if (!found) return name.empty() ? L"(nothing)" : name;
        at = end + 1;
    }
    return {};
}

void ReadNote(const CEBLOB& body, std::wstring& text) {
    text.clear();
    for (const wchar_t c : TextOfRtf({body.lpb, body.dwCount})) {
        if (c == L'\n') text += L'\r';
        text += c;
    }
}

}  // namespace

int ExportCommand(Arguments arguments) {
    Wanted wanted;
    if (const std::wstring wrong = Read(arguments, &wanted); !wrong.empty()) return Misused(wrong);
    ConsoleJournal journal;
    ConsoleCategories categories;
    TSList<DbJItem> fields;
    journal.Initialize(&fields);
    if (const std::wstring name = Choose(wanted.fields, fields); !name.empty()) {
        return Misused(L"there is no field " + name);
    }
    if (!StoreIsThere() || !OpenOrComplain(journal)) return kExitIncomplete;

    ExportFile file;
    file.Create(wanted.file.c_str(), GENERIC_WRITE, FILE_SHARE_WRITE, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL);
    if (file.Failed()) {
        ComplainAboutStore((wanted.file + L" cannot be written").c_str());
        return kExitIncomplete;
    }
    FieldTexts texts(ReadNote, NamesOf(categories));
    const std::vector<CEOID> entries = AllEntries(journal);
    const int written = ExportEntries(journal, fields, {*wanted.format, wanted.labels, nullptr}, entries, texts, file);
    file.Close();
    if (file.Failed()) {
        Complain(wanted.file + L" could not be written whole");
        return kExitIncomplete;
    }
    Print(Entries(written) + L" exported to " + wanted.file + L"\n");
    const auto missing = std::ssize(entries) - written;
    if (missing == 0) return kExitDone;
    Complain(Entries(missing) + L" could not be read");
    return kExitIncomplete;
}
