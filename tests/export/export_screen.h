// The real export dialog, run modally over a plain window, with a stand-in for the system's file dialog.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "filter/filter_settings.h"
#include "list/selection_memory.h"
#include "res/ids.h"
#include "tests/export/export_fixture.h"
#include "tests/support/modal_stage.h"
#include "tests/support/private_registry.h"
#include "ui/application.h"

class ExportScreen : public ExportTest {
protected:
    using Script = std::function<void()>;

    ExportScreen();

    // Opens the dialog, runs the script once it stands there, and cancels if the script has not ended it. Answers the
    // dialog's result.
    INT_PTR Open(const Script& script);
    // The same without waiting for a dialog: it is not to appear.
    INT_PTR OpenInVain();
    // Opens the dialog, changes what `choose` does, presses OK and expects that count.
    void Export(const wchar_t* message, const Script& choose = {});

    // ---- What the file dialog does ----
    struct FileChoice {
        std::wstring path;
        DWORD filter = 1;
    };
    // Without a choice it is cancelled.
    static inline std::optional<FileChoice> choice_;
    struct Asked {
        HWND owner;
        std::wstring filters;
        std::wstring folder;
        DWORD flags;
        DWORD filter;
        DWORD room;
        bool extension;
        bool screenVisible;
    };
    static inline std::vector<Asked> asked_;

    // ---- What a script does ----
    HWND Screen() const { return stage_.Screen(); }
    HWND Item(int id) const;
    void Command(WORD id) const { SendMessageW(Screen(), WM_COMMAND, id, 0); }
    void Click(int id) const { SendMessageW(Item(id), BM_CLICK, 0, 0); }
    bool IsChecked(int id) const { return SendMessageW(Item(id), BM_GETCHECK, 0, 0) == BST_CHECKED; }
    bool IsEnabled(int id) const { return IsWindowEnabled(Item(id)) != FALSE; }
    std::wstring TextOf(int id) const;
    std::vector<std::wstring> FieldRows() const;
    std::vector<std::wstring> ChosenFields() const;
    // Taps the row of that label in the list of fields.
    void TapField(const std::wstring& label) const;

    PrivateRegistry registry_;
    Application application_{L"Software\\Talvern\\Journal"};
    SelectionMemory selection_;
    FilterSettings filter_;
    ModalStage stage_;

private:
    static BOOL WINAPI AskForFile(LPOPENFILENAMEW file);

    ReplacedImport fileDialog_{nullptr, "GetSaveFileNameW", AskForFile};
};
