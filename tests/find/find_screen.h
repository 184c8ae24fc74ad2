// The real dialogs of find, run modally over a plain window, on a store, registry and settings of the test's own.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "list/selection_memory.h"
#include "res/ids.h"
#include "tests/find/find_fixture.h"
#include "tests/support/modal_stage.h"
#include "tests/support/private_registry.h"
#include "ui/application.h"

class FindScreen : public FindTest {
protected:
    using Script = ModalStage::Script;

    FindScreen();

    // Opens the dialog, runs the script once it stands there, and cancels if the script has not ended it. Answers the
    // dialog's result.
    INT_PTR Ask(const Script& script);
    // The same for what was found; closed with OK.
    INT_PTR Show(const Script& script);
    // The same without waiting for a screen: none is to appear.
    INT_PTR ShowInVain();

    // The request that finds these subjects.
    void LookForSubject(const wchar_t* text);

    // ---- What a script does ----
    HWND Screen() const { return stage_.Screen(); }
    HWND Item(int id) const;
    void Command(WORD id) const { SendMessageW(Screen(), WM_COMMAND, id, 0); }
    void Click(int id) const { SendMessageW(Item(id), BM_CLICK, 0, 0); }
    bool IsChecked(int id) const { return SendMessageW(Item(id), BM_GETCHECK, 0, 0) == BST_CHECKED; }
    bool IsShown(int id) const { return IsWindowVisible(Item(id)) != FALSE; }
    std::wstring TextOf(int id) const;
    void Type(const wchar_t* text) const { SetWindowTextW(Item(IDC_FIND_TEXT), text); }
    void Pick(const DateTime& date) const;
    DateTime Picked() const;
    // The lines of the text box's list.
    std::vector<std::wstring> Lines() const;
    // As the dialog's own loop hands a key on: the dialog manager sees it first.
    static void Press(HWND screen, WPARAM key);
    // The rows of what was found: date and subject.
    std::vector<std::wstring> Dates() const { return Column(0); }
    std::vector<std::wstring> Subjects() const { return Column(1); }
    static void Tap(HWND list, int row);

    // ---- The settings ----
    int Stored(const wchar_t* name) const { return application_.ReadInt(L"Options", name, -1); }
    void Store(const wchar_t* name, int value) { application_.WriteInt(L"Options", name, value); }
    void Store(const wchar_t* name, const wchar_t* text) { application_.WriteString(L"Options", name, text); }
    std::vector<std::wstring> History() const;

    PrivateRegistry registry_;
    Application application_{L"Software\\Talvern\\Journal"};
    SelectionMemory selection_;
    ModalStage stage_;

private:
    std::vector<std::wstring> Column(int column) const;
};
