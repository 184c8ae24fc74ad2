// The real entry editor, run modally over a window on a store, registry and settings of the test's own.
#pragma once

#include <gtest/gtest.h>
#include <win.h>

#include <functional>
#include <string>

#include "data/db_journal.h"
#include "data/field_ids.h"
#include "editor/entry_editor.h"
#include "list/selection_memory.h"
#include "tests/support/fresh_store.h"
#include "tests/support/message_boxes.h"
#include "tests/support/modal_stage.h"
#include "tests/support/private_registry.h"
#include "ui/application.h"

class EditorScreen : public testing::Test {
protected:
    using Script = ModalStage::Script;

    EditorScreen();
    ~EditorScreen() override { journal_.Close(); }

    // ---- The store ----
    // Writes an entry whose fields `fill` sets and answers its id.
    CEOID AddEntry(const std::function<void(TSList<DbJItem>&)>& fill);
    // A field of a stored entry, as it is now.
    DbJItem Stored(CEOID id, CEPROPID propid);
    std::wstring StoredText(CEOID id, CEPROPID propid) { return Stored(id, propid).GetStrValue(); }
    int StoredShort(CEOID id, CEPROPID propid) { return Stored(id, propid).GetShort(); }
    // The plain text of a stored entry's body.
    std::wstring StoredBody(CEOID id);

    // ---- Running ----
    // Opens the editor on an entry (0: a new one), runs the script once it stands there, then taps OK if the script has
    // not. Answers the id of the entry afterwards.
    CEOID Edit(CEOID id, const Script& script) { return Edit(id, 0, script); }
    CEOID Edit(CEOID id, WORD field, const Script& script);
    // The same for a Pocket Outlook item.
    CEOID EditItem(const PimData& item, const Script& script);

    // ---- What a script does ----
    HWND Screen() const { return stage_.Screen(); }
    HWND Item(int id) const { return GetDlgItem(Screen(), id); }
    HWND List() const;
    HWND Body() const;
    // The control that edits the current field; null when none is open.
    HWND Editor() const;
    HWND TimeEditor() const;
    void SelectField(WORD field);
    int SelectedRow() const;
    // What the field's row shows.
    std::wstring RowText(WORD field) const;
    void Command(int id) const;
    void Type(HWND control, const std::wstring& text) const;
    void Press(HWND control, WPARAM key) const;
    // Replaces the whole text of an edit, as the user would: select all, type.
    void Retype(HWND control, const std::wstring& text) const;
    // The edit inside a drop-down that can be typed into.
    HWND EditOf(HWND combo) const;
    void ChooseItem(HWND combo, int index) const;
    void PickTime(HWND picker, const SYSTEMTIME& time) const;
    void GoToNote() const;
    void GoToEntry() const;
    std::wstring TextOf(HWND control) const;
    bool IsZoomChecked(int item) const;

    int ReadOption(const wchar_t* name, int fallback) const;
    void WriteOption(const wchar_t* name, int value);

    FreshStore store_;
    PrivateRegistry registry_;
    MessageBoxes boxes_;
    Application application_{L"Software\\Quillon Journal Tests\\Settings"};
    DbJournal journal_;
    SelectionMemory selection_;
    ModalStage stage_;

private:
    void GoToPage(int page) const;
    void RunScript(const Script& script, const std::function<INT_PTR()>& modal);
};
