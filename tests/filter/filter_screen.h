// The real filter dialog, run modally over a window that writes down what it is sent, on a store, registry and settings
// of the test's own.
#pragma once

#include <gmock/gmock.h>

#include <functional>
#include <string>
#include <vector>

#include "data/db_journal.h"
#include "res/ids.h"
#include "tests/filter/filter_fixture.h"
#include "tests/support/modal_stage.h"
#include "tests/support/private_registry.h"
#include "ui/application.h"

// The dialog's controls.
inline constexpr int kMonths = IDC_FILTER_MONTHS;
inline constexpr int kCategories = IDC_FILTER_CATEGORIES;
inline constexpr int kByRange = IDC_FILTER_BY_RANGE;
inline constexpr int kByMonth = IDC_FILTER_BY_MONTH;
inline constexpr int kCategoriesOnly = IDC_FILTER_CATEGORIES_ONLY;
inline constexpr int kStart = IDC_FILTER_START;
inline constexpr int kEnd = IDC_FILTER_END;

class FilterScreen : public FilterTest {
protected:
    using Script = ModalStage::Script;

    FilterScreen();
    ~FilterScreen() override { journal_.Close(); }

    // An entry that starts on that day, with these categories.
    CEOID AddEntry(const DateTime& start, const std::vector<CEOID>& categories = {});

    // Opens the dialog, runs the script once it stands there, and cancels if the script has not ended it. Answers the
    // dialog's result.
    INT_PTR Open(const Script& script);
    // The same without waiting for a dialog: it is not to appear.
    INT_PTR OpenInVain();

    // ---- What stands there before ----
    // The owner resets the settings on "Clear", as the main window does.
    void ResetOnClear();
    // By range, 7 to 9 May 2001.
    void SetRange();

    // ---- What a script does ----
    HWND Screen() const { return stage_.Screen(); }
    HWND Item(int id) const;
    void Command(WORD id) const { SendMessageW(Screen(), WM_COMMAND, id, 0); }
    void Click(int id) const { SendMessageW(Item(id), BM_CLICK, 0, 0); }
    // Picks a day as the drop-down calendar does.
    void Pick(int id, const DateTime& time) const;
    DateTime Picked(int id) const;
    bool IsChecked(int id) const { return SendMessageW(Item(id), BM_GETCHECK, 0, 0) == BST_CHECKED; }
    bool IsEnabled(int id) const { return IsWindowEnabled(Item(id)) != FALSE; }
    std::wstring TextOf(int id) const;
    // Rows of a list: their texts, the texts of those checked, checking one, tapping one (right of its box, or on it).
    std::vector<std::wstring> Rows(int list) const;
    std::vector<std::wstring> CheckedRows(int list) const;
    int RowOf(int list, const std::wstring& text) const;
    void Check(int list, int row, bool checked) const;
    void TapRow(int list, int row, bool onBox = false) const;
    // What the line at the bottom says once everything is counted.
    std::wstring Status() const;

    static std::wstring MonthOfUser(WORD month);

    PrivateRegistry registry_;
    Application application_{L"Software\\Talvern\\Journal"};
    DbJournal journal_;
    ModalStage stage_;
    std::vector<WORD> commands_;           // what the owner was sent
    std::function<void(WORD)> onCommand_;  // what the owner does with it
};
