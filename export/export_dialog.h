// The screen in which the user chooses which entries go into a file, and which of their fields.
#pragma once

#include <string>
#include <vector>

#include "data/dbj_item.h"
#include "data/ts_list.h"
#include "export/export_file.h"
#include "export/export_writer.h"
#include "ui/button.h"
#include "ui/dialog.h"
#include "ui/list_box.h"
#include "ui/progress_bar.h"
#include "ui/static_text.h"

class DbJournal;
class SelectionMemory;
struct FilterSettings;

class ExportDialog : public Dialog {
public:
    // Runs the screen modally over `owner`: it asks for the file first and shows itself when there is one. Answers IDOK
    // when entries were exported, also when none could be written, IDCANCEL when the user left or there are no entries
    // (which is said), -1 when the screen cannot be made. Moves the journal's current position.
    static INT_PTR Run(Window& owner, DbJournal& journal, const SelectionMemory& selection,
                       const FilterSettings& filter);

private:
    friend class Dialog;  // begins and ends the procedure's live object

    ExportDialog(DbJournal& journal, const SelectionMemory& selection, const FilterSettings& filter)
        : journal_(journal), selection_(selection), filter_(filter) {}

    static INT_PTR CALLBACK Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) noexcept;
    static ExportDialog* live_;

    // ---- Messages ----
    INT_PTR OnInitDialog(void* data);
    INT_PTR OnCommand(WORD code, WORD id);
    INT_PTR OnSettingChange(WPARAM wparam, LPARAM lparam);

    // ---- Start ----
    bool HasEntries();
    bool AskForFile();
    void AttachControls();
    void ShowFormat();
    void FillFields(CEOID first);

    // ---- Choices ----
    void OnFieldsChosen();

    // ---- Export ----
    void OnOk();
    int WriteEntries();
    std::vector<CEOID> ChosenEntries(int* expected);
    void ShowProgress(int written);

    // ---- Layout (export_dialog_layout.cpp) ----
    void LayOut();

    DbJournal& journal_;
    const SelectionMemory& selection_;
    const FilterSettings& filter_;
    TSList<DbJItem> fields_;  // each with kFieldExported when it is chosen
    std::wstring path_;
    ExportFormat format_ = ExportFormat::kCsv;
    ExportFile file_;
    bool running_ = false;  // nothing else can be done until the export has ended
    DWORD shown_ = 0;       // when the progress was shown last

    StaticText caption_;
    Button all_;
    Button selected_;
    Button filtered_;
    ListBox list_;
    Button labels_;
    ProgressBar progress_;
};
