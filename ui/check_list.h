// List view of check boxes: one column of texts, each with a box before it, that a tap anywhere on the row toggles.
#pragma once

#include "ui/list_view.h"

class CheckList : public ListView {
public:
    // Makes the attached control, in report mode without a header, one: boxes, and a column `width` device pixels wide.
    void Prepare(int width);

    // A disabled list shows its texts in grey, which the control by itself does not.
    bool Enable(bool enable = true) override;

    // Answers the row, -1 on failure. The parent is notified of no more than the box being there, and of its check.
    int Add(const wchar_t* text, bool checked, LPARAM data = 0);
    bool IsChecked(int row) const;
    // The parent is notified when that is a change.
    void SetChecked(int row, bool checked);
    void UncheckAll();

    // Whether the notification LVN_ITEMCHANGED tells that a box was checked or unchecked; IsChecked says which. A box
    // that has just come was neither.
    static bool IsToggled(const NMLISTVIEW& change);
    // Answers NM_CLICK and NM_DBLCLK: a tap beside the box toggles it; on the box the control does so itself.
    void OnTap(const NMITEMACTIVATE& tap);
    // Answers NM_SETFOCUS: a list without a focused row would not show that the keys go to it.
    void OnFocus();

    // The width of the column in which every text stands unclipped.
    int WidestRow() const;
};
