// The screen of the program's few options: a name and a value in each row, changed by tapping the value.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "data/db_options.h"
#include "data/dbj_item.h"
#include "editor/field_controls.h"
#include "editor/field_list.h"
#include "ui/combo_box.h"
#include "ui/dialog.h"
#include "ui/key_watch.h"

// What the rows open that lead to another screen; each is given the options screen as owner.
// Without one its row does nothing.
struct OptionLaunchers {
    std::function<void(HWND owner)> subjects;
    std::function<void(HWND owner)> categories;
};

// OK stores "Confirm Deletes"; leaving in any other way stores nothing. The other rows act at once: the password row
// through the password lock, the last two by the screens they open.
class OptionsScreen : public Dialog, private KeyListener {
public:
    // Runs the screen modally over `owner`. Always answers 0, whichever way it was left; -1 when the library's options
    // cannot be had.
    static INT_PTR Run(Window& owner, const OptionLaunchers& launchers);

private:
    friend class Dialog;  // begins and ends the procedure's live object

    enum Row { kPassword, kConfirmDeletes, kSubjects, kCategories };

    explicit OptionsScreen(const OptionLaunchers& launchers) : launchers_(launchers) {}

    static INT_PTR CALLBACK Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) noexcept;
    static OptionsScreen* live_;

    // ---- Messages (options_screen.cpp) ----
    INT_PTR OnInitDialog(void* data) override;
    INT_PTR OnCommand(WORD id);
    INT_PTR OnNotify(const NMHDR& header);
    INT_PTR OnSize();
    INT_PTR OnSettingChange(WPARAM wparam, LPARAM lparam);
    void OnTap(const POINT& place);
    void OnOk();
    bool MakeList();
    bool WantsKey(HWND control, UINT key) const override;
    void OnKey(HWND control, UINT key) override;

    // ---- Rows (options_rows.cpp) ----
    void FillRows();
    DbJItem* ItemOfRow(int row);
    void ShowRow(const DbJItem& item);
    void ActOn(int row);
    void OpenChoices(DbJItem& item);
    void PlaceChoices();
    // Takes what is chosen in the open drop-down list and closes it; nothing without one.
    void CloseChoices();
    void Launch(const std::function<void(HWND)>& launcher);
    void OnPassword();
    void StoreRows();

    const OptionLaunchers& launchers_;
    DbOptions options_;
    TSList<DbJItem> items_;
    FieldList list_;
    std::unique_ptr<HiddenLabel> listLabel_;
    std::unique_ptr<HiddenLabel> choicesLabel_;
    std::unique_ptr<ComboBox> choices_;  // the open drop-down list; null when none is open
    DbJItem* chosenFor_ = nullptr;       // the row it belongs to
};
