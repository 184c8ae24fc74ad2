#include "tests/app/fake_export.h"

#include "export/export_dialog.h"
#include "list/selection_memory.h"

std::vector<FakeExport::Opening> FakeExport::opened;

INT_PTR ExportDialog::Run(Window&, DbJournal&, const SelectionMemory& selection, const FilterSettings& filter) {
    FakeExport::opened.push_back({selection.Ids(), &filter});
    return IDOK;
}
