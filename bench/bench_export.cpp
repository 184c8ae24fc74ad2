// What an export costs: every entry with every field, read, turned into text and written.
#include <win.h>

#include <richink.h>

#include <string>

#include "bench/bare_list.h"
#include "bench/bench.h"
#include "data/db_cats.h"
#include "export/entry_export.h"
#include "export/export_file.h"
#include "res/ids.h"
#include "ui/note_reader.h"

// As the export screen does it, over `parent`. Answers how often the file was flushed.
int Bench::ExportTo(const std::wstring& path, const ExportChoices& choices, HWND parent) {
    NoteReader notes(parent, IDC_EXPORT_BODY);
    DbCats categories;
    FieldTexts texts([&](const CEBLOB& body, std::wstring& text) { notes.Read(body.lpb, body.dwCount, text); },
                     NamesOf(categories));
    TSList<DbJItem> fields;
    journal_.Initialize(&fields);
    for (DbJItem& field : fields)
        field.SetFlag(kFieldExported);
    ExportFile file;
    Require(file.Create(path.c_str(), GENERIC_WRITE, FILE_SHARE_WRITE, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL),
            "making the export's file");
    const int written = ExportEntries(journal_, fields, choices, AllEntries(journal_), texts, file);
    Require(written == static_cast<int>(entries_), "exporting every entry");
    return file.Flushes();
}

void Bench::Export() {
    InitRichInkDLL();
    const HWND parent = MakeFrame();
    const std::wstring file = (folder_ / "export").wstring();
    const std::wstring dump = (folder_ / "dump").wstring();
    const auto measure = [&](const char* name, ExportFormat format) {
        int flushes = 0;
        Add(name,
            MeasurePair(
                kSlowRuns, [&] { flushes = ExportTo(file, {format}, parent); }, [&] { bare_.Dump(dump); },
                [&] { DeleteFileW(file.c_str()); }, [&] { DeleteFileW(dump.c_str()); }),
            "every value as stored, to a file");
        report_.AddCount((std::string(name) + ", flushes").c_str(), entries_, flushes);
        WIN32_FILE_ATTRIBUTE_DATA made = {};
        Require(GetFileAttributesExW(file.c_str(), GetFileExInfoStandard, &made) && made.nFileSizeLow > entries_ * 600,
                "writing every note");
    };
    measure("export CSV", ExportFormat::kCsv);
    measure("export text", ExportFormat::kText);
    DestroyWindow(parent);
}
