// The export while it runs: what the screen shows meanwhile, and who else is at work.
#include "tests/export/export_screen.h"
#include "tests/support/other_program.h"

namespace {

constexpr UINT_PTR kWatch = 77;

// What happens on the screen while the export runs. The clock is the test's: each look at it finds a tenth of a second
// gone, so that the progress is shown after every entry.
struct Watch {
    static inline DWORD clock = 0;
    static inline HWND dialog = nullptr;
    static inline std::vector<int> told;     // positions the bar was given
    static inline std::vector<int> painted;  // positions it had when it was painted
    static inline int dialogPainted = 0;
    static inline std::function<void(int)> onPosition;

    Watch() {
        clock = 0;
        dialog = nullptr;
        told.clear();
        painted.clear();
        dialogPainted = 0;
        onPosition = {};
    }

    static DWORD WINAPI Clock() { return clock += 100; }

    static LRESULT CALLBACK Bar(HWND bar, UINT message, WPARAM wparam, LPARAM lparam, UINT_PTR, DWORD_PTR) {
        if (message == WM_PAINT) painted.push_back(static_cast<int>(SendMessageW(bar, PBM_GETPOS, 0, 0)));
        const LRESULT result = DefSubclassProc(bar, message, wparam, lparam);
        if (message == PBM_SETPOS) {
            told.push_back(static_cast<int>(wparam));
            InvalidateRect(dialog, nullptr, FALSE);  // as when another window was in front
            if (onPosition) onPosition(static_cast<int>(wparam));
        }
        return result;
    }
    static LRESULT CALLBACK Dialog(HWND window, UINT message, WPARAM wparam, LPARAM lparam, UINT_PTR, DWORD_PTR) {
        if (message == WM_PAINT) ++dialogPainted;
        return DefSubclassProc(window, message, wparam, lparam);
    }

    void Begin(HWND screen) {
        dialog = screen;
        UpdateWindow(screen);
        SetWindowSubclass(screen, Dialog, kWatch, 0);
        SetWindowSubclass(GetDlgItem(screen, IDC_EXPORT_PROGRESS), Bar, kWatch, 0);
    }

    const ReplacedImport import{nullptr, "GetTickCount", Clock};
};

class ExportProgressTest : public ExportScreen {
protected:
    ExportScreen::Script Watched() {
        return [this] { watch_.Begin(Screen()); };
    }

    // journal_helper.exe does it, and has ended on return.
    static void Other(const std::wstring& words) { EXPECT_NE(RunOtherProgram(L"journal_helper.exe", words), 0u); }

    std::string SubjectLines() const {
        std::string lines;
        const std::string bytes = Bytes(File());
        for (size_t at = 0; (at = bytes.find("Subject: ", at)) != std::string::npos; at = bytes.find('\n', at))
            lines += bytes.substr(at + 9, bytes.find('\r', at) - at - 9) + "|";
        return lines;
    }

    Watch watch_;
};

}  // namespace

TEST_F(ExportProgressTest, TheBarMovesWithTheEntriesAndIsPaintedOnItsWay) {
    AddDays(20);
    Export(L"Exported 20 records", Watched());
    ASSERT_EQ(Watch::told.size(), 21u) << "after each entry, and at the end";
    for (int i = 0; i < 20; ++i)
        EXPECT_EQ(Watch::told[static_cast<size_t>(i)], i + 1);
    // Every position was seen, not the last alone.
    for (int i = 1; i <= 20; ++i)
        EXPECT_NE(std::find(Watch::painted.begin(), Watch::painted.end(), i), Watch::painted.end()) << i;
}

TEST_F(ExportProgressTest, TheScreenIsPaintedWhileTheExportRuns) {
    AddDays(20);
    int before = 0;
    Watch::onPosition = [&](int position) {
        if (position == 1) before = Watch::dialogPainted;
        if (position == 20) {
            EXPECT_GE(Watch::dialogPainted, before + 18);
        }
    };
    Export(L"Exported 20 records", Watched());
    EXPECT_GE(Watch::dialogPainted, 18);
}

TEST_F(ExportProgressTest, ItsRangeIsTheEntriesToVisitAndItHidesUntilThen) {
    AddDays(5);
    int top = 0;
    bool shown = false;
    Watch::onPosition = [&](int) {
        const HWND bar = GetDlgItem(Watch::dialog, IDC_EXPORT_PROGRESS);
        top = static_cast<int>(SendMessageW(bar, PBM_GETRANGE, FALSE, 0));
        shown = IsWindowVisible(bar) && !IsWindowEnabled(GetDlgItem(Watch::dialog, IDC_EXPORT_LABELS));
    };
    Export(L"Exported 5 records", [&] {
        Watched()();
        EXPECT_FALSE(IsWindowVisible(Item(IDC_EXPORT_PROGRESS)));
    });
    EXPECT_EQ(top, 5);
    EXPECT_TRUE(shown);
}

TEST_F(ExportProgressTest, KeysAndTapsMeanwhileDoNothing) {
    AddDays(5);
    Watch::onPosition = [&](int position) {
        if (position != 2) return;
        PostMessageW(Watch::dialog, WM_COMMAND, IDCANCEL, 0);
        PostMessageW(Watch::dialog, WM_COMMAND, IDOK, 0);
        SendMessageW(Watch::dialog, WM_COMMAND, IDCANCEL, 0);
    };
    Export(L"Exported 5 records", Watched());
    EXPECT_EQ(Watch::told.back(), 5);
}

// ---- Another program at work ----

TEST_F(ExportProgressTest, WhatAnotherProgramDoesMeanwhileIsSeenEntryByEntry) {
    choice_->filter = 2;
    const std::vector<CEOID> ids = AddDays(6);
    Watch::onPosition = [&](int position) {
        if (position != 2) return;
        Other(L"rename " + std::to_wstring(ids[0]) + L" late");
        Other(L"delete " + std::to_wstring(ids[3]));
        Other(L"rename " + std::to_wstring(ids[4]) + L" renamed");
        Other(L"add added");
        Watch::onPosition = {};
    };
    Export(L"Exported 5 records", Watched());
    EXPECT_EQ(SubjectLines(), "entry 0|entry 1|entry 2|renamed|entry 5|");
}

TEST_F(ExportProgressTest, AJournalThatAnotherProgramEmptiesMeanwhileEndsWithWhatWasWritten) {
    choice_->filter = 2;
    AddDays(5);
    Watch::onPosition = [&](int position) {
        if (position != 2) return;
        Other(L"empty");
        Watch::onPosition = {};
    };
    Export(L"Exported 2 records", Watched());
    EXPECT_EQ(SubjectLines(), "entry 0|entry 1|");
}
