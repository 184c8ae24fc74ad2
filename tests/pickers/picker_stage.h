// The real pickers, run modally over a window on a store, registry and settings of the test's own.
#pragma once

#include <gmock/gmock.h>
#include <win.h>

#include <string>
#include <vector>

#include "data/db_cats.h"
#include "data/field_ids.h"
#include "res/ids.h"
#include "tests/support/fresh_store.h"
#include "tests/support/message_boxes.h"
#include "tests/support/modal_stage.h"
#include "tests/support/private_registry.h"
#include "ui/application.h"

class PickerStage : public testing::Test {
protected:
    using Script = ModalStage::Script;

    PickerStage();

    // ---- What a script does ----
    HWND Screen() const { return stage_.Screen(); }
    HWND Item(int id) const;
    // A control of the panel with the edit, the list box and the buttons.
    HWND PanelItem(int id) const;
    void Click(int panelButton) const { SendMessageW(PanelItem(panelButton), BM_CLICK, 0, 0); }
    bool IsEnabled(int panelItem) const { return IsWindowEnabled(PanelItem(panelItem)) != FALSE; }
    // Types into the panel's edit in place of what it holds.
    void Retype(const std::wstring& text) const;
    std::wstring Text() const;
    std::vector<std::wstring> ListTexts() const;
    // Selects a row of the panel's list box as a tap does; -1: none.
    void SelectInList(int row) const;
    void SelectInList(const std::wstring& text) const;
    // A key as the message loop of the screen gets it.
    void Press(HWND control, WPARAM key) const;
    // Taps a row of a list view, beside its box.
    void TapRow(HWND list, int row) const;
    // Goes to a page of the tab strip.
    void GoToPage(int page) const;
    std::wstring RowText(HWND list, int row, int column = 0) const;
    std::vector<std::wstring> Rows(HWND list) const;
    std::vector<std::wstring> CheckedRows(HWND list) const;
    int RowOf(HWND list, const std::wstring& text) const;
    // Every control that can be seen stands whole within its parent.
    void ExpectNothingClipped() const;

    FreshStore store_;
    PrivateRegistry registry_;
    MessageBoxes boxes_;
    Application application_{L"Software\\Talvern\\Journal"};
    ModalStage stage_;

private:
    HWND Panel() const;
};
