// What the main window's commands do.
#include "app/about.h"
#include "app/main_window.h"
#include "app/options_screen.h"
#include "data/category_uses.h"
#include "data/db_journal.h"
#include "data/entry_identity.h"
#include "data/sort_key.h"
#include "editor/entry_editor.h"
#include "export/export_dialog.h"
#include "filter/filter_dialog.h"
#include "filter/filter_settings.h"
#include "filter/registry_filter_store.h"
#include "find/find_dialog.h"
#include "find/found_dialog.h"
#include "list/detail_view.h"
#include "pickers/category_picker.h"
#include "pickers/quick_subjects_screen.h"
#include "res/ids.h"
#include "ui/application.h"
#include "ui/bring_forward.h"
#include "ui/busy_scope.h"
#include "ui/resource_text.h"

#include <aygshell.h>

#include <algorithm>

LRESULT MainWindow::OnCommand(WORD notification, WORD id) {
    switch (notification) {
        case kNotifySortField: SortByField(id); return 0;
        case kNotifySortDescending: SortDescending(id != 0); return 0;
        case kNotifyRefresh:
            list_.ShowTop();
            list_.RefreshList();
            break;
        default: break;
    }
    OnCommandId(id);
    return 0;
}

void MainWindow::OnCommandId(WORD id) {
    switch (id) {
        // The filter's dialog sends these two.
        case IDM_SHOW_ALL: ClearFilter(); break;
        case IDM_FILTER_CHANGED: SaveFilter(); break;
        case IDM_EDIT_ENTRY:
            // The first half of a double tap has opened the view already; what comes after it opens the editor.
            if (!DetailView::EndToEdit()) OnScreenCommand(id);
            break;
        default: OnScreenCommand(id); break;
    }
}

void MainWindow::OnScreenCommand(WORD id) {
    if (IsBehindScreen()) return BringForward(GetHandle());
    switch (id) {
        case IDM_SHAREDNEW:
        case IDM_NEW_ENTRY: NewEntry(); break;
        case IDM_OPEN_ENTRY: ShowCurrent(); break;
        case IDM_EDIT_ENTRY: EditCurrent(); break;
        case IDM_COPY_ENTRIES: CopySelected(); break;
        case IDM_DELETE_ENTRIES: DeleteSelected(); break;
        case IDM_FILTER: EditFilter(); break;
        case IDM_EXPORT:
        case IDM_EXPORT_SELECTED: Export(); break;
        case IDM_FIND: Find(); break;
        case IDM_OPTIONS: EditOptions(); break;
        case IDM_ABOUT: RunAbout(*this); break;
        default: break;
    }
}

// ---- Editing ----

void MainWindow::NewEntry() {
    selection_.SetCurrent(0);
    RunEditor();
}

void MainWindow::ShowCurrent() {
    if (selection_.Current() == 0) return;
    const INT_PTR result = DetailView::Run(*this, selection_);
    if (!IsWindow()) return;  // closed together with the view
    if (result != DetailView::kClosed) RunEditor(result > 0 ? static_cast<WORD>(result) : WORD{0});
}

void MainWindow::EditCurrent() {
    if (selection_.Current() != 0) RunEditor();
}

void MainWindow::RunEditor(WORD field) {
    EntryEditor::Run(*this, journal_, selection_, field);
    if (!IsWindow()) return;  // closed together with the editor
    list_.RefreshList();
}

// ---- Options ----

void MainWindow::EditOptions() {
    const OptionLaunchers launchers{
        .subjects = [](HWND owner) { QuickSubjectsScreen::Run(owner); },
        .categories = [](HWND owner) { CategoryPicker::RunEditor(owner); },
    };
    OptionsScreen::Run(*this, launchers);
    if (!IsWindow()) return;  // closed together with the screen
    list_.RefreshList();
}

// ---- Filter ----

void MainWindow::ClearFilter() {
    RegistryFilterStore store(*Application::Current());
    filter_.Reset(store);
    bar_.SetShowText();
    list_.ShowTop();
    list_.RefreshList();
}

void MainWindow::EditFilter() {
    FilterDialog::Run(*this, journal_, filter_);
    if (!IsWindow()) return;  // closed together with the dialog
    list_.RefreshList();
    bar_.SetShowText();
}

void MainWindow::SaveFilter() {
    RegistryFilterStore store(*Application::Current());
    filter_.Save(store);
    list_.ShowTop();
    list_.RefreshList();
}

// ---- Find ----

void MainWindow::Find() {
    if (FindDialog::Run(*this, find_) == IDOK && IsWindow()) FoundDialog::Run(*this, journal_, selection_, find_);
    if (IsWindow()) list_.RefreshList();
}

// ---- Export ----

void MainWindow::Export() {
    ExportDialog::Run(*this, journal_, selection_, filter_);
}

// ---- Sorting ----

void MainWindow::SortByField(WORD field) {
    SORTORDERSPEC now[CEDB_MAXSORTORDER] = {};
    journal_.GetSortOrders(now);
    SORTORDERSPEC order = SortKeyForField(field);
    order.dwFlags |= now[0].dwFlags & CEDB_SORT_DESCENDING;
    SetSortOrder(order);
}

void MainWindow::SortDescending(bool descending) {
    SORTORDERSPEC now[CEDB_MAXSORTORDER] = {};
    journal_.GetSortOrders(now);
    SORTORDERSPEC order = now[0];
    order.dwFlags = descending ? order.dwFlags | CEDB_SORT_DESCENDING : order.dwFlags & ~DWORD{CEDB_SORT_DESCENDING};
    SetSortOrder(order);
}

void MainWindow::SetSortOrder(const SORTORDERSPEC& order) {
    {
        const BusyScope busy;
        journal_.SetSortOrder(&order, 1);
    }
    if (!IsWindow()) return;  // closed behind a box that said what is wrong
    list_.ShowTop();
    list_.RefreshList();
}

// ---- Copy and delete ----

void MainWindow::CopySelected() {
    CategoryUses uses;
    for (const CEOID id : selection_.Ids()) {
        if (journal_.SeekToOid(id) == 0) continue;
        WORD count = 0;
        BYTE* buffer = nullptr;
        if (journal_.ReadRecordProps(&count, nullptr, &buffer) != 0 && count > 0) {
            CEPROPVAL* properties = reinterpret_cast<CEPROPVAL*>(buffer);
            count = static_cast<WORD>(std::remove_if(properties, properties + count,
                                                     [](const CEPROPVAL& value) { return IsIdentity(value.propid); }) -
                                      properties);
            if (count > 0 && journal_.WriteRecordProps(0, count, properties) != 0)
                uses.Add(FindCategories({properties, count}));
        }
        LocalFree(buffer);
    }
    uses.Store();
    list_.RefreshList();
}

void MainWindow::DeleteSelected() {
    if (selection_.Ids().empty()) return;
    if (!MayDelete()) {
        list_.ForgetHasCurrent();
        return;
    }
    const std::vector<CEOID> doomed = selection_.Ids();
    CategoryUses uses;
    for (const CEOID id : doomed) {
        if (journal_.SeekToOid(id) != 0) {  // another program may have deleted it
            const std::vector<CEOID> categories = ReadEntryCategories(journal_, id);
            if (journal_.DeleteRecord(id)) uses.Release(categories);
        }
        selection_.Remove(id);
    }
    uses.Store();
    list_.RefreshList();
    list_.ForgetHasCurrent();
}

bool MainWindow::MayDelete() {
    const std::wstring yes = LoadText(IDS_YES);
    std::wstring confirm;
    Application::Current()->ReadString(LoadText(IDS_OPTIONS), LoadText(IDS_OPTION_CONFIRM_DELETES), yes, confirm);
    if (_wcsicmp(confirm.c_str(), yes.c_str()) != 0) return true;
    return MessageBox(LoadText(IDS_DELETE_RECORD).c_str(), LoadText(IDS_CONFIRM).c_str(),
                      MB_YESNO | MB_ICONEXCLAMATION) == IDYES;
}
