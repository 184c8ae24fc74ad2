#include "export/export_dialog.h"

#include <aygshell.h>
#include <px.h>

#include <functional>
#include <iterator>

#include "data/db_cats.h"
#include "data/db_journal.h"
#include "export/entry_export.h"
#include "export/field_texts.h"
#include "filter/filter_settings.h"
#include "list/selection_memory.h"
#include "res/ids.h"
#include "ui/application.h"
#include "ui/note_reader.h"
#include "ui/paint_windows.h"
#include "ui/resource_text.h"

namespace {

constexpr DWORD kPathChars = 260;
constexpr DWORD kTextFilter = 2;  // the file dialog counts its filters from 1
constexpr DWORD kShowEvery = 40;  // milliseconds from one look of the progress to the next

// The user's documents: on a device "\My Documents".
std::wstring DocumentsFolder() {
    wchar_t path[MAX_PATH] = L"";
    if (FAILED(SHGetFolderPathW(nullptr, CSIDL_PERSONAL, nullptr, SHGFP_TYPE_CURRENT, path))) return {};
    return path;
}

// What the file dialog takes: each text ended by a NUL, and the last by two.
std::wstring FileFilters() {
    std::wstring filters = LoadText(IDS_EXPORT_FILTERS);
    for (wchar_t& c : filters)
        if (c == L'|') c = L'\0';
    return filters;
}

}  // namespace

ExportDialog* ExportDialog::live_ = nullptr;

INT_PTR ExportDialog::Run(Window& owner, DbJournal& journal, const SelectionMemory& selection,
                          const FilterSettings& filter) {
    ExportDialog dialog(journal, selection, filter);
    DialogParams params(&dialog);
    return dialog.DoModal(GetModuleHandleW(nullptr), IDD_EXPORT, owner.GetHandle(), Procedure, &params);
}

INT_PTR CALLBACK ExportDialog::Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) noexcept {
    if (message == WM_INITDIALOG) return Begin(hwnd, lparam, live_);
    if (live_ == nullptr) return FALSE;
    switch (message) {
        case WM_COMMAND: return live_->OnCommand(HIWORD(wparam), LOWORD(wparam));
        case WM_SIZE: return live_->LayOut(), TRUE;
        case WM_SETTINGCHANGE: return live_->OnSettingChange(wparam, lparam);
        case WM_NCDESTROY: return End(live_);
        default: return FALSE;
    }
}

// ---- Start ----

INT_PTR ExportDialog::OnInitDialog(void*) {
    SHSetCloseCommand(GetHandle(), IDCANCEL);
    SetText(LoadText(IDS_EXPORT_TITLE).c_str());
    if (!HasEntries() || !AskForFile()) {
        EndDialog(GetHandle(), IDCANCEL);
        return FALSE;
    }
    AttachControls();
    ShowFormat();
    labels_.SetChecked(true);
    all_.Click();
    filtered_.Enable(filter_.active != FALSE);
    selected_.Enable(!selection_.Ids().empty());
    progress_.Hide();
    FillFields(journal_.SeekFirst());
    LayOut();
    all_.SetFocus();
    return FALSE;
}

bool ExportDialog::HasEntries() {
    if (journal_.SeekFirst() != 0) return true;
    MessageBox(LoadText(IDS_EXPORT_NONE).c_str(), LoadText(IDS_EXPORT_CAPTION).c_str(), MB_OK | MB_ICONEXCLAMATION);
    return false;
}

bool ExportDialog::AskForFile() {
    const std::wstring filters = FileFilters();
    const std::wstring folder = DocumentsFolder();
    wchar_t path[kPathChars] = L"";
    OPENFILENAMEW file = {};
    file.lStructSize = sizeof(file);
    file.hwndOwner = GetHandle();
    file.lpstrFilter = filters.c_str();
    file.nFilterIndex = 1;
    file.lpstrFile = path;
    file.nMaxFile = kPathChars;
    file.lpstrInitialDir = folder.c_str();
    // A device has no current folder for the dialog to change; here the program's stays, so that no drive is held.
    file.Flags = OFN_OVERWRITEPROMPT | OFN_NOCHANGEDIR;
    if (!GetSaveFileNameW(&file)) return false;
    path_ = path;
    format_ = file.nFilterIndex == kTextFilter ? ExportFormat::kText : ExportFormat::kCsv;
    return true;
}

void ExportDialog::AttachControls() {
    const HWND dialog = GetHandle();
    caption_.AttachItem(dialog, IDC_EXPORT_FORMAT);
    all_.AttachItem(dialog, IDC_EXPORT_ALL);
    selected_.AttachItem(dialog, IDC_EXPORT_SELECTED);
    filtered_.AttachItem(dialog, IDC_EXPORT_FILTERED);
    list_.AttachItem(dialog, IDC_EXPORT_FIELDS);
    labels_.AttachItem(dialog, IDC_EXPORT_LABELS);
    progress_.AttachItem(dialog, IDC_EXPORT_PROGRESS);
}

void ExportDialog::ShowFormat() {
    const bool text = format_ == ExportFormat::kText;
    caption_.SetText(LoadText(text ? IDS_EXPORT_TEXT : IDS_EXPORT_CSV).c_str());
    if (!text) return;
    labels_.SetText(LoadText(IDS_EXPORT_LABELS).c_str());
    list_.Enable(false);  // every field is written
    EnableItem(IDC_EXPORT_FIELDS_LABEL, false);
}

// The fields come with the first entry; what values it has is of no interest here.
void ExportDialog::FillFields(CEOID first) {
    journal_.Read(first, &fields_);
    for (DbJItem& field : fields_) {
        list_.AddString(field.GetLabel());
        field.SetFlag(kFieldExported);
    }
    list_.SelectRow(-1, true);
}

// ---- Messages ----

INT_PTR ExportDialog::OnCommand(WORD code, WORD id) {
    if (running_) return TRUE;
    switch (id) {
        case IDOK: OnOk(); return TRUE;
        case IDCANCEL: EndDialog(GetHandle(), IDCANCEL); return TRUE;
        case IDC_EXPORT_FIELDS:
            if (code == LBN_SELCHANGE) OnFieldsChosen();
            return TRUE;
        default: return FALSE;
    }
}

INT_PTR ExportDialog::OnSettingChange(WPARAM wparam, LPARAM lparam) {
    LayOut();
    return HandleSettingChange(wparam, lparam);
}

// ---- Choices ----

void ExportDialog::OnFieldsChosen() {
    int row = 0;
    for (DbJItem& field : fields_) {
        if (list_.IsRowSelected(row++)) {
            field.SetFlag(kFieldExported);
        } else {
            field.DelFlag(kFieldExported);
        }
    }
}

// ---- Export ----

void ExportDialog::OnOk() {
    if (!file_.Create(path_.c_str(), GENERIC_WRITE, FILE_SHARE_WRITE, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL)) return;
    running_ = true;
    Application::Current()->SetBusy(true);
    labels_.Enable(false);
    progress_.Show();
    const int written = WriteEntries();
    file_.Close();
    Application::Current()->SetBusy(false);

    wchar_t text[100];
    wsprintfW(text, LoadText(IDS_EXPORT_DONE).c_str(), written, written == 1 ? L"" : L"s");
    MessageBox(text, LoadText(IDS_EXPORT_CAPTION).c_str(), MB_OK);
    EndDialog(GetHandle(), IDOK);
}

int ExportDialog::WriteEntries() {
    NoteReader notes(GetHandle(), IDC_EXPORT_BODY);
    DbCats categories;
    FieldTexts texts([&](const CEBLOB& body, std::wstring& text) { notes.Read(body.lpb, body.dwCount, text); },
                     NamesOf(categories));
    int expected = 0;
    const std::vector<CEOID> entries = ChosenEntries(&expected);
    progress_.SetRange(0, expected);
    const ExportChoices choices = {format_, labels_.IsChecked(), filtered_.IsChecked() ? &filter_ : nullptr};
    const int written =
        ExportEntries(journal_, fields_, choices, entries, texts, file_, [this](int count) { ShowProgress(count); });
    progress_.SetPosition(written);
    PaintWindows();
    return written;
}

std::vector<CEOID> ExportDialog::ChosenEntries(int* expected) {
    std::vector<CEOID> entries = selected_.IsChecked() ? selection_.Ids() : AllEntries(journal_);
    *expected = filtered_.IsChecked() ? filter_.passed : static_cast<int>(entries.size());
    return entries;
}

void ExportDialog::ShowProgress(int written) {
    const DWORD now = GetTickCount();
    if (now - shown_ < kShowEvery) return;
    shown_ = now;
    progress_.SetPosition(written);
    PaintWindows();
}
