// The screen in which an entry's categories are checked, and the device's categories kept.
#pragma once

#include <vector>

#include "pickers/category_panel.h"
#include "pickers/picker_screen.h"
#include "ui/check_list.h"
#include "ui/static_text.h"
#include "ui/tab_control.h"

// Two pages: "Select", every visible category with a box, and "Add/Delete", the categories editor. A category that the
// entry holds and that is hidden is in no list and stays with the entry.
class CategoryPicker : public PickerScreen {
public:
    // Runs the screen modally over `owner` on an entry's categories, which are changed in place: unchecking a category
    // removes it, checking puts it behind the others. Those that are renamed or deleted here are so in the entry, too.
    // Answers IDOK, or -1 when the categories cannot be opened, which was reported.
    static INT_PTR Run(HWND owner, TSList<DbCItem>& categories);

    // The same without an entry: the categories editor alone.
    static INT_PTR RunEditor(HWND owner);

private:
    enum Page { kSelectPage = 0, kEditPage = 1 };  // indexes of the tabs

    // `categories` null: the categories editor alone.
    explicit CategoryPicker(TSList<DbCItem>* categories);
    ~CategoryPicker() override;

    bool OnOpen() override;
    void LayOut(const RECT& client) override;
    INT_PTR OnCommand(WORD code, WORD id) override { return panel_.OnCommand(code, id); }
    LRESULT OnNotify(const NMHDR& header) override;
    void OnDrawItem(const DRAWITEMSTRUCT& draw) override { tabs_.Draw(draw); }

    bool MakeSelectPage();
    void FillList();
    void ShowPage(Page page);
    void OnToggled(int row);
    void OnEdited();
    DbCItem CategoryOf(int row) const;
    bool IsHeld(const DbCItem& category) const;

    TSList<DbCItem>* categories_;
    DbCats database_;
    StaticText label_;
    CheckList list_;
    CategoryPanel panel_;
    TabControl tabs_;
    bool filling_ = false;  // what the list tells is no tap
    bool stale_ = false;    // the categories were edited since the list was filled
};
