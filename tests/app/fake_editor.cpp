#include "tests/app/fake_editor.h"

#include "editor/entry_editor.h"
#include "list/selection_memory.h"

std::vector<CEOID> FakeEditor::opened;
std::vector<unsigned short> FakeEditor::fields;
std::function<CEOID(CEOID)> FakeEditor::edit;
std::vector<PimData> FakeEditor::items;
std::function<CEOID(const PimData&)> FakeEditor::editItem;
std::function<void()> FakeEditor::finish;

void FakeEditor::Reset() {
    opened.clear();
    fields.clear();
    edit = nullptr;
    items.clear();
    editItem = nullptr;
    finish = nullptr;
}

INT_PTR EntryEditor::Run(Window&, DbJournal&, SelectionMemory& selection, unsigned short editField) {
    FakeEditor::fields.push_back(editField);
    FakeEditor::opened.push_back(selection.Current());
    if (FakeEditor::edit) selection.SelectOnly(FakeEditor::edit(selection.Current()));
    return IDOK;
}

INT_PTR EntryEditor::Run(Window&, DbJournal&, const PimData& item, CEOID& id) {
    FakeEditor::items.push_back(item);
    id = FakeEditor::editItem ? FakeEditor::editItem(item) : 0;
    return IDOK;
}

void EntryEditor::FinishOpen() {
    if (FakeEditor::finish) FakeEditor::finish();
}
