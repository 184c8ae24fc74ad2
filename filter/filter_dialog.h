// The screen in which every setting of the filter is changed.
#pragma once

#include "filter/pass_counter.h"
#include "ui/button.h"
#include "ui/check_list.h"
#include "ui/date_picker.h"
#include "ui/dialog.h"
#include "ui/static_text.h"
#include "ui/unique_handle.h"

class DbJournal;
struct FilterSettings;

// The settings are edited in place, also when the user cancels; opening the screen turns the filter on.
class FilterDialog : public Dialog {
public:
    // Runs the screen modally over `owner`. OK first sends the owner IDM_FILTER_CHANGED, for it to store the settings
    // and to fill its list; "Clear" sends IDM_SHOW_ALL, for it to reset them. `journal` is counted for the line that
    // says how many entries pass. Answers IDOK, IDCANCEL, or -1 when the categories cannot be opened (the settings are
    // as they were then) or the screen cannot be made.
    static INT_PTR Run(Window& owner, DbJournal& journal, FilterSettings& filter);

private:
    friend class Dialog;  // begins and ends the procedure's live object

    FilterDialog(Window& owner, DbJournal& journal, FilterSettings& filter);

    static INT_PTR CALLBACK Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) noexcept;
    static FilterDialog* live_;

    // ---- Messages ----
    INT_PTR OnInitDialog(void* data);
    INT_PTR OnCommand(WORD code, WORD id);
    INT_PTR OnNotify(const NMHDR& header);
    INT_PTR OnSettingChange(WPARAM wparam, LPARAM lparam);
    INT_PTR OnTimer();

    // ---- Start ----
    void AttachControls();
    void FillMonths();
    bool FillCategories();
    void ShowRange();

    // ---- Edits ----
    void OnClear();
    void OnOk();
    void OnByRange(bool byRange);
    void OnCategoriesOnly();
    void OnStartChanged();
    void OnEndChanged();
    void OnMonthToggled(int row);
    void OnCategoryToggled(int row);
    void OnListNotify(CheckList& list, const NMHDR& header);
    void Edited();
    void EnableControls();

    // ---- How many pass ----
    void CountAnew();
    void ShowStatus(const std::wstring& text);

    // ---- Layout (filter_dialog_layout.cpp) ----
    void LayOut();
    void FitStatus();

    Window& owner_;
    FilterSettings& filter_;
    PassCounter counter_;
    Button byRange_;
    Button byMonth_;
    Button categoriesOnly_;
    DatePicker start_;
    DatePicker end_;
    CheckList months_;
    CheckList categories_;
    StaticText status_;
    UniqueFont narrow_;     // of a status that is wider than the screen, else null
    bool loading_ = false;  // a list is being filled: what it tells is no edit
    bool changed_ = false;
};
