// The screen in which the quick subjects are kept.
#pragma once

#include "pickers/list_panel.h"
#include "pickers/picker_screen.h"

// Each change is stored at once.
class SubjectPanel : public ListPanel {
public:
    SubjectPanel();

private:
    void Fill() override;
    bool Add(const std::wstring& text) override;
    bool Modify(int row, const std::wstring& text) override;
    // Asks first, unless "ConfirmDelete" of the options is 0. The first subject of the row's text goes.
    bool Delete(int row) override;
};

class QuickSubjectsScreen : public PickerScreen {
public:
    // Runs the screen modally over `owner`. Answers IDOK, or -1 when it cannot be opened.
    static INT_PTR Run(HWND owner);

private:
    bool OnOpen() override;
    void LayOut(const RECT& client) override;
    INT_PTR OnCommand(WORD code, WORD id) override { return panel_.OnCommand(code, id); }

    SubjectPanel panel_;
};
